// A customer invoice through the real windows: the choice of source, header and currency, number ranges,
// discounts, ledger and notes, currency, returns, decimals.

const year = today().substring(0, 4);

function seed() {
  sql("INSERT INTO kt_ter (COD, NUME, TIP) VALUES (1, 'FURNIZOR UNU SRL', 'F')");
  sql("INSERT INTO kt_ter (COD, NUME, TIP, CodTert) VALUES (2, 'CLIENT DOI SRL', 'C', 'Contract 7')");
  sql("INSERT INTO kt_ter (COD, NUME, TIP) VALUES (3, 'MIXT TREI SA', 'M')");
  sql("INSERT INTO \"Terti - Discounturi\" (CODTert, Discount) VALUES (2, 10)");
  sql("INSERT INTO G_FAMART (COD, DENUMIRE, CONTSTOCMARFA, CONTCHELT, CONTVEN) VALUES (1, 'Marfuri', '371', '607', '707')");
  const insert = "INSERT INTO G_ARTMAG (CODART, DENART, UM, FAMART, COST, STOC, PRETVFT, PROVENIENTA, FARASTOC) " +
                 "VALUES (?, ?, 'Buc', 1, ?, ?, ?, 'M', ?)";
  sql(insert, "M1", "Marfa intai", 20, 10, 20, 0);
  sql(insert, "S1", "Transport", 0, 0, 25, -1);
  sql("INSERT INTO \"Articole - Discounturi\" (CodArticol, CantMin, CantMax, Discount) VALUES ('M1', 2, 9, 5)");
  for (const [number, price] of [["1", 10], ["2", 20]]) {
    sql("INSERT INTO G_DOCUME (ID, TIP, TIPIE, DATADOC, CODMAG) VALUES (?, 'FF', 'I', ?, 1)", "FF" + number, year + "-01-0" + number);
    sql("INSERT INTO G_LDOCUM (DOCID, LINIE, ARTID, CANT, CANTRAMASA, PRETFT, COST, CODMAG) VALUES (?, 1, 'M1', 5, 5, ?, ?, 1)",
        "FF" + number, price, price);
  }
  sql("INSERT INTO kt_val2 (COD, DATA, CURS) VALUES ('EUR', ?, 4.9755)", today());
}

let w, lines;

const {press, refused} = steps(() => w);

function opened(options) {
  company(options);
  seed();
  sql("INSERT INTO G_LCOMCL (NUMCOM, NRLINIE, CODART, CANT) VALUES ('9', 1, 'Z', 2)");
  menu("mnuVanzFactura");
  win("frmGrilaFC2").click("cmdAE");
  w = win("frmGrilaFC");
  lines = w.grid("TDBGrid1");
}

function newInvoice(number, customer, ...articles) {
  w.click("cmdFacturaNoua");
  w.type("txtFields(0)", number);
  w.pick("DataCombo1", customer);
  w.click("cmdSalvare");
  noMessage();
  articles.forEach(([code, quantity]) => lines.addLine(code, quantity));
  key("Esc");
}

function validated() {
  press("cmdValidare", "Da", "OK");
  const shown = messages().map((box) => box.text);
  equal(shown[shown.length - 1], "Factura a fost salvata cu succes in Articole si Documente !", "validated");
}

const note = (number) => sql("SELECT CONT, DEBIT, CREDIT FROM kt_linii WHERE DOC = ? ORDER BY NDI, NRLINIE", number)
    .map((row) => row.CONT + (row.DEBIT ? " D " + row.DEBIT : " C " + row.CREDIT));
const cells = (row, ...columns) => columns.map((column) => lines.cell(row, column));

// The choice of the source, and the single window after it.
opened({method: "FIFO"});
check(w.isVisible("fraAvize") && !w.isVisible("fraComenzi"), "notes");
const choice = menu("mnuVanzFactura", "frmGrilaFC2");
equal([choice.title(), choice.tooltip("cmdAE"), choice.tooltip("cmdCC")],
      ["Alegere document sursa pentru factura", "Creare Facturi din Avize de Expeditie sau Direct",
       "Creare Facturi din Comenzi Client sau Direct"], "the choice");
