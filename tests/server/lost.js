// The server stops while a voucher is open and starts again: typed values are kept, the same operation then
// succeeds, and nothing is stored twice.
company({method: "FIFO"});
sql("INSERT INTO kt_ter (COD, NUME, TIP) VALUES (1, 'FURNIZOR UNU SRL', 'F')");
sql("INSERT INTO G_FAMART (COD, DENUMIRE, CONTSTOCPROD) VALUES (1, 'Produse', '345')");
for (const code of ["A1", "A2"])
  sql("INSERT INTO G_ARTMAG (CODART, DENART, UM, FAMART, COST, PRETVFT, PROVENIENTA) VALUES (?, ?, 'Buc', 1, 10, 15, 'P')",
      code, "Articol " + code);
menu("mnuTabeleArticole");
menu("mnuBonIntr");
const w = win("frmGRILABonIntr");
w.click("cmdFacturaNoua");
w.type("txtFields(0)", "7");
w.pick("DataCombo1", "FURNIZOR UNU SRL");
w.click("cmdSalvare");
const lines = w.grid("TDBGrid1");
lines.addLine("A1", "3");
noMessage();

const kLost = "Legatura cu serverul de baze de date s-a pierdut, nu s-a salvat nimic.";
function lost(work) {
  answer("OK");
  work();
  expectMessage(kLost);
  noMessage();
}
function outage(...works) {
  server("pause");
  works.forEach(lost);
  server("resume");
}

// A new line and a changed cell are refused while the server is down, and accepted afterwards.
outage(() => equal(lines.enter(-1, "CODART", "A2"), false, "no line without a server"),
       () => { key("Esc"); equal(lines.enter(0, "CANT", "4"), false, "no quantity either"); });
key("Esc");
equal(lines.column("CODART"), ["A1"], "the stored line remains");
equal(lines.column("CANT"), ["3,000"]);
check(lines.enter(0, "CANT", "4"), "the quantity");
lines.addLine("A2", "2");
equal(sql("SELECT CODART, CANT FROM G_LBONINT ORDER BY CODART"), [{CODART: "A1", CANT: 4}, {CODART: "A2", CANT: 2}]);

// The header's values remain in their fields.
w.type("txtFields(3)", "observatii noi");
outage(() => w.click("cmdSalvare"), () => w.click("cmdValidare"));
equal(w.text("txtFields(3)"), "observatii noi", "what was typed stays");
equal(sql("SELECT ID FROM G_DOCUME"), [], "nothing written");

// A search in a list.
menu("mnuTabeleArticole");
const articles = win("frmArticole");
articles.pick("cboCautare", "COD");
articles.type("txtCautare", "A2");
outage(() => articles.press("txtCautare", "Enter"));
equal(articles.text("txtCautare"), "A2", "what is searched for stays");
articles.press("txtCautare", "Enter");
noMessage();
equal(articles.grid("grdDataGrid").column("CODART"), ["A2"]);
w.click("cmdSalvare");
answer("Da");
answer("OK");
w.click("cmdValidare");
expectMessage("Sunteti sigur ca doriti sa validati bonul de intrare 7 ?");
expectMessage("Bonul de intrare a fost salvat cu succes in Articole si Documente !");
noMessage();
equal(sql("SELECT ID, TOTALCOST FROM G_DOCUME"), [{ID: "BI7", TOTALCOST: 60}]);
equal(sql("SELECT ARTID, CANT FROM G_LDOCUM ORDER BY ARTID"), [{ARTID: "A1", CANT: 4}, {ARTID: "A2", CANT: 2}]);
equal(sql("SELECT CODART, STOC FROM G_ARTMAG ORDER BY CODART"), [{CODART: "A1", STOC: 4}, {CODART: "A2", STOC: 2}]);
equal(sql("SELECT SUM(DEBIT) AS D, SUM(CREDIT) AS C FROM kt_linii"), [{D: 60, C: 60}]);
equal(sql("SELECT VALIDAT, OBS FROM G_BONINT"), [{VALIDAT: -1, OBS: "observatii noi"}]);
