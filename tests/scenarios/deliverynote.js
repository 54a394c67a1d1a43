// A delivery note through the real windows, and the invoices made from it: lots, the account of delivered goods,
// notes billed in two parts, a note drafted twice, an order, a palet.

const year = today().substring(0, 4);

function seed() {
  sql("INSERT INTO kt_ter (COD, NUME, TIP) VALUES (2, 'CLIENT DOI SRL', 'C')");
  sql("INSERT INTO kt_ter (COD, NUME, TIP) VALUES (3, 'CLIENT TREI SA', 'C')");
  sql("INSERT INTO G_FAMART (COD, DENUMIRE, CONTSTOCMARFA, CONTCHELT, CONTVEN) VALUES (1, 'Marfuri', '371', '607', '707')");
  sql("INSERT INTO G_ARTMAG (CODART, DENART, UM, FAMART, COST, STOC, PRETVFT, PROVENIENTA, FARASTOC) " +
      "VALUES ('M1', 'Marfa intai', 'Buc', 1, 20, 10, 30, 'M', 0)");
  sql("UPDATE kt_par SET CONTAVIZEXP_M = '357', CONTAVIZEXP_P = '354', JURAVIZ = 'AV'");
  for (const [number, price] of [["1", 10], ["2", 20]]) {
    sql("INSERT INTO G_DOCUME (ID, TIP, TIPIE, DATADOC, CODMAG) VALUES (?, 'FF', 'I', ?, 1)", "FF" + number, year + "-01-0" + number);
    sql("INSERT INTO G_LDOCUM (DOCID, LINIE, ARTID, CANT, CANTRAMASA, PRETFT, COST, CODMAG, PALET) VALUES (?, 1, 'M1', 5, 5, ?, ?, 1, ?)",
        "FF" + number, price, price, "P" + number);
  }
}

let w, lines;
const {press} = steps(() => w);
function refused(text) {
  press("cmdValidare", "Da", "OK");
  equal(messages().pop().text, text, "refused");
}
const note = (number) => sql("SELECT CONT, DEBIT, CREDIT FROM kt_linii WHERE DOC = ? ORDER BY NDI, NRLINIE", number)
    .map((row) => row.CONT + (row.DEBIT ? " D " + row.DEBIT : " C " + row.CREDIT));
const rest = (number) => sql("SELECT L.CANTRAMAS AS A, G.CANTRAMASA AS B, H.FACTURAT AS F, D.VALIDAT AS V FROM G_LAECLI L, " +
    "G_LDOCUM G, G_AECLI H, G_DOCUME D WHERE L.NUMAE = ? AND H.NUMAE = ? AND G.DOCID = ? AND D.ID = ?",
    number, number, "AE" + number, "AE" + number).map((row) => [row.A, row.B, !!row.F, !!row.V])[0];

// The receipts of the seed have no drafts.
const disagreements = () => call("disagreementText").split("\n").filter((line) => line && !/: FF[12]$/.test(line));

function document(menuName, form, number, customer) {
  menu(menuName);
  w = win(form);
  lines = w.grid("TDBGrid1");
  w.click("cmdFacturaNoua");
  w.type("txtFields(0)", number);
  w.pick("DataCombo1", customer);
}

function deliver(number, quantity) {
  document("mnuVanzariAE", "frmGrilaAE", number, "CLIENT DOI SRL");
  w.click("cmdSalvare");
  lines.addLine("M1", quantity);
  key("Esc");
}

// 7 pieces: 5 of 10 and 2 of 20.
company({method: "FIFO"});
seed();
deliver("1", "7");
equal(lines.cell(0, "VALOARECOST"), "90,00", "cost of the trial");
press("cmdValidare", "Da", "OK");
equal(messages().pop().text, "Avizul de Expeditie a fost salvat cu succes in Articole si Documente !", "validated");
equal(sql("SELECT TIPIE, TOTALFT, TOTALTVA, TOTALCOST FROM G_DOCUME WHERE ID = 'AE1'"),
      [{TIPIE: "E", TOTALFT: 210, TOTALTVA: 39.9, TOTALCOST: 90}], "ledger");
equal(note("1"), ["371 C 90", "357 D 90"], "the cost waits");
equal(sql("SELECT STOC, COST FROM G_ARTMAG"), [{STOC: 3, COST: 20}], "stock");
deliver("2", "4");
refused("Articolul: M1 are disponibil numai 3");
equal(disagreements(), [], "after the note");

// A changed percentage saves and recalculates.
w.type("txtFields(2)", "9");
key("Tab");
equal([lines.cell(0, "VALOAREFT"), lines.cell(0, "VALOARETVA")], ["120,00", "10,80"], "at 9 percent");
equal(sql("SELECT BATVA1 FROM G_AECLI WHERE NUMAE = '2'")[0].BATVA1, 9, "saved");

// Billed 3 of 7, then drafted twice, then the rest.
function invoice(number, customer) {
  menu("mnuVanzFactura");
  win("frmGrilaFC2").click("cmdAE");
  w = win("frmGrilaFC");
  lines = w.grid("TDBGrid1");
  w.click("cmdFacturaNoua");
  w.type("txtFields(0)", number);
  w.pick("DataCombo1", customer);
}
invoice("11", "CLIENT DOI SRL");
answer("OK");
w.grid("TDBGrid3").select(0);
equal(messages().pop().text, "Va rugam salvati mai intai factura !", "not saved");
w.click("cmdSalvare");
answer("Da");
w.grid("TDBGrid3").select(0);
equal([lines.cell(0, "CANT"), lines.cell(0, "CANTAVIZ"), lines.cell(0, "NUMAE"), lines.cell(0, "COST")],
      ["7,000", "7,000", "AE1", "90,00"], "copied");
check(lines.isLocked(0, "CODART"), "the code is locked");
lines.enter(0, "CANT", "3");
press("cmdValidare", "Da", "OK");
equal(messages().pop().text, "Factura a fost salvata cu succes in Documente !", "from a note");
equal(rest("1"), [4, 4, false, false], "four remain");
equal(sql("SELECT TIPIE, TOTALCOST FROM G_DOCUME WHERE ID = 'FC11'")[0].TIPIE, null, "no movement");
equal(note("11").slice(3), ["607 D 38.5714", "357 C 38.5714"], "cost of 3 of 7");
for (const number of ["12", "13"]) {
  invoice(number, "CLIENT DOI SRL");
  w.click("cmdSalvare");
  answer("Da");
  answer("Da");
  w.grid("TDBGrid3").select(0);
}
press("cmdValidare", "Da", "OK");
equal(rest("1"), [0, 0, true, true], "billed");
check(w.grid("TDBGrid3").rows() === 0, "no longer offered");
w.grid("TDBGrid2").select(0);
refused("Cantitatea pentru articolul cu codul M1 este mai mare decat cea ramasa pe Aviz ! Validarea nu se poate efectua !");
equal(disagreements(), [], "after the invoices");