choice.click("cmdCC");
check(!isOpen("frmGrilaFC2") && openCount("frmGrilaFC") == 1, "one window of invoices");
w = win("frmGrilaFC");
lines = w.grid("TDBGrid1");
check(!w.isVisible("fraAvize") && w.isVisible("fraComenzi") && w.isEnabled("TDBGrid4"), "orders");
equal([w.text("fraComenzi"), w.title()], ["Lista comenzi nefacturate", "Facturi client"], "captions");
equal(sql("SELECT CANTLIV FROM G_LCOMCL"), [{CANTLIV: 0}], "orders without a quantity to deliver");
equal(lines.captions(), ["nr. linie", "Cod articol", "Denumire", "UM", "Cantitate", "Pret unitar valuta", "Pret unitar",
                         "% Disc. Client", "% Disc. Art", "Pret cu Disc.", "Valoare", "Valoare TVA", "Valoare Totala",
                         "Cantitate conform document", "Numar document", "Valoare COST"], "columns");
equal(w.items("cboTVA")[0], "4427-19", "rates of sales");

// Enter moves through the header; the payment method may be left out.
w.press("txtFields(0)", "Enter");
for (const next of ["dtpDataFactura", "DTPicker1", "txtFields(1)", "DataCombo1", "txtFields(2)", "cboTVA", "cboModPlata", "TxtJNL"]) {
  check(w.hasFocus(next), "Enter reaches " + next);
  key("Enter");
}
noMessage();

// The checks of validation, in order, on a header that is not saved.
refused("cmdValidare", "Va rugam selectati o factura !");
w.type("txtFields(0)", "1");
w.set("dtpDataFactura", (Number(year) - 1) + "-12-31");
w.set("DTPicker1", (Number(year) - 1) + "-12-30");
refused("cmdValidare", "Data scadenta este mai mica decat data facturarii !");
w.set("DTPicker1", year + "-12-31");
refused("cmdValidare", "Data documentului trebuie sa fie cuprinsa in exercitiul financiar!");
w.set("dtpDataFactura", today());
w.set("chkDeviza", true);
for (const rate of ["", "0", "-4.5"]) {
  w.type("txtCurs", rate);
  refused("cmdValidare", "Pentru operatiuni in valuta, va rugam introduceti cursul. ");
  check(w.hasFocus("txtCurs"), "focus on the rate");
}
w.set("chkDeviza", false);
equal(w.text("TxtJNL"), " ", "the company's own journal");
w.type("TxtJNL", "");
refused("cmdValidare", "Va rugam selectati jurnalul ! Salvarea nu se poate efectua !");
w.pick("cboJurnal", w.items("cboJurnal")[1]);
equal(w.text("TxtJNL"), "JVE", "the code of the journal");
w.type("TxtJNL", " ");
refused("cmdValidare", "Factura nu contine nici un articol ! Nu se poate efectua introducerea in stoc !");

// The checks of saving.
sql("INSERT INTO G_DOCUME (ID, TIP, TIPIE, DATADOC, CODMAG) VALUES ('FC0', 'FC', 'E', ?, 1)", year + "-01-01");
sql("INSERT INTO G_LDOCUM (DOCID, LINIE, ARTID, CANT, PALET, CODMAG) VALUES ('FC0', 1, 'Z', 1, 'P 1', 1)");
sql("INSERT INTO G_FACCLI (NUMFAC, CODCLI, DATAFAC, VALIDAT) VALUES ('1', 2, ?, -1)", today());
w.type("txtFields(0)", "");
w.type("TextPalet", "P 1");
w.type("txtFields(2)", "");
w.type("TxtJNL", "");
const order = [["Pentru acest palet a fost deja emisa factura de vanzare. ", () => w.type("TextPalet", "")],
               ["Va rugam completati numarul facturii ! Salvarea nu se poate efectua !", () => w.type("txtFields(0)", "1")],
               ["Va rugam completati codul clientului ! Salvarea nu se poate efectua !", () => w.pick("DataCombo1", "CLIENT DOI SRL")],
               ["Va rugam selectati jurnalul ! Salvarea nu se poate efectua !", () => w.type("TxtJNL", " ")],
               ["Va rugam selectati o Cota TVA ! Salvarea nu se poate efectua !", () => w.type("txtFields(2)", "99")],
               ["Va rugam selectati o Cota TVA ! Salvarea nu se poate efectua !", () => w.pick("cboTVA", "4427-19")],
               ["Factura cu acest numar exista deja ! Salvarea nu se poate efectua !", () => w.type("txtFields(0)", "2")]];
