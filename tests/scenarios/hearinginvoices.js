// Repair vouchers, invoices to insurer, work point and patient, storno and deletion in the list of documents.
setToday("2026-03-10");
company({hearing: true, denumire: "EXEMPLU AUZ SRL", method: "FIFO"});
const partner = (code, name, kind, own) =>
    sql("INSERT INTO kt_ter (COD, NUME, TIP, CodTert, Reprezentant, PF, PlatesteTVA, Utilizabil) VALUES (?, ?, ?, ?, 0, 0, 0, 0)", code, name, kind, own);
partner(501, "CAS BIHOR", "C", "CAS");
partner(502, "CABINET ORL", "C", null);
partner(503, "POP ION", "P", null);
partner(504, "DR. MICLEA", "D", null);
partner(505, "AUZ PROD SRL", "F", null);
partner(506, "RUS ANA", "P", null);
sql("INSERT INTO G_FAMART (COD, DENUMIRE, CONTSTOCMARFA, CONTCHELT, CONTVEN) VALUES (77, 'AUZ', '371', '607', '707')");
const article = (code, name) =>
    sql("INSERT INTO G_ARTMAG (CODART, DENART, FAMART, UM, COTATVA, PROVENIENTA, FARASTOC, CODFURNIZO, TipAparat, PRETVFT, STOC, COST) VALUES (?, ?, 77, 'Buc', 19, 'M', 0, 505, 'RETRO', 50, 0, 0)", code, name);
["AP1", "AP2", "PIESA"].forEach(code => article(code, "ARTICOL " + code));
const told = (act, ...texts) => {
    texts.forEach(() => answer("OK"));
    act();
    texts.forEach(text => expectMessage(text));
};
const asked = (act, text, ...more) => {
    answer("Da");
    more.forEach(() => answer("OK"));
    act();
    expectMessage(text);
    more.forEach(each => expectMessage(each));
};
// Stock by purchases.
menu("mnuCumpFactura");
let w = win("frmGrilaFF");
w.type("txtFields(0)", "1");
w.pick("DataCombo1", "AUZ PROD SRL");
w.click("cmdSalvare");
const lines = w.grid("TDBGrid1");
[["AP1", 3, 400], ["PIESA", 4, 10]].forEach(([code, quantity, price]) => {
    const row = lines.addLine(code, String(quantity));
    lines.enter(row, "PRETFT", String(price));
    lines.enter(row, "PRETVA", code == "AP1" ? "800" : "50");
});
answer("Da");
answer("OK");
w.click("cmdValidare");
messages();
w.close();
equal(sql("SELECT STOC FROM G_ARTMAG WHERE CODART = 'AP1'")[0].STOC, 3);

const order = (id, nr, device, full, insured, workPoint) => {
    sql("INSERT INTO G_COMANDA_AUDIO (ID_Comanda, Nr, Data, ID_Pacient, ID_Doctor, ID_CAS, ID_PunctLucru, ID_Dispozitiv, PretLivrare, PretReferinta, UrecheaDreapta, IsImport, SerieDispozitiv, GradHipoacuzie) VALUES (?, ?, ?, 503, 504, 501, ?, ?, ?, ?, 0, 0, ?, 'X')",
        id, nr, today(), workPoint, device, full, insured, "S" + id);
};
order(1, "C1", "AP1", 2101.5, 900, 502);
order(2, "C2", "AP1", 2101.5, 900, null);

