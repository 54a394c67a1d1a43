// A transfer between warehouses through the real windows: checks, two ledger documents, accounts, a palet.

const year = today().substring(0, 4);

function seed() {
  sql("INSERT INTO kt_ter (COD, NUME, TIP) VALUES (1, 'FURNIZOR UNU SRL', 'F')");
  sql("INSERT INTO G_MULTIMAGAZIE (COD, DENUMIRE, CONT) VALUES (2, 'Depozit', '381')");
  sql("INSERT INTO G_MULTIMAGAZIE (COD, DENUMIRE, CONT) VALUES (3, 'Filiala', '371')");
  sql("UPDATE G_MULTIMAGAZIE SET CONT = '371' WHERE COD = 1");
  sql("INSERT INTO G_ARTMAG (CODART, DENART, UM, COST, STOC, PRETVFT, PROVENIENTA, FARASTOC) VALUES ('M1', 'Marfa intai', 'Buc', 12.5, 9, 20, 'M', 0)");
  sql("INSERT INTO G_ARTMAG (CODART, DENART, UM, COST, STOC, PRETVFT, PROVENIENTA, FARASTOC) VALUES ('M2', 'Marfa a doua', 'Buc', 3, 2, 5, 'M', 0)");
  sql("INSERT INTO G_NRFURN (NUMNR, DATANR, Magazie, VALIDAT) VALUES ('1', ?, 1, -1)", year + "-01-02");
  sql("INSERT INTO G_DOCUME (ID, TIP, TIPIE, DATADOC, CODMAG) VALUES ('NR1', 'NR', 'I', ?, 1)", year + "-01-02");
  const line = "INSERT INTO G_LDOCUM (DOCID, LINIE, ARTID, CANT, CANTRAMASA, PRETFT, COST, CODMAG, PALET) VALUES ('NR1', ?, ?, ?, ?, ?, ?, 1, ?)";
  sql(line, 1, "M1", 9, 9, 12.5, 12.5, null);
  sql(line, 2, "M2", 2, 2, 3, 3, "P7");
}

let w, lines;
const {press} = steps(() => w);
const said = () => messages().pop().text;
const stock = (code, warehouse) => sql("SELECT CANT FROM G_STOCMAG WHERE ARTID = ? AND CODMAG = ?", code, warehouse).map((row) => row.CANT)[0];
const note = (number) => sql("SELECT CONT, DEBIT, CREDIT FROM kt_linii WHERE DOC = ? ORDER BY NDI, NRLINIE", number)
    .map((row) => row.CONT + (row.DEBIT ? " D " + row.DEBIT : " C " + row.CREDIT));

function started(number, destination, palet) {
  w.click("cmdFacturaNoua");
  w.type("txtFields(0)", number);
  if (destination) w.pick("DataCombo1", destination);
  if (palet) w.type("TextPalet", palet);
}

function validated() {
  press("cmdValidare", "Da", "OK");
  equal(said(), "Documentul de transfer a fost salvat cu succes Documente !", "validated");
}

company({method: "FIFO"});
seed();
menu("mnuTransfer");
w = win("frmGRILADocTransfer");
lines = w.grid("TDBGrid1");
started("1");
press("cmdSalvare", "OK");
equal(said(), "Va rugam selectati magazia destinatie ! Salvarea nu se poate efectua !", "no destination");
w.pick("DataCombo1", "Magazie 1");
press("cmdSalvare", "OK");
equal(said(), "Magazia destinatie trebuie sa fie alta decat cea curenta ! Salvarea nu se poate efectua !", "the same");
w.pick("DataCombo1", "Depozit");
w.click("cmdSalvare");
lines.addLine("M1", "10");
key("Esc");
equal([lines.cell(0, "PRETFT"), lines.cell(0, "VALOAREFT"), lines.cell(0, "PRETVA")], ["12,50", "125,00", "20,00"], "at cost");
press("cmdValidare", "Da", "OK");
equal(said(), "Articolul: M1 are disponibil in stoc numai 9", "too much");
lines.enter(0, "CANT", "4");
validated();
equal(sql("SELECT ID, TIPIE, CODMAG, TOTALFT FROM G_DOCUME WHERE TIP = 'BT' ORDER BY ID"),
      [{ID: "BT1E", TIPIE: "E", CODMAG: 1, TOTALFT: 50}, {ID: "BT1I", TIPIE: "I", CODMAG: 2, TOTALFT: 50}], "two sides");
equal([stock("M1", 1), stock("M1", 2), sql("SELECT STOC FROM G_ARTMAG WHERE CODART = 'M1'")[0].STOC], [5, 4, 9], "stock");
equal(note("1"), ["381 D 50", "371 C 50"], "accounts");
equal(sql("SELECT TIPDOC FROM kt_linii WHERE DOC = '1'")[0].TIPDOC, "BT", "stamp");

// One account: no note. A palet moves whole, and only once.
started("2", "Filiala", "P7");
w.click("cmdSalvare");
equal([lines.cell(0, "CODART"), lines.cell(0, "CANT"), lines.cell(0, "PRETFT"), lines.cell(0, "PALET")], ["M2", "2,000", "3,00", "P7"], "palet");
validated();
equal([note("2"), stock("M2", 3)], [[], 2], "no note");
started("3", "Filiala", "P7");
press("cmdSalvare", "OK");
equal([said(), w.text("TextPalet"), lines.rows()], ["Articolelele din acest palet au iesit din stoc", "", 0], "it has left");
press("cmdSterge", "Da");
equal(call("disagreementText"), "", "all agrees");