for (const [text, correct] of order) {
  refused("cmdSalvare", text, {icon: "critical"});
  correct();
}
equal([w.text("txtFields(3)"), w.text("Label2"), w.text("txtFields(2)")], ["Contract 7", "CLIENT DOI SRL", "2"], "values from the choices");

// The payment method is one of four words, the exchange rate a number.
equal([w.text("cboModPlata"), w.items("cboModPlata")], ["", ["NUMERAR", "CEC", "OP", "ALTELE"]], "payment methods");
replied("OK", () => w.type("cboModPlata", "BARTER"), "Selectati o modalitate de plata", {title: "Valoare incorecta!"});
equal(w.text("cboModPlata"), "", "cleared");
check(w.hasFocus("cboModPlata"), "the focus is back");
w.type("cboModPlata", " op ");
noMessage();
equal(w.text("cboModPlata"), "OP", "in upper case, without blanks");
w.pick("cboModPlata", "CEC");
check(!w.isEnabled("txtCurs") && !w.isEnabled("cboIDDeviza"), "in lei");
w.set("chkDeviza", true);
w.pick("cboIDDeviza", "EUR");
equal(w.text("txtCurs"), "4,9755", "the rate of the day");
w.pick("cboIDDeviza", "USD");
equal(w.text("txtCurs"), "", "no rate of the day");
replied("OK", () => w.type("txtCurs", "x"), "Va rog introduceti o valoare numerica");
w.type("txtCurs", "4.5");
equal(w.text("txtCurs"), "4,5000", "four decimals");
w.set("chkDeviza", false);
equal([w.text("cboIDDeviza"), w.text("txtCurs"), w.isEnabled("txtCurs")], ["", "", false], "back in lei");
w.pick("DataCombo2", "Comercial");
w.click("cmdSalvare");
noMessage();
equal(sql("SELECT CODCLI, MODREG, JURNAL, BATVA1, CODDeviza, NoteContabile, OBS FROM G_FACCLI WHERE NUMFAC = '2'"),
      [{CODCLI: 2, MODREG: 2, JURNAL: " ", BATVA1: 2, CODDEVIZA: null, NOTECONTABILE: -1, OBS: "Contract 7"}], "the header");

// A new date of a draft is stored at once, or refused.
w.set("dtpDataFactura", year + "-02-03");
equal(sql("SELECT DATAFAC FROM G_FACCLI WHERE NUMFAC = '2'"), [{DATAFAC: year + "-02-03"}], "stored");
equal(w.grid("TDBGrid2").column("DATAFAC"), ["03.02." + year], "in the list");
replied("OK", () => w.set("dtpDataFactura", (Number(year) + 1) + "-01-01"),
        "Data document trebuie sa fie in intervalul: 01/01/" + year + "-31/12/" + year);
equal(sql("SELECT DATAFAC FROM G_FACCLI WHERE NUMFAC = '2'"), [{DATAFAC: year + "-02-03"}], "not stored");
w.set("dtpDataFactura", today());

