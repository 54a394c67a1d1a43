// A storno through the real windows: an invoice turned round in red and in black, over a voucher of the same number.

const year = today().substring(0, 4);

function seed(black) {
  sql("INSERT INTO kt_ter (COD, NUME, TIP) VALUES (2, 'CLIENT DOI SRL', 'C')");
  sql("INSERT INTO G_FAMART (COD, DENUMIRE, CONTSTOCMARFA, CONTCHELT, CONTVEN) VALUES (1, 'Marfuri', '371', '607', '707')");
  sql("INSERT INTO G_ARTMAG (CODART, DENART, UM, FAMART, COST, STOC, ADAOS, PRETVFT, PROVENIENTA, FARASTOC) VALUES ('M1', 'Marfa intai', 'Buc', 1, 10, 10, 100, 20, 'M', 0)");
  sql("INSERT INTO G_NRFURN (NUMNR, DATANR, Magazie, VALIDAT) VALUES ('1', ?, 1, -1)", year + "-01-02");
  sql("INSERT INTO G_DOCUME (ID, TIP, TIPIE, DATADOC, CODMAG) VALUES ('NR1', 'NR', 'I', ?, 1)", year + "-01-02");
  sql("INSERT INTO G_LDOCUM (DOCID, LINIE, ARTID, CANT, CANTRAMASA, PRETFT, COST, VALCOST, CODMAG) VALUES ('NR1', 1, 'M1', 10, 10, 10, 10, 100, 1)");
  sql("UPDATE kt_par SET StornareNegru = ?", black ? -1 : 0);
  // Another document's note with the number of the invoice.
  sql("INSERT INTO kt_linii (NDI, NRLINIE, JURNAL, DATAINR, CONT, DEBIT, CREDIT, DOC, PROV, FELDOC, TIPDOC) VALUES (1, 1, 'C', ?, '602', 9, 0, '7', 'G', 'BC', 'BC')", today());
  sql("INSERT INTO kt_linii (NDI, NRLINIE, JURNAL, DATAINR, CONT, DEBIT, CREDIT, DOC, PROV, FELDOC) VALUES (1, 2, 'C', ?, '301', 0, 9, '7', 'G', 'BC')", today());
}

let w;
const {press} = steps(() => w);
const said = () => messages().pop().text;
const note = (number, kind) => sql("SELECT CONT, DEBIT, CREDIT FROM kt_linii WHERE DOC = ? AND FELDOC = ? ORDER BY NDI, NRLINIE", number, kind)
    .map((row) => row.CONT + " " + row.DEBIT + " " + row.CREDIT);

function invoiced(number, quantity) {
  menu("mnuVanzFactura");
  win("frmGrilaFC2").click("cmdAE");
  w = win("frmGrilaFC");
  w.click("cmdFacturaNoua");
  w.type("txtFields(0)", number);
  w.pick("DataCombo1", "CLIENT DOI SRL");
  w.click("cmdSalvare");
  w.grid("TDBGrid1").addLine("M1", quantity);
  key("Esc");
  press("cmdValidare", "Da", "OK");
  equal(said(), "Factura a fost salvata cu succes in Articole si Documente !", "invoice");
}

function turned(invoice, number) {
  w.grid("TDBGrid2").select(0);
  w.type("txtFields(0)", number);
  press("cmdValidare", "Da", "OK");
}

for (const [black, method] of [[false, "FIFO"], [true, "MP"]]) {
  company({method});
  seed(black);
  invoiced("7", "4");
  menu("mnuStorno");
  w = win("frmGRILAStornare");
  press("cmdValidare", "OK");
  equal(said(), "Va rugam introduceti numarul documentului !", "nothing chosen");
  w.grid("TDBGrid2").select(0);
  equal([w.grid("TDBGrid1").cell(0, "CANT"), w.grid("TDBGrid1").cell(0, "PRETFT"), w.grid("TDBGrid1").cell(0, "VALOAREFT"), w.text("txtFields(3)")], ["4,000", "20,00", "80,00", "7"], "the invoice");
  check(w.grid("TDBGrid1").isLocked(0, "CANT") && !w.isEnabled("txtFields(3)"), "locked");
  w.type("txtFields(0)", "7");
  press("cmdValidare", "OK");
  equal(said(), "Factura de stornare trebuie sa fie diferita", "the same number");
  w.type("txtFields(0)", "8");
  press("cmdValidare", "Da", "OK");
  equal(messages().map((box) => box.text).slice(-2), ["Sunteti sigur ca doriti sa stornati factura 7 cu factura 8 ?",
      "Factura a fost salvata cu succes in Articole si Documente !"], "turned");
  equal(sql("SELECT D.TIPIE AS T, D.TOTALFT AS V, D.TOTALTVA AS X, D.TOTALCOST AS C, D.OBS AS O, L.CANT AS Q, L.CANTRAMASA AS R, L.COST AS U FROM G_DOCUME D, G_LDOCUM L " +
            "WHERE D.ID = 'FS8' AND L.DOCID = 'FS8'"), [{T: "I", V: 80, X: 15.2, C: 40, O: "7", Q: 4, R: 4, U: 10}], "ledger");
  equal(sql("SELECT STOC, COST, PRETVFT FROM G_ARTMAG"), [{STOC: 10, COST: 10, PRETVFT: 20}], "stock");
  equal([!!sql("SELECT STORNAT FROM G_FACCLI")[0].STORNAT, w.grid("TDBGrid2").rows(), w.grid("TDBGrid1").rows()], [true, 0, 0], "no longer offered");
  equal(note("8", "FS"), black ? ["707 80 0", "4427 15.2 0", "411 0 95.2", "607 0 40", "371 40 0"]
                               : ["707 0 -80", "4427 0 -15.2", "411 -95.2 0", "607 -40 0", "371 0 -40"], "turned notes");
  equal(note("7", "FC").length, 5, "the invoice's own notes stay");
  equal(call("disagreementText").split("\n").filter((line) => line && !/BC7|: NR1/.test(line)), [], "all agrees");
  // A number in use is refused under the lock.
  invoiced("9", "1");
  menu("mnuStorno");
  w = win("frmGRILAStornare");
  turned("9", "8");
  equal(said(), "Mai exista factura: FS8", "in use");
}
