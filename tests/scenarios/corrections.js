// Stock movements, stock by warehouse, the corrections and the check, with figures that were spoilt by hand.

const year = today().substring(0, 4);

function seed() {
  sql("INSERT INTO kt_ter (COD, NUME, TIP) VALUES (1, 'FURNIZOR UNU SRL', 'F'), (2, 'CLIENT DOI SRL', 'C')");
  sql("INSERT INTO G_MULTIMAGAZIE (COD, DENUMIRE, CONT) VALUES (3, 'Filiala', '371'), (2, 'Depozit', '381')");
  sql("INSERT INTO G_ARTMAG (CODART, DENART, UM, COST, STOC, PROVENIENTA, FARASTOC) VALUES ('M1', 'Marfa intai', 'Buc', 10, 9, 'M', 0), " +
      "('M2', 'Marfa a doua', 'Buc', 3, 0, 'M', 0), ('SV', 'Serviciu', 'Buc', 5, 0, 'M', -1), ('NE', 'Neatins', 'Buc', 4, 0, 'M', 0)");
  const document = (id, tip, tipie, day, store) => sql("INSERT INTO G_DOCUME (ID, TIP, TIPIE, DATADOC, DATAINTROD, CODMAG, CODTERT, TOTALFT, TOTALTVA, TOTALCOST) VALUES (?, ?, ?, ?, ?, ?, 1, 0, 0, 0)",
      id, tip, tipie, year + day, year + day, store);
  const line = (id, number, article, quantity, rest, price, store, reference) => sql("INSERT INTO G_LDOCUM (DOCID, LINIE, ARTID, CANT, CANTRAMASA, PRETFT, PRETTTI, VALTVA, COST, VALCOST, CODMAG, REFERINTA) VALUES (?, ?, ?, ?, ?, ?, ?, 1.005, 0, 0, ?, ?)",
      id, number, article, quantity, rest, price, price, store, reference ?? null);
  document("FF1", "FF", "I", "-01-02", 1);
  line("FF1", 1, "M1", 3, 3, 10, 1);
  line("FF1", 2, "M2", 0.1, 0, 3, 1);
  document("FF2", "FF", "I", "-01-03", 2);
  line("FF2", 1, "M1", 8, 4, 10, 2);
  line("FF2", 2, "M2", 0.2, 0, 3, 1);
  document("BC5", "BC", "E", "-02-03", 2);
  line("BC5", 1, "M1", 6, null, 0, 2);
  line("BC5", 2, "M2", 0.3, null, 0, 1);
  line("BC5", 3, "SV", 1, null, 0, 1);
  document("AE7", "AE", "E", "-02-04", 1);
  line("AE7", 1, "NE", 4, 1, 0, 1);
  line("AE7", 2, "NE", 6, 2, 0, 1);
  document("FC8", "FC", null, "-02-05", 1);
  line("FC8", 1, "NE", 5, null, 0, 1, "AE7");
  sql("INSERT INTO G_AECLI (NUMAE, DATAAE, CODCLI, Magazie, VALIDAT, FACTURAT) VALUES ('7', ?, 2, 1, -1, -1)", year + "-02-04");
  sql("INSERT INTO G_LAECLI (NUMAE, NRLINIE, CODART, CANT, CANTRAMAS) VALUES ('7', 2, 'NE', 4, 1), ('7', 5, 'NE', 6, 9)");
}

let w;
const {press} = steps(() => w);
const texts = () => messages().map((box) => box.text);
const rules = () => w.grid("grdDataGrid").column("REGULA");
const article = (code) => sql("SELECT STOC, COST FROM G_ARTMAG WHERE CODART = ?", code).map((row) => [row.STOC, row.COST])[0];

company({method: "FIFO"});
seed();
// Every line, by number; the totals of all and of the selected rows.
menu("mnuMiscastoc");
w = win("frmMiscariStoc");
let grid = w.grid("grdChild");
equal([grid.rows(), w.text("lblNoRecs"), grid.column("DOCID").slice(0, 5), grid.column("LINIE").slice(4, 6)],
      [10, "10", ["AE7", "BC5", "FC8", "FF1", "FF2"], ["1", "2"]], "all movements");