// 20 less 10 % and 5 % is 17, times 3 is 51 with VAT 9.69; 25 less 10 % is 22.50, times 2 is 45 with 8.55.
lines.addLine("M1", "3");
lines.addLine("S1", "2");
key("Esc");
equal(cells(0, "DiscountClient", "DiscountArticol", "ValoareFTCuDiscount", "VALOAREFT", "VALOARETVA", "VALOARETTI", "COST"),
      ["10,00", "5,00", "17,00", "51,00", "9,69", "60,69", "30,00"], "discounts of partner and article");
equal(cells(1, "DiscountArticol", "VALOAREFT", "VALOARETVA", "COST"), ["0,00", "45,00", "8,55", "0,00"], "a service");
check(lines.isLocked(0, "DiscountClient") && !lines.isLocked(0, "VALOARETVA") && !lines.isLocked(0, "ValoareFTCuDiscount"), "locked cells");
lines.enter(1, "ValoareFTCuDiscount", "20");
key("Esc");
equal(cells(1, "PRETFT", "VALOAREFT"), ["25,00", "40,00"], "the discounted price as typed");
lines.enter(1, "VALOARETVA", "7.61");
key("Esc");
equal(cells(1, "VALOAREFT", "VALOARETTI"), ["40,00", "47,61"], "VAT as typed");
equal([lines.footer("VALOAREFT"), lines.footer("VALOARETVA"), lines.footer("COST")], ["91,00", "17,30", "30,00"], "footers");
lines.enter(0, "CANT", "11");
press("cmdValidare", "Da", "OK");
expectMessage("Sunteti sigur ca doriti sa validati factura 2 ?", {title: "Confirmare validare", icon: "question"});
expectMessage("Articolul: M1 are disponibil in stoc numai 10");
equal(sql("SELECT ID FROM G_DOCUME WHERE ID = 'FC2'"), [], "nothing written");
lines.enter(0, "CANT", "3");
lines.addLine("m1", "1");
press("cmdValidare", "Da", "OK");
expectMessage("Sunteti sigur");
expectMessage("Articolul cu codul M1 se repeta ! Va rugam introduceti articole distincte ! Validarea nu se poate efectua ! ");
lines.deleteRow(2);
validated();
equal(sql("SELECT TOTALFT, TOTALTVA, TOTALCOST, MODREG, CODDEV, TIPIE FROM G_DOCUME WHERE ID = 'FC2'"),
      [{TOTALFT: 91, TOTALTVA: 17.3, TOTALCOST: 30, MODREG: 2, CODDEV: "LEI", TIPIE: "E"}], "ledger");
equal(sql("SELECT PRETFT, PRETTTI, PROCRAB, CODCC, CODTVA FROM G_LDOCUM WHERE DOCID = 'FC2' ORDER BY LINIE"),
      [{PRETFT: 17, PRETTTI: 20.23, PROCRAB: 15, CODCC: "COM", CODTVA: 19}, {PRETFT: 20, PRETTTI: 23.8, PROCRAB: 10, CODCC: "COM", CODTVA: 19}],
      "ledger lines");
equal(note("2"), ["707 C 91", "4427 C 17.3", "411 D 108.3", "607 D 30", "371 C 30"], "notes");
equal(sql("SELECT CODART, STOC FROM G_ARTMAG ORDER BY CODART"), [{CODART: "M1", STOC: 7}, {CODART: "S1", STOC: 0}], "stock");

// In currency: 5 at 4 EUR are 20, VAT 3.80; in lei 99.51 and 18.9069. Lots of 2 at 10 and 3 at 20 cost 80.
newInvoice("3", "MIXT TREI SA", ["M1", "5"]);
lines.enter(0, "PRETFT", "4");
key("Esc");
equal(cells(0, "DiscountArticol", "ValoareFTCuDiscount"), ["5,00", "3,80"], "the article's discount alone");
lines.enter(0, "ValoareFTCuDiscount", "4");
w.set("chkDeviza", true);
w.pick("cboIDDeviza", "EUR");
validated();
equal(sql("SELECT TOTALFT, TOTALTVA, TOTALDEV, TOTALCOST, CODDEV, CURS, MODREG FROM G_DOCUME WHERE ID = 'FC3'"),
      [{TOTALFT: 99.51, TOTALTVA: 18.9069, TOTALDEV: 20, TOTALCOST: 80, CODDEV: "EUR", CURS: 4.9755, MODREG: 3}], "ledger in lei");
