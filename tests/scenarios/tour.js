// A tour of the program on the sample company: log in, choose the warehouse, enter a voucher with the keyboard,
// validate it, and find it again. Each step leaves a screenshot.

const folder = paths().databases;
call("makeSampleCompany", folder);

// The splash, then the login: the company is chosen in the list.
start(folder);
const login = win("frmLogin");
const companies = login.grid("TDBGrid1");
equal(companies.column("DENUMIRE"), ["SOCIETATE", "EXEMPLU SRL"], "the sample company is listed beside the first one");
companies.select(1);
login.type("txtUserName", "admin");
login.type("txtPassword", "admin");
shot("01-login");
login.press("txtPassword", "Enter");

// The working warehouse.
const warehouse = win("frmSelMagazie");
warehouse.pick("DataCombo1", "Magazie 1");
shot("02-magazie");
warehouse.click("cmdOK");
equal(win("frmMain").title(), "Tarvon Velmar  - EXEMPLU SRL", "the main window");
shot("03-fereastra-principala");

// An existing draft, then a new voucher.
const voucher = menu("mnuBonIntr", "frmGRILABonIntr");
voucher.grid("TDBGrid2").select(0);
shot("04-bon-nevalidat");
voucher.click("cmdFacturaNoua");
voucher.type("txtFields(0)", "41");
voucher.pick("DataCombo1", "OLARIA HOREZU SRL");
voucher.type("txtFields(2)", "19");
voucher.type("txtFields(3)", "Cuptorul de miercuri");
shot("05-antet");
voucher.click("cmdSalvare");

// Lines by code and by a part of the name.
const lines = voucher.grid("TDBGrid1");
let row = lines.addLine("CR001", "40");
lines.enter(row, "PRETFT", "9.5");
lines.enter(row, "PRETVA", "15");
check(lines.enter(-1, "DENUMIRE", "vaza"), "an article by a part of its name");
row = lines.rows() - 1;
equal(lines.cell(row, "CODART"), "CR005", "the vase");
lines.enter(row, "CANT", "12");
lines.enter(row, "PRETFT", "21,25");
lines.enter(row, "PRETVA", "32");
equal(lines.footer("VALOAREFT"), "635,00", "40 x 9.50 + 12 x 21.25");
shot("06-linii");

const before = sql("SELECT CODART, STOC FROM G_ARTMAG WHERE CODART IN ('CR001', 'CR005') ORDER BY CODART");
answer("Da");
voucher.click("cmdValidare");
shot("07-validat");
win("frmMsgBox").click("cmdBtn(0)");
expectMessage("Sunteti sigur ca doriti sa validati bonul de intrare 41 ?");
expectMessage("Bonul de intrare a fost salvat cu succes in Articole si Documente !");

// The results: the ledger, the articles, the accounts.
equal(sql("SELECT ID, TOTALFT FROM G_DOCUME WHERE ID = 'BI41'"), [{ID: "BI41", TOTALFT: 635}], "the ledger");
const after = sql("SELECT CODART, STOC FROM G_ARTMAG WHERE CODART IN ('CR001', 'CR005') ORDER BY CODART");
equal(after.map((article, i) => article.STOC - before[i].STOC), [40, 12], "the stock");
equal(sql("SELECT CONT, DEBIT, CREDIT FROM kt_linii WHERE DOC = '41' AND TIPDOC = 'BI' ORDER BY NRLINIE"),
      [{CONT: "345", DEBIT: 635, CREDIT: 0}, {CONT: "711", DEBIT: 0, CREDIT: 635}], "the note");

// A sale: the source of the invoice, its header, lines by code with the discounts of customer and articles.
menu("mnuVanzFactura");
shot("08-alegere-document-sursa");
win("frmGrilaFC2").click("cmdAE");
const invoice = win("frmGrilaFC");
equal(Number(invoice.text("txtFields(0)")) > 1001, true, "the next number of the range");
invoice.pick("DataCombo1", invoice.items("DataCombo1")[1]);
invoice.pick("DataCombo2", "Comercial");
invoice.pick("cboModPlata", "OP");
invoice.type("txtFields(3)", "Livrare la magazin");
invoice.click("cmdSalvare");
const sold = invoice.grid("TDBGrid1");
for (const [code, quantity] of [["MB002", "2"], ["CR001", "12"], ["TX004", "1"]]) sold.addLine(code, quantity);
shot("09-factura-client");