// Repair vouchers.
menu("mnuBonReparatie");
w = win("frmGrilaBonReparatie");
equal(w.title(), "Bon de reparatie");
equal(w.tabs(), ["Bon reparatie detalii", "Lista Bonuri reparatie"]);
equal(w.text("txtNrBon"), "1");
check(w.value("optGarantie") && !w.value("optContraCost"), "under guarantee at first");
told(() => w.click("cmdSalvare"), "Va rog completati: \r\n\t: Client\r\n\t: Aparat\r\n\t: Tip Aparat\r\n\t: Serie Aparat\r\n\t: Defectiune");
w.pick("cboClient", "POP ION");
equal(w.items("cboArticolAntet"), ["ARTICOL AP1"]);
equal([w.text("txtSerie"), w.text("txtTipAparat")], ["S2", "RETRO"]);
w.pick("cboArticolAntet", "ARTICOL AP1");
w.pick("cboClient", "RUS ANA");
equal([w.text("cboArticolAntet"), w.text("txtSerie"), w.text("txtTipAparat")], ["", "", ""], "nothing of another patient stays");
w.pick("cboClient", "POP ION");
w.pick("cboArticolAntet", "ARTICOL AP1");
equal(w.text("txtSerie"), "S2");
w.type("txtDefectiune", "nu merge");
w.click("cmdSalvare");
noMessage();
let parts = w.grid("grdDetalii");
check(parts.enter(-1, "ID_Articol", "PIESA"));
equal([parts.cell(0, "Cant"), parts.cell(0, "PretUnitar"), parts.cell(0, "Valoare")], ["1,000", "50,00", "50,00"]);
answer("OK");
check(!parts.enter(0, "Cant", "x"));
expectMessage("Va rog introduceti o valoare numerica");
check(parts.enter(0, "Cant", "9"));
equal(parts.cell(0, "PretUnitar"), "50,00", "the price keeps its decimals");
equal(parts.footer("Valoare"), "450,00");
told(() => w.click("cmdValidare"), "Va rog completati data terminare");
w.set("chkDataTerminare", true);
told(() => w.click("cmdValidare"), "Articolul: PIESA are disponibil in stoc 4");
check(parts.enter(0, "Cant", "1"));
w.shot("bon");
told(() => w.click("cmdValidare"), "Bonul a fost salvat in documente");
equal(sql("SELECT TIPIE, CODTERT, TOTALFT, TOTALCOST, ISAUDIO FROM G_DOCUME WHERE ID = 'BC1'")[0], {CODTERT: 503, ISAUDIO: -1, TIPIE: "E", TOTALCOST: 10, TOTALFT: 50});
equal(sql("SELECT CONT, DEBIT, CREDIT, CURS, JURNAL FROM kt_linii WHERE DOC = '1' AND FELDOC = 'BC' ORDER BY NRLINIE"),
      [{CONT: "607", CREDIT: 0, CURS: 1, DEBIT: 10, JURNAL: "OD"}, {CONT: "371", CREDIT: 10, CURS: 1, DEBIT: 0, JURNAL: "OD"}]);
// A paid one, later.
setToday("2026-03-15");
w.click("cmdBonNou");
equal(w.text("txtNrBon"), "2");
w.pick("cboClient", "POP ION");
w.pick("cboArticolAntet", "ARTICOL AP1");
w.type("txtDefectiune", "baterie");
w.set("optContraCost", true);
w.set("chkDataTerminare", true);
w.click("cmdSalvare");
check(parts.enter(-1, "ID_Articol", "PIESA") && parts.enter(0, "Cant", "2"));
told(() => w.click("cmdValidare"), "Bonul a fost salvat in documente");
w.tab("Lista Bonuri reparatie");
equal(w.grid("grdListaBonuri").column("Tip").sort(), ["Contra Cost", "Garantie"]);
w.grid("grdListaBonuri").select(0);
w.tab("Bon reparatie detalii");
check(w.isVisible("lblStatus"), "validated");
w.click("cmdTiparire");
win("frmLstBonReparatii").click("cmdVisualizare");
const paper = printed();
check(pdfText(paper[0]).includes("BON DE REPARATIE") && pdfText(paper[0]).includes("ARTICOL PIESA"));
win("frmLstBonReparatii").click("cmdAnulare");
told(() => w.click("cmdSterge"), "Bonul de reparatie este validat, nu se mai poate modifica");
w.close();

// An invoice to the insurer, by the choice before it.
const choose = option => {
    menu("mnuFacturiAudio");
    const ask = win("frmFacturaAudio");
    equal(ask.title(), "Factura Audio");
    ask.set(option, true);
    ask.press(option, "Return");
    check(!isOpen("frmFacturaAudio"));
    return win("frmGrilaFacturaAudio");
};
order(3, "C0", "LIPSA", 100, 50, 502);
w = choose("optCas");
equal(w.items("cboClient"), ["CAS BIHOR"]);
equal([w.isVisible("frmListaComenzi"), w.isVisible("frmListaBonuri"), w.isVisible("lblCota")], [true, false, false]);
told(() => w.click("cmdSalvare"), "Va rog completati: \r\n\t: Nr Comanda\r\n\t: Client\r\n\t: Punct de lucru");
w.type("txtNumar", "101");
w.pick("cboClient", "CAS BIHOR");
w.pick("cboPunctLucru", "CABINET ORL");
w.click("cmdSalvare");
noMessage();
let orders = w.grid("grdListaComenzi"), detail = w.grid("grdDetalii");
equal(orders.column("Nr"), ["C0", "C1"]);
orders.select(0);
asked(() => w.press("grdListaComenzi", "Enter"), "Sigur doriti sa adaugati comanda ?",
      "Comanda C0 are un dispozitiv care nu exista (LIPSA). Nu poate fi facturata ! Alegeti dispozitivul in fereastra \"Comanda Audio\".");