equal(note("3"), ["707 C 99.51", "4427 C 18.9069", "411 D 118.4169", "607 D 80", "371 C 80"], "notes in lei");

// Returned goods have the price and cost of the invoice in the observations: 17 and 10.
newInvoice("4", "MIXT TREI SA");
w.type("txtFields(3)", "FC2");
lines.addLine("M1", "-2");
key("Esc");
equal(cells(0, "PRETFT", "VALOAREFT", "COST"), ["17,00", "-34,00", "20,00"], "a return");
validated();
equal(note("4"), ["707 C -34", "4427 C -6.46", "411 D -40.46", "607 D -20", "371 C -20"], "turned notes");
equal(sql("SELECT STOC FROM G_ARTMAG WHERE CODART = 'M1'"), [{STOC: 4}], "back in stock");

// Without notes; then the numbers of a range, up to its end.
newInvoice("5", "MIXT TREI SA", ["S1", "1"]);
w.set("chkNoteContabile", false);
validated();
equal(note("5"), [], "nothing posted");
sql("UPDATE kt_par SET FCSTART = '100', FCEND = '150', SERIEFC = 'VX'");
w.click("cmdFacturaNoua");
noMessage();
equal([w.text("txtFields(0)"), w.isReadOnly("txtFields(0)")], ["100", true], "the first of the range");
w.pick("DataCombo1", "CLIENT DOI SRL");
w.click("cmdSalvare");
refused("cmdFacturaNoua", "Atentie! Mai sunt 50 facturi pana la epuizarea plajei de valori.");
equal(w.text("txtFields(0)"), "101", "the next");
sql("UPDATE G_FACCLI SET NUMFAC = '150' WHERE NUMFAC = '100'");
refused("cmdFacturaNoua",
        "Atentie! S-a depasit plaja de valori pentru facturi. Inlocuiti setul de tipizate, apoi introduceti noua plaja de valori.");
equal([w.text("txtFields(0)"), w.isReadOnly("txtFields(0)")], ["", false], "the numbers are typed from here on");
// A refused field keeps its document on screen.
answer("OK");
w.type("cboModPlata", "BARTER");
answer("OK");
w.grid("TDBGrid2").select(0);
equal(messages().length, 2, "refused on leaving, and again");
equal(w.text("txtFields(0)"), "", "the document remains open");
w.pick("cboModPlata", "OP");
w.grid("TDBGrid2").select(0);
equal(w.text("txtFields(0)"), "150", "closes once the field is valid");
shot("factura-client");

// The price in currency, with its notices: one box each, and a single line however the cell was left.
// 3 EUR are 14.9265 lei, 5 EUR 24.8775.
opened({method: "MP"});
sql("UPDATE G_ARTMAG SET CODDEVIZAVANZ = 'EUR', PRETDEVIZAVANZ = 5 WHERE CODART = 'M1'");
for (const [code, currency] of [["E1", "EUR"], ["U1", "USD"]])
  sql("INSERT INTO G_ARTMAG (CODART, DENART, UM, FAMART, PRETVFT, PROVENIENTA, FARASTOC, CODDEVIZAVANZ, PRETDEVIZAVANZ) " +
      "VALUES (?, ?, 'Buc', 1, 15, 'M', -1, ?, 3)", code, "Serviciu " + code, currency);