// Printed: the delegate's data, the receipt, and the preview, which is a PDF file in the output folder.
invoice.click("cmdTiparire");
const listing = win("frmLstFC");
listing.set("CheckChitanta", true);
listing.type("txtNume", "Marin Ionescu");
listing.type("txtBI", "SB 401223");
listing.type("txtAuto", "SB 22 EXS");
shot("09a-listare-factura");
printed();
listing.click("cmdVisualizare");
listing.click("cmdAnulare");
equal(printed().map((path) => path.replace(/.*\//, "")), ["FacturiCLIFull-1.pdf", "FacturiCLIFull-2.pdf"], "the printed invoice");

const stock = "SELECT CODART, STOC FROM G_ARTMAG WHERE CODART IN ('CR001', 'MB002', 'TX004') ORDER BY CODART";
const there = sql(stock);
const number = invoice.text("txtFields(0)");
answer("Da");
invoice.click("cmdValidare");
shot("10-factura-validata");
win("frmMsgBox").click("cmdBtn(0)");
expectMessage("Sunteti sigur ca doriti sa validati factura " + number + " ?");
expectMessage("Factura a fost salvata cu succes in Articole si Documente !");
equal(sql(stock).map((article, i) => there[i].STOC - article.STOC), [12, 2, 1], "goods issued");
equal(call("disagreementText"), "", "stock, lots, links and notes agree after half a year");
invoice.close();

// The connected users, and the list of companies.
menu("mnuConexiuni");
win("frmConexiuni").click("cmConexiuni");
shot("13-conexiuni");
win("frmConexiuni").close();
menu("mnuCreare");
shot("14-societati");

// Setting up the company: its parameters, users, warehouses, accounts, journals, rates.
function visit(entry, name, picture, steps) {
  const window = menu(entry, name);
  if (steps) steps(window);
  shot(picture);
  window.close();
}
visit("mnuFilemnuSocConf", "frmParamSoc", "15-parametri", window => window.tab("Conturi"));
for (const each of [["mnuUtilizatori", "frmUtilizatori", "16-utilizatori"], ["mnuMagazii", "frmMagazii", "17-magazii"],
                    ["mnuJurnale", "frmJurnale", "19-jurnale"], ["mnumnuTabelemnuTabTVA", "frmCoteTVA", "20-cote-tva"],
                    ["mnuCumpFactura", "frmGrilaFF", "11-factura-furnizor"], ["mnuBonConsum", "frmGRILABonConsum", "12-bon-de-consum"],
                    ["mnuTabeleFamArt", "frmFamArticole", "22-familii"], ["mnuActualizarePret", "FrmActPretVanz", "28-preturi"]])
  visit(...each);
visit("mnumnuTabelemnuTabPC", "frmPC", "18-plan-de-conturi", window => window.click("cmdActualizare"));
visit("mnumnuTabelemnuPrelValuta", "frmValute", "21-valute", window => {
  window.grid("grdValute").select(window.grid("grdValute").column("COD").indexOf("EUR"));
  check(window.grid("grdCursValuta").rows() > 0, "rates of the euro");
});

// The catalogue: families, articles with search and card, partners with filter and card, discounts, prices.
visit("mnuTabeleArticole", "frmArticole", "23-articole", window => {
  window.type("txtCautare", "lum");
  window.press("txtCautare", "Enter");
  check(window.grid("grdDataGrid").rows() > 1, "articles that begin with lum");
});
visit("mnuTabeleArticole", "frmArticole", "24-articol", window => {
  window.grid("grdDataGrid").select(3);
  window.tab("Articol Detalii");
});
visit("mnuTabeleClienti", "frmTerti", "25-clienti", window => {
  window.pick("cboCamp", "ORAS FACTURARE");
  window.pick("cboComparatie", "contine");
  window.type("txtValoare", "ur");
  window.click("cmdCauta");
  check(window.grid("grdDataGrid").rows() > 0, "customers whose town contains ur");
});
visit("mnuTabeleFurnizori", "frmTerti", "26-furnizor", window => window.tab("Fisa Tert"));
visit("mnuDiscounturiArt", "frmArticoleDiscount", "27-discounturi", window => {
  window.tree("treeArticole").select("Mobilier din lemn (1)");
  equal(window.grid("lvwDiscounts").rows(), 3, "three bands of a family");
});

// Electronic invoices: those of three months with the refused one, and the two that suppliers sent.
visit("mnuEFactura", "frmEFactura", "49-e-factura", window => {
  const invoices = window.grid("TDBGrid1");
  window.set("DTPickerdela", (Number(today().substring(0, 4)) - 1) + "-06-01");
  invoices.select(invoices.column("STARE").indexOf("respinsa"));
  equal(window.grid("TDBGrid2").cell(0, "REGULA"), "BR-RO-110", "why it was refused");
  invoices.select(invoices.column("STARE").indexOf("de trimis"));
  file(paths().out);
  window.click("cmdScrie");
});
visit("mnuEFacturaPrimite", "frmEFacturaPrimite", "50-e-facturi-primite", window => {
  equal(window.grid("TDBGrid1").column("STARE"), ["preluata", "preluata"], "taken over into drafts");
  window.click("cmdDeschide");
  shot("51-preluare");
  win("frmEFacturaPreluare").click("cmdAnulare");
});
visit("mnuUM", "frmUM", "52-unitati-de-masura");

// The VAT journals, computed and printed.
for (const [entry, name, file, picture] of [["mnumnuRapmnuRapJVT", "frmRapJVTVA", "Jvtva", "29-jurnal-vanzari"],
                                            ["mnumnuRapmnuJCT", "frmRapJCTVA", "Jctva", "30-jurnal-cumparari"]]) {
  visit(entry, name, picture, window => {
    window.set("DTPickerdela", (Number(today().substring(0, 4)) - 1) + "-06-01");
    window.click("cmdCalcul");
    check(/^Jurnalul a fost calculat: \d+ documente$/.test(window.text("lblStare")), window.text("lblStare"));
    window.click("cmdVisualizare");
    equal(printed().map((path) => path.replace(/.*\//, "")), [file + "-1.pdf", file + "-2.pdf"], "the printed journal");
  });
}

// All that was validated: the invoice printed again and taken back, an article followed through its documents,
// stock spoilt by hand, found by the check and corrected.
visit("mnuTabeleDocumente", "frmLDoc", "31-documente", window => {
  const documents = window.grid("grdParent");
  documents.select(documents.column("ID").indexOf("FC" + number));
  window.click("cmdTiparireDocument");
  win("frmLstFC").click("cmdVisualizare");
  win("frmLstFC").click("cmdAnulare");
  equal(printed().length, 2, "the invoice, printed again");
  messages();
  for (const button of ["Da", "OK", "OK"]) answer(button);
  window.click("cmdSterge");
  equal(messages().pop().text, "Documentul FC" + number + " a fost mutat in grila de culegere", "taken back");
  equal(sql(stock), there, "the goods are back");
});
visit("mnuMiscastoc", "frmMiscariStoc", "32-miscari", window => {
  window.pick("cboCamp", "DOCUMENT");
  window.type("txtValoare", "BI41");
  window.click("cmdCautare");
  check(window.grid("grdChild").rows() > 0, "the movements of the voucher");
});
sql("UPDATE G_ARTMAG SET STOC = STOC + 5 WHERE CODART = 'CR001'");
visit("mnuVerificare", "frmVerificare", "33-verificare", window => {
  equal(window.grid("grdDataGrid").column("LOC"), ["CR001"], "found");
  answer("OK");
  window.click("cmdCorectie");
  equal(window.grid("grdDataGrid").rows(), 0, "corrected");
});
visit("mnuCorectiiCosturi", "frmCorectiiCosturi", "34-corectii-costuri");
equal(call("disagreementText"), "", "all agrees");

// The reports of the sample company, as pages and on the screen; charts of its notes, labels, the first page.
let place = 35;
for (const [entry, name, file, from] of
         [["mnuRapVanzari", "frmRapVanzari", "RapVanzari", "DTPickerdela"], ["mnuRapIesiri", "frmRapIesiri", "RapIesiri", "DTPickerdela"],
          ["mnuRapStaCL", "frmRapStaCl", "StaCl", "DTPickerdela"], ["mnuRapStaFurn", "frmRapStaFr", "StaFr", "DTPickerdela"],
          ["mnuRapAE", "frmRapAE", "RapAE", "DTPickerDeLa"], ["mnuRapComenziClienti", "frmRapComNelivCl", "ComNelivCl"],
          ["mnuRapComenziFurnizori", "frmRapComNelivFr", "ComNelivFr"], ["mnuRapUrmStoc", "frmRapUrmStoc", "UrmStocuri"],
          ["mnuRapJurnalStoc", "frmRapJStoc", "JurnalStocuri"], ["mnuRapDisopnibil", "frmRapDisponibil", "Disponibil"],
          ["mnuRapDescarcare", "frmRapDescarcare", "Descarcare", "DTPickerdela"]]) {
  visit(entry, name, place++ + "-" + name.substring(3).toLowerCase(), window => {
    if (from) window.set(from, (Number(today().substring(0, 4)) - 1) + "-01-01");
    window.click("cmdVisualizare");
    const files = printed();
    check(files.length > 0 && files.every((path) => path.includes("/" + file + "-")), file + ": " + files);
    window.click("cmdEcran");
    check(win("frmEcran").grid("TDBGrid1").rows() > 0, "rows on the screen");
    win("frmEcran").close();
  });
}
visit("mnuEtichete", "frmArticoleEtichete", "46-etichete", window => {
  window.click("cmdVisualizare");
  equal(printed().length, 1, "labels");
});
visit("mnuGrafice", "frmGrafice", "47-grafice", window => {
  window.pick("cboCont", sql("SELECT CONT || ' - ' || TITLU AS NUME FROM kt_pc WHERE CONT = '607'")[0].NUME);
  for (const kind of ["Evolutie cont", "Evolutie Cheltuieli / Venituri"]) {
    window.pick("cmbMod", kind);
    window.set("DTPDeLa", (Number(today().substring(0, 4)) - 1) + "-01-01");
    window.click("cmdArata");
    check(window.grid("DataGrid").rows() > 0, kind);
  }
});
visit("mnuPanou", "frmPanou", "48-panou");