sql("DELETE FROM G_COMANDA_AUDIO WHERE ID_Comanda = 3");
orders.select(1);
noMessage();
asked(() => w.press("grdListaComenzi", "Enter"), "Sigur doriti sa adaugati comanda ?");
equal(orders.cell(0, "Inchisa"), "Da");
equal([detail.cell(0, "Articol"), detail.cell(0, "Valoare"), detail.cell(0, "TVA"), detail.cell(0, "Total")], ["ARTICOL AP1", "900,00", "171,00", "1.071,00"]);
equal(detail.footer("Total"), "1.071,00");
check(!w.isEnabled("cboClient") && !w.isEnabled("cboPunctLucru"), "the client is locked");
detail.select(0);
told(() => key("Delete"), "Linia este din comanda C1. Pentru a o sterge scoateti comanda de pe factura in lista \"Comenzi\" !");
equal(detail.rows(), 1);
w.click("cmdTiparire");
win("frmLstFC").click("cmdVisualizare");
check(pdfText(printed().pop()).includes("1.071,00"));
win("frmLstFC").click("cmdAnulare");
w.shot("factura");
told(() => w.click("cmdValidare"), "Factura a fost salvata in documente");
equal(sql("SELECT TIP, TIPIE, CODTERT, TOTALFT, TOTALTVA, TOTALCOST, ISAUDIO FROM G_DOCUME WHERE ID = 'FC101'")[0],
      {CODTERT: 501, ISAUDIO: -1, TIP: "FC", TIPIE: "E", TOTALCOST: 400, TOTALFT: 900, TOTALTVA: 171});
equal(w.grid("grdListaFacturi").rows(), 0);
equal(["Valoare", "TVA", "Total"].map(column => detail.footer(column)), ["", "", ""], "the footers are emptied");
w.close();

// The work point pays the rest; a typed line; another rate.
w = choose("optPunctLucru");
w.type("txtNumar", "101");
w.pick("cboClient", "CABINET ORL");
told(() => w.click("cmdSalvare"), "Factura cu acest numar exista deja ! Salvarea nu se poate efectua !");
w.type("txtNumar", "102");
w.click("cmdSalvare");
orders = w.grid("grdListaComenzi");
detail = w.grid("grdDetalii");
orders.select(0);
asked(() => w.press("grdListaComenzi", "Enter"), "Sigur doriti sa adaugati comanda ?");
equal([detail.cell(0, "TVA"), detail.cell(0, "Total")], ["228,28", "1.429,78"]);
check(detail.enter(-1, "ID_Articol", "piesa"));
equal(detail.column("TVA"), ["228,28", "9,50"]);
detail.deleteRow(1);
equal(detail.rows(), 1);
w.pick("cboCotaTVA", "9");
equal(w.text("lblCota"), "Liniile din comenzi au TVA 19%.");
w.pick("cboCotaTVA", "19");
told(() => w.click("cmdValidare"), "Factura a fost salvata in documente");
w.close();

// The patient pays a repair.
w = choose("optBonReparatie");
w.type("txtNumar", "103");
w.pick("cboClient", "POP ION");
w.click("cmdSalvare");
const vouchers = w.grid("grdListaBonuri");
equal(vouchers.column("Nr"), ["2"]);
vouchers.select(0);
asked(() => w.press("grdListaBonuri", "Enter"), "Sigur doriti sa adaugati bonul ?");
told(() => w.click("cmdValidare"), "Factura a fost salvata in documente");
equal(sql("SELECT STOC FROM G_ARTMAG WHERE CODART = 'PIESA'")[0].STOC, 1);
w.close();
equal(call("disagreementText"), "");

