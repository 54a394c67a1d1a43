// The list of validated documents through the real windows: filter, totals, reprints, back to entry, deletion.

const year = today().substring(0, 4);

function seed() {
  sql("INSERT INTO kt_ter (COD, NUME, TIP) VALUES (2, 'CLIENT DOI SRL', 'C')");
  sql("INSERT INTO G_MULTIMAGAZIE (COD, DENUMIRE, CONT) VALUES (2, 'Depozit', '381')");
  sql("UPDATE G_MULTIMAGAZIE SET CONT = '371' WHERE COD = 1");
  sql("INSERT INTO G_FAMART (COD, DENUMIRE, CONTSTOCMARFA, CONTCHELT, CONTVEN) VALUES (1, 'Marfuri', '371', '607', '707')");
  sql("INSERT INTO G_ARTMAG (CODART, DENART, UM, FAMART, COST, STOC, ADAOS, PRETVFT, PROVENIENTA, FARASTOC) VALUES ('M1', 'Marfa intai', 'Buc', 1, 10, 10, 100, 20, 'M', 0)");
  sql("INSERT INTO G_NRFURN (NUMNR, DATANR, Magazie, VALIDAT) VALUES ('1', ?, 1, -1)", year + "-01-02");
  sql("INSERT INTO G_DOCUME (ID, TIP, TIPIE, DATADOC, CODMAG, TOTALFT, TOTALTVA, TOTALCOST) VALUES ('NR1', 'NR', 'I', ?, 1, 100, 0, 100)", year + "-01-02");
  sql("INSERT INTO G_LDOCUM (DOCID, LINIE, ARTID, CANT, CANTRAMASA, PRETFT, COST, VALCOST, CODMAG) VALUES ('NR1', 1, 'M1', 10, 10, 10, 10, 100, 1)");
}

let w;
const {press} = steps(() => w);
const texts = () => messages().map((box) => box.text);
const agrees = (what) => equal(call("disagreementText").split("\n").filter((line) => line && !/: NR1$/.test(line)), [], what);
const browse = () => { menu("mnuTabeleDocumente"); w = win("frmLDoc"); };
const parent = () => w.grid("grdParent");
function choose(id) {
  parent().select(parent().column("ID").indexOf(id));
}

function entered(entry, form, number, quantity) {
  menu(entry);
  if (form === "frmGrilaFC") win("frmGrilaFC2").click("cmdAE");
  w = win(form);
  w.click("cmdFacturaNoua");
  if (number) w.type("txtFields(0)", number);
  w.pick("DataCombo1", form === "frmGRILADocTransfer" ? "Depozit" : "CLIENT DOI SRL");
  w.click("cmdSalvare");
  w.grid("TDBGrid1").addLine("M1", quantity);
  key("Esc");
  press("cmdValidare", "Da", "OK");
  messages();
  w.close();
}