equal([grid.footer("VALTVA"), grid.footer("VALOAREFT"), grid.footer("CANT")], ["10,05", "110,90", ""], "totals");
w.pick("cboCamp", "DOCUMENT");
w.type("txtValoare", "FF1");
w.click("cmdCautare");
equal([grid.rows(), grid.footer("VALOAREFT")], [2, "30,30"], "filtered");
w.click("cmdGoleste");
w.pick("cboCamp", "ARTICOL");
w.pick("cboValoare", "Marfa intai");
w.click("cmdCautare");
grid.selectMany([0, 1, 2]);
keepPreview(true);
w.click("CmdListare");
equal([grid.footer("CANT"), grid.footer("VALOAREFT"), grid.footer("VALTVA")], ["5", "110,00", "3,02"], "the net movement");
win("frmOptiuniTiparire").click("cmdAnulare");
keepPreview(false);
equal([grid.footer("CANT"), grid.footer("VALTVA")], ["", ""], "emptied");
check(exists(paths().app + "/Miscari_Doc.htm"), "copy");
w.shot("frmMiscariStoc");
w.close();
menu("mnuTabeleArticole");
w = win("frmArticole");
w.grid("grdDataGrid").select(w.grid("grdDataGrid").column("CODART").indexOf("M1"));
w.click("cmdStocPeMag");
const stores = win("frmStocMagazii");
equal([stores.grid("grdDataGrid").column("DENUMIRE"), stores.grid("grdDataGrid").column("STOC")], [["Magazie 1", "Depozit", "Filiala"], ["3,000", "2,000", "0,000"]], "by warehouse");
stores.shot("frmStocMagazii");
stores.click("cmdIesire");
equal(sql("SELECT * FROM G_MISCARESTOC"), [], "no work table");
w.close();