// Commissions count every credit of the notes, VAT and cost too: 900 + 171 + 400.
sql("UPDATE kt_ter SET PROCPEN = 10 WHERE COD = 502");
sql("UPDATE kt_ter SET PROCPEN = 5 WHERE COD = 504");
w = menu("mnuComisioane", "frmRapComisioane");
w.set("dtLuna", "2026-03-01");
w.click("cmdCauta");
let earned = w.grid("grdDetalii");
equal([earned.rows(), earned.cell(0, "PunctLucru"), earned.cell(0, "CAS"), earned.cell(0, "Valoare"), earned.cell(0, "Comision"), earned.footer("Comision")],
      [1, "CABINET ORL", "CAS BIHOR", "1.471,00", "147,10", "147,10"]);
w.set("optMedici", true);
w.click("cmdCauta");
equal([earned.cell(0, "PunctLucru"), earned.footer("Comision")], ["DR. MICLEA", "73,55"]);
w.shot("comisioane");
w.set("dtLuna", "2026-02-01");
w.click("cmdCauta");
equal([earned.rows(), earned.footer("Valoare")], [0, "0,00"]);
w.close();

// An order is open until one of its invoices has it.
w = menu("mnuRapComenziClienti", "frmRapComNelivCl");
w.click("cmdVisualizare");
const open = pdfText(printed().pop());
check(open.includes("C2") && !open.includes("C1"), "orders not billed");
w.close();
for (const [entry, form, number] of [["mnuRapComenziClienti", "frmRapComNelivCl", "NumarComanda"], ["mnuRapAE", "frmRapAE", "ID"]]) {
  w = menu(entry, form);
  w.click("optToate");
  w.click("cmdEcran");
  const rows = win("frmEcran").grid("TDBGrid1");
  rows.select(rows.column(number).indexOf("C1"));
  win("frmEcran").press("TDBGrid1", "Enter");
  equal([win("frmComandaAudio").text("txtNrComanda"), win("frmComandaAudio").grid("grdComenzi").column("Nr")], ["C1", ["C1"]], "the order of the row in " + form);
  win("frmComandaAudio").close();
  win("frmEcran").close();
  w.close();
}

// The cost of a line is that of all its pieces: 4 parts of 10, of which a voucher took 1 and an invoice 2.
const onScreen = (entry, window) => {
    w = menu(entry, window);
    if (window == "frmRapDescarcare") { w.set("DTPickerdela", "2026-03-01"); w.set("DTPickerPanala", "2026-03-31"); }
    w.click("cmdEcran");
    const found = win("frmEcran").grid("TDBGrid1");
    const cells = (key, columns) => columns.map(column => found.cell(found.column(key).indexOf("PIESA"), column));
    const texts = window == "frmRapDescarcare" ? cells("CODARTICOL", ["CANTITATE", "COSTUNITAR", "VALOARECOST"])
        : cells("CODART", ["STOC", window == "frmRapJStoc" ? "COSTUL" : "COST"]);
    win("frmEcran").close();
    w.close();
    return texts;
};
equal(onScreen("mnuRapDescarcare", "frmRapDescarcare"), ["2,000", "10,00", "20,00"]);
equal(onScreen("mnuRapJurnalStoc", "frmRapJStoc"), ["1,000", "10,00"]);
equal(onScreen("mnuRapDisopnibil", "frmRapDisponibil"), ["1,000", "10,00"]);

// The button of invoices asks what to bill; open lists follow the flag.
toolbar("Toolbar", 14);
win("frmFacturaAudio").click("cmdAnulare");
menu("mnuTabeleClienti", "frmTerti");
check(win("frmTerti").items("cboTip").includes("D - Doctor"));
w = menu("mnuFilemnuSocConf", "frmParamSoc");
w.set("chkModAudio", false);
w.click("cmdSalvare");
w.close();
wait(50);
check(!win("frmTerti").items("cboTip").includes("D - Doctor"), "the open list of partners follows the flag");
check(!menuState("mnuFacturiAudio").visible && menuState("mnuVanzFactura").visible);
w = menu("mnuFilemnuSocConf", "frmParamSoc");
w.set("chkModAudio", true);
w.click("cmdSalvare");
w.close();
wait(50);
check(win("frmTerti").items("cboTip").includes("D - Doctor"));
win("frmTerti").close();