for (const method of ["FIFO", "MP"]) {
  company({method});
  seed();
  sql("UPDATE kt_par SET FCSTART = '1', FCEND = '500', SERIEFC = 'VLM'");
  setToday(year + "-03-01");
  entered("mnuVanzFactura", "frmGrilaFC", "", "4");
  setToday(year + "-03-02");
  entered("mnuVanzariProforma", "frmGrilaPRO", "3", "2");
  entered("mnuTransfer", "frmGRILADocTransfer", "6", "1");
  browse();
  equal(parent().column("ID").slice().sort(), ["BT6E", "BT6I", "FC1", "NR1", "PR3"], "all documents");
  equal([w.text("lblNoRecs"), parent().cell(4, "ID"), parent().captions().slice(0, 5)], ["5", "NR1", ["Tip ", "Document", "Seria", "Tert", "Data"]], "the oldest is last");
  check(!w.isEnabled("cmdStornare"), "no hearing devices");
  choose("FC1");
  equal([w.grid("grdChild").cell(0, "CANT"), w.grid("grdChild").cell(0, "DENART"), w.isEnabled("cmdFacturare")], ["4,000", "Marfa intai", false], "lines");
  w.shot("frmLDoc");
  // The list with totals while it is printed.
  keepPreview(true);
  parent().selectMany([parent().column("ID").indexOf("FC1"), parent().column("ID").indexOf("NR1")]);
  w.click("cmdListare");
  equal(["TOTALFT", "TOTALTVA", "TOTALDOC", "TOTALCOST"].map((field) => parent().footer(field)), ["180,00", "15,20", "195,20", "140,00"], "totals");
  win("frmOptiuniTiparire").click("cmdOK");
  win("frmPrevizualizare").click("cmdInchide");
  keepPreview(false);
  equal([parent().footer("TOTALFT"), parent().footer("TOTALDOC")], ["", ""], "emptied");
  check(readFile(paths().app + "/Documente.htm").includes("FC1"), "copy");
  printed();
  // Reprints, and the filter that stays.
  for (const [id, form] of [["FC1", "frmLstFC"], ["PR3", "frmLstFCP"], ["BT6I", "frmLstDocTra"], ["NR1", "frmLstNIR"]]) {
    choose(id);
    w.click("cmdTiparireDocument");
    check(isOpen(form), form);
    win(form).click("cmdAnulare");
  }
  w.pick("cboCamp", "TIP DOCUMENT");
  w.type("txtValoare", "PR");
  w.click("cmdCautare");
  equal([parent().column("ID"), w.text("lblNoRecs")], [["PR3"], "1"], "filtered");
  // A proforma becomes an invoice once.
  choose("PR3");
  press("cmdFacturare", "OK");
  equal(texts(), ["Factura Proforma a fost copiata in grila de culgeri Facturi-Vanzari"], "invoiced");
  equal([parent().column("ID"), parent().cell(0, "VALIDAT"), w.isEnabled("cmdFacturare")], [["PR3"], parent().cell(0, "VALIDAT"), false], "filter stays");
  equal(sql("SELECT F.NUMFAC AS N, F.CODCLI AS C, F.MODREG AS M, F.SERIE AS S, L.CODART AS A, L.CANT AS Q, L.PRETFT AS P, L.UM AS U, L.COST AS K FROM G_FACCLI F, G_LFACCL L WHERE L.NUMFAC = F.NUMFAC AND F.VALIDAT = 0"),
        [{N: "2", C: 2, M: sql("SELECT MODREG FROM G_FACCLI WHERE NUMFAC = '1'")[0].MODREG, S: "VLM", A: "M1", Q: 2, P: 20, U: "Buc", K: 20}], "draft");
  w.click("cmdGoleste");
  w.click("cmdCautare");
  agrees("before deletions");
  // Another workstation deletes the current document: none is current, until the user chooses one.
  choose("PR3");
  sql("UPDATE G_DOCUME SET ID = 'PR9' WHERE ID = 'PR3'");
  for (let round = 0; round < 2; ++round) {
    w.click("cmdCautare");
    press("cmdTiparireDocument", "OK");
    press("cmdSterge", "OK");
    equal([texts(), w.grid("grdChild").rows()], [["Va rog selectati un document", "Va rog selectati un document"], 0], "nothing is current");
  }
  sql("UPDATE G_DOCUME SET ID = 'PR3' WHERE ID = 'PR9'");
  w.click("cmdCautare");
  // Deletion: a side of the transfer at a time, the receipt only after its issues.
  choose("NR1");
  if (method === "FIFO") {
    press("cmdSterge", "Da", "OK");
    equal(texts(), ["Sigur doriti sa stergeti documentul NR1?", "Exista documente de iesire dupa acest document. Nu poate fi sters."], "consumed");
    choose("FC1");
  } else {
    press("cmdSterge", "Nu");
    texts();
    choose("FC1");
  }
  press("cmdSterge", "Da", "OK");
  equal(texts().pop(), "Exista documente de iesire dupa acest document. Nu poate fi sters.", "the transfer is later");
  choose("BT6E");
  press("cmdSterge", "Da", "OK", "OK");
  equal(texts(), ["Sigur doriti sa stergeti documentul BT6E?", "Echivalentul contabil al documentului 6 a fost sters din contabilitate",
                  "Documentul BT6E a fost mutat in grila de culegere"], "a side");
  equal(sql("SELECT STOC FROM G_ARTMAG"), [{STOC: 7}], "off by the transfer");
  choose("BT6I");
  press("cmdSterge", "Da", ...(method === "MP" ? ["OK"] : []), "OK", "OK");
  equal(texts().slice(1 + (method === "MP")), ["Echivalentul contabil al documentului 6 nu a putut fi sters din contabilitate",
                           "Documentul BT6I a fost mutat in grila de culegere"], "the other side");
  choose("FC1");
  press("cmdSterge", "Da", "OK", "OK");
  texts();
  equal(sql("SELECT A.STOC AS S, A.COST AS C, L.CANTRAMASA AS R FROM G_ARTMAG A, G_LDOCUM L WHERE L.DOCID = 'NR1'"), [{S: 10, C: 10, R: 10}], "goods are back");
  equal([parent().column("ID"), sql("SELECT NUMFAC FROM G_FACCLI WHERE VALIDAT = 0 ORDER BY NUMFAC").length, sql("SELECT NDI FROM kt_linii").length], [["PR3", "NR1"], 2, 0], "only drafts");
  agrees("after deletions");
  w.close();
  // The draft is validated once more; turned round, it stays until its storno is gone.
  menu("mnuVanzFactura");
  win("frmGrilaFC2").click("cmdAE");
  w = win("frmGrilaFC");
  check(w.grid("TDBGrid2").rows() === 2, "two drafts");
  w.grid("TDBGrid2").select(w.grid("TDBGrid2").column("NUMFAC").indexOf("1"));
  press("cmdValidare", "Da", "OK");
  w.close();
  menu("mnuStorno");
  w = win("frmGRILAStornare");
  w.grid("TDBGrid2").select(0);
  press("cmdValidare", "Da", "OK");
  w.close();
  texts();
  browse();
  choose("FS3");
  w.click("cmdTiparireDocument");
  win("frmLstStorno").click("cmdVisualizare");
  const paper = pdfText(printed().pop());
  check(paper.includes("Marfa intai"), "the storno's paper");
  win("frmLstStorno").click("cmdAnulare");
  w.click("cmdCopy");
  win("frmIntroNrFact").type("txtNrFactura", "1");
  answer("OK");
  win("frmIntroNrFact").click("cmdOk");
  equal(texts().length, 1, "the number is taken");
  w.click("cmdCopy");
  win("frmIntroNrFact").type("txtNrFactura", "33");
  answer("OK");
  win("frmIntroNrFact").click("cmdOk");
  equal([texts(), sql("SELECT L.CANT AS Q FROM G_FACCLI F, G_LFACCL L WHERE F.NUMFAC = '33' AND F.STORNAT = 0 AND F.VALIDAT = 0 AND L.NUMFAC = '33'")],
        [["Factura a fost copiata in grila de culgeri Facturi-Vanzari"], [{Q: 4}]], "copied");
  choose("FC1");
  press("cmdSterge", "Da", "OK");
  equal(texts().pop(), "Factura a fost stornata cu documentul FS3. Nu poate fi stearsa.", "has a storno");
  choose("FS3");
  press("cmdSterge", "Da", ...(method === "MP" ? ["OK"] : []), "OK", "OK");
  choose("FC1");
  press("cmdSterge", "Da", "OK", "OK");
  equal(parent().column("ID"), ["PR3", "NR1"], "all taken back");
  agrees("at the end");
}