const cheap = "Pretul de vanzare stabilit in valuta este mai mic decat pretul in lei !";
newInvoice("1", "MIXT TREI SA");
w.set("chkCalculValuta", true);
for (const [ways, text] of [[() => lines.enter(-1, "CODART", "S1"), "Nu exista pret in valuta "],
                            [() => lines.enter(-1, "CODART", "U1"), "Nu exista curs valutar pentru data de : "],
                            [() => lines.enter(-1, "DENUMIRE", "Serviciu E1"), cheap],
                            [() => ["Insert", "E", "1"].forEach((k) => k == "Insert" ? w.press("TDBGrid1", k) : key(k)), cheap]]) {
  answer("OK");
  ways();
  w.click("cmdSalvare");  // also commits the cell that is still being edited
  expectMessage(text);
  noMessage();
}
lines.enter(-1, "CODART", "M1");
key("Esc");
noMessage();
equal(sql("SELECT CODART, PRETFT, PRETVALUTA, ValoareFTCuDiscount AS P FROM G_LFACCL ORDER BY NRLINIE").map((line) =>
          [line.CODART, line.PRETFT, line.PRETVALUTA, line.P]),
      [["S1", 25, 0, 25], ["U1", 0, 3, 0], ["E1", 14.9265, 3, 14.9265], ["E1", 14.9265, 3, 14.9265], ["M1", 24.8775, 5, 24.8775]],
      "lines");
equal(w.text("txtCurs"), "", "in lei the document has no rate");
w.set("chkDeviza", true);
w.pick("cboIDDeviza", "EUR");
w.type("txtCurs", "4");
lines.deleteRow(4);
lines.enter(-1, "CODART", "M1");
key("Esc");
equal([lines.cell(4, "PRETFT"), w.text("txtCurs")], ["5,00", "4,9755"], "the unchanged price, and its rate");

// A draft without a due date does not show that of the previous draft.
w.set("DTPicker1", year + "-12-31");
w.click("cmdSalvare");
sql("INSERT INTO G_FACCLI (NUMFAC, CODCLI, DATAFAC, VALIDAT, Magazie) VALUES ('9', 3, ?, 0, 1)", year + "-03-03");
setToday(year + "-04-10");
w.press("txtFields(0)", "F5");
w.grid("TDBGrid2").select(w.grid("TDBGrid2").column("NUMFAC").indexOf("9"));
equal([w.value("dtpDataFactura"), w.value("DTPicker1")], [year + "-03-03", year + "-05-10"], "dates of the draft");

// A return without its invoice is posted too: 2 at the article's cost of 20.
w.set("chkCalculValuta", false);
newInvoice("2", "MIXT TREI SA", ["M1", "-2"]);
validated();
equal(note("2"), ["707 C -40", "4427 C -7.6", "411 D -47.6", "607 D -40", "371 C -40"], "notes of a return by average cost");

opened({method: "MP", decimals: 4});
newInvoice("1", "MIXT TREI SA", ["S1", "1.25"]);
lines.enter(0, "PRETFT", "3.3333");
key("Esc");

// Another user changes the draft that is shown: nothing is issued, the window then shows what is stored.
sql("UPDATE G_FACCLI SET CODCLI = 2 WHERE NUMFAC = '1'");
sql("UPDATE G_LFACCL SET CANT = 7 WHERE NUMFAC = '1'");
press("cmdValidare", "Da", "OK");
check(messages().pop().text.indexOf("Documentul a fost modificat intre timp de alt utilizator !") === 0, "refused");
equal(sql("SELECT ID FROM G_DOCUME WHERE TIPIE = 'E'"), [], "no invoice");
equal([w.text("DataCombo1"), lines.cell(0, "CANT")], ["CLIENT DOI SRL", "7,000"], "what is stored");
sql("UPDATE G_LFACCL SET CANT = 2 WHERE NUMFAC = '1'");
answer("OK");
lines.enter(0, "PRETFT", "2");
check(messages().pop().text.indexOf("Documentul a fost modificat") === 0, "the cell is refused");
key("Esc");
equal([lines.cell(0, "CANT"), lines.cell(0, "PRETFT")], ["2,000", "3,3333"], "the line as stored");