// The list of documents: reprint, storno, deletion.
menu("mnuTabeleDocumente");
w = win("frmLDoc");
const documents = w.grid("grdParent");
const choosing = id => documents.select(documents.column("ID").indexOf(id));
choosing("BC2");
check(!w.isEnabled("cmdStornare"));
w.click("cmdTiparireDocument");
win("frmLstBonReparatii").click("cmdAnulare");
answer("Da");
answer("OK");
w.click("cmdSterge");
expectMessage("Sigur doriti sa stergeti documentul BC2?");
expectMessage("Bonul este pe factura 103. Nu poate fi sters !");
choosing("FC101");
w.click("cmdStornare");
let ask = win("frmStornare");
told(() => ask.click("cmdOk"), "Va rog introduceti numarul facturii storno");
ask.type("txtNr", "104");
told(() => ask.click("cmdOk"), "Factura a fost stornata cu succes");
equal(sql("SELECT COUNT(*) AS N FROM G_DOCUME WHERE ID IN ('FC101', 'FS104') AND TIPIE IS NULL")[0].N, 2);
equal(sql("SELECT STOC FROM G_ARTMAG WHERE CODART = 'AP1'")[0].STOC, 2);
choosing("FS104");
w.click("cmdTiparireDocument");
win("frmLstStorno").click("cmdVisualizare");
check(pdfText(printed().pop()).includes("104"));
win("frmLstStorno").click("cmdAnulare");
choosing("FC101");
answer("Da");
answer("OK");
w.click("cmdSterge");
expectMessage("Sigur doriti sa stergeti documentul FC101?");
expectMessage("Factura a fost stornata cu documentul FS104. Nu poate fi stearsa.");
choosing("FS104");
asked(() => w.click("cmdSterge"), "Sigur doriti sa stergeti documentul FS104?",
      "Echivalentul contabil al documentului 104 a fost sters din contabilitate", "Documentul FS104 a fost mutat in grila de culegere");
choosing("FC103");
asked(() => w.click("cmdSterge"), "Sigur doriti sa stergeti documentul FC103?",
      "Echivalentul contabil al documentului 103 a fost sters din contabilitate", "Documentul FC103 a fost mutat in grila de culegere");
equal(sql("SELECT TIPIE FROM G_DOCUME WHERE ID = 'BC2'")[0].TIPIE, "E");
w = choose("optBonReparatie");
w.grid("grdListaFacturi").select(0);
equal(w.text("txtNumar"), "103");
asked(() => w.click("cmdSterge"), "Sigur doriti sa stergeti factura?", "Factura a fost stearsa cu succes");
equal(call("disagreementText"), "");

// Another workstation has taken a draft: the next command says so, and the draft beside it stays as it is.
const draft = number => {
    w.click("cmdFacturaNoua");
    w.type("txtNumar", number);
    w.pick("cboClient", "POP ION");
    w.click("cmdSalvare");
    w.grid("grdDetalii").enter(-1, "ID_Articol", "PIESA");
};
draft("111");
draft("110");
const gone = "Documentul a fost validat sau sters intre timp de alt utilizator !";
sql("UPDATE G_FacturiClientiAudio SET Validat = -1 WHERE Nr = '110'");
told(() => w.click("cmdValidare"), gone);
told(() => w.click("cmdSalvare"), gone);
sql("DELETE FROM G_FacturaClientiAudio_Detalii WHERE ID_Factura = (SELECT ID_Factura FROM G_FacturiClientiAudio WHERE Nr = '110')");
sql("DELETE FROM G_FacturiClientiAudio WHERE Nr = '110'");
told(() => w.click("cmdSalvare"), gone);
equal(sql("SELECT Nr, Validat FROM G_FacturiClientiAudio WHERE Nr IN ('110', '111')"), [{NR: "111", VALIDAT: 0}]);

// The first page counts the drafts.
sql("INSERT INTO G_BonReparatii (ID_BonReparatie, Nr, ID_Client, ID_Aparat, IsTerminat, IsContraCost, Validat) VALUES (90, '90', 503, 'AP1', 0, 0, 0)");
w = menu("mnuPanou", "frmPanou");
const drafts = w.grid("grdCiorne");
equal([drafts.column("FEL"), drafts.column("NUMAR")], [["BC", "FC"], ["1", "1"]]);
["frmGrilaBonReparatie", "frmFacturaAudio"].forEach((window, place) => {
    drafts.select(place);
    w.press("grdCiorne", "Enter");
    check(isOpen(window), window);
    win(window).close();
});