// The check finds all, leads to the places and corrects them.
menu("mnuVerificare");
w = win("frmVerificare");
const find = (rule, place) => { grid = w.grid("grdDataGrid"); grid.select(grid.column("LOC").findIndex((loc, row) => loc === place && grid.cell(row, "REGULA") === rule)); };
equal(w.grid("grdDataGrid").column("LOC").filter((loc, row) => rules()[row] === "Stocul articolului difera de documente"), ["M1", "NE"], "stock");
w.shot("frmVerificare");
find("Stocul articolului difera de documente", "M1");
w.click("cmdDocument");
equal(win("frmMiscariStoc").grid("grdChild").column("DOCID"), ["BC5", "FF1", "FF2"], "its movements");
win("frmMiscariStoc").close();
find("Avizul sau comanda este inchis desi are cantitati ramase, sau invers", "AE7");
w.click("cmdDocument");
equal(win("frmLDoc").grid("grdParent").column("ID"), ["AE7"], "the document");
win("frmLDoc").close();
// So does a note that is not balanced, and a transfer of which a side is gone.
sql("INSERT INTO kt_linii (NDI, NRLINIE, PROV, FELDOC, DOC, CONT, DEBIT, CREDIT) VALUES (900, 1, 'G', 'AE', '7', '371', 5, 0)");
sql("INSERT INTO G_TRANSFER (NUMAE, DATAAE, Magazie, DESTMAGAZIE, VALIDAT) VALUES ('88', ?, 1, 2, -1)", year + "-02-04");
sql("INSERT INTO G_DOCUME (ID, TIP, DATADOC, CODMAG) VALUES ('BT88I', 'BT', ?, 2)", year + "-02-04");
w.click("cmdVerifica");
for (const [rule, place, id] of [["Nota contabila nu este echilibrata sau are doua documente", "900", "AE7"], ["Document validat fara inregistrare in documente", "BT88", "BT88I"]]) {
  find(rule, place);
  w.click("cmdDocument");
  equal(win("frmLDoc").grid("grdParent").column("ID"), [id], rule);
  win("frmLDoc").close();
}
sql("DELETE FROM kt_linii WHERE NDI = 900");
sql("DELETE FROM G_DOCUME WHERE ID = 'BT88I'");
sql("DELETE FROM G_TRANSFER WHERE NUMAE = '88'");
w.click("cmdVerifica");
find("Avizul sau comanda este inchis desi are cantitati ramase, sau invers", "AE7");
press("cmdCorectie", "OK");
equal([texts(), article("M1"), article("M2"), article("SV"), article("NE")], [["Corectia a fost efectuata."], [5, 10], [0, 0], [0, 0], [-10, 4]], "stock from the ledger");
equal(sql("SELECT CANTRAMASA AS R FROM G_LDOCUM WHERE DOCID = 'AE7' ORDER BY LINIE").concat(sql("SELECT CANTRAMAS AS R FROM G_LAECLI ORDER BY NRLINIE")).map((row) => row.R), [0, 5, 0, 5], "what is left of the note");
equal(!!sql("SELECT FACTURAT FROM G_AECLI")[0].FACTURAT, false, "open again");
check(!rules().includes("Stocul articolului difera de documente"), "checked again");
// A document that is validated but not in the ledger becomes a draft again.
sql("INSERT INTO G_BONCON (NUMAE, DATAAE, CODCLI, Magazie, VALIDAT) VALUES ('77', ?, 2, 1, -1)", year + "-02-04");
w.click("cmdVerifica");
find("Document validat fara inregistrare in documente", "BC77");
press("cmdCorectie", "Da", "OK");
equal(!!sql("SELECT VALIDAT FROM G_BONCON WHERE NUMAE = '77'")[0].VALIDAT, false, "a draft again");
texts();
// Lots: stock 5, lots of 3 and 4. The oldest gives up 2; then the newest gets what is missing.
find("Loturile articolului difera de documente", "M1");
w.click("cmdCorectie");
let lots = win("frmCorectiiCosturi");
equal([lots.text("lblNo"), lots.grid("grdArticole").cell(0, "ARTID"), lots.grid("grdArticole").cell(0, "Cantitate"), lots.grid("grdArticole").cell(0, "CRamasa")], ["1", "M1", "5,000", "7,000"], "one article");
lots.shot("frmCorectiiCosturi");
answer("OK");
lots.click("cmdCalcul");
const rests = () => sql("SELECT CANTRAMASA AS R FROM G_LDOCUM WHERE ARTID = 'M1' AND CANTRAMASA IS NOT NULL ORDER BY DOCID").map((row) => row.R);
equal([texts(), rests(), lots.text("lblNo")], [["Corectie terminata"], [1, 4], "0"], "oldest first");
answer("OK");
lots.click("cmdCorecteazaToate");
equal(texts(), ["Nu exista nici un articol de corectat"], "none left");
sql("UPDATE G_LDOCUM SET CANTRAMASA = 1 WHERE DOCID = 'FF2' AND LINIE = 1");
lots.click("cmdIesire");
menu("mnuCorectiiCosturi");
lots = win("frmCorectiiCosturi");
answer("OK");
lots.click("cmdCorecteazaToate");
equal([texts(), rests()], [["Corectarea s-a terminat cu succes"], [1, 4]], "newest first");
lots.click("cmdIesire");
w.close();

// The menu command alone, and the issued quantities of a period.
sql("UPDATE G_ARTMAG SET STOC = 77, CANTE = 5");
answer("OK");
menu("nmuCorectieStoc");
equal([texts(), article("M1")], [["Corectia a fost efectuata."], [5, 10]], "by the menu");
menu("mnuCantE");
w = win("frmIesiriStoc");
w.shot("frmIesiriStoc");
w.set("DTPickerdela", year + "-02-01");
w.set("DTPickerla", year + "-02-03");
press("cmdVisualizare", "OK");
equal([texts(), sql("SELECT CANTE FROM G_ARTMAG ORDER BY CODART").map((row) => row.CANTE)], [["In perioada specificata au iesit 3 articole"], [6, 0.3, 5, 1]], "issued");
w.set("DTPickerla", year + "-01-01");
press("cmdVisualizare", "OK");
equal([texts(), sql("SELECT CANTE FROM G_ARTMAG WHERE CODART = 'M1'")], [["In perioada specificata au iesit 0 articole"], [{CANTE: 6}]], "none");
