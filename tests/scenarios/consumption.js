// A consumption voucher through the real window: checks and their messages in order, FIFO issue of lots, quantities
// reserved by customer orders, and the average method.

function seed() {
  sql("INSERT INTO kt_ter (COD, NUME, TIP) VALUES (1, 'FURNIZOR UNU SRL', 'F')");
  sql("INSERT INTO kt_ter (COD, NUME, TIP) VALUES (2, 'SECTIA DOI', 'C')");
  sql("INSERT INTO G_FAMART (COD, DENUMIRE, CONTSTOCMARFA, CONTCHELT, CONTVEN) VALUES (1, 'Marfuri', '371', '607', '707')");
  const insert = "INSERT INTO G_ARTMAG (CODART, DENART, UM, FAMART, COST, STOC, PRETVFT, PROVENIENTA, FARASTOC) " +
                 "VALUES (?, ?, 'Buc', 1, ?, ?, 15, 'M', ?)";
  sql(insert, "A1", "Cuie de otel foarte lungi si foarte rezistente", 20, 10, 0);
  sql(insert, "A2", "Lac", 4, 5, 0);
  sql(insert, "S1", "Manopera", 8, 5, -1);
  receipt("1", "A1", 5, 10);
  receipt("2", "A1", 5, 20);
  receipt("3", "A2", 5, 4);
  receipt("4", "S1", 5, 8);
}

function receipt(number, article, quantity, price) {
  sql("INSERT INTO G_DOCUME (ID, TIP, TIPIE, DATADOC, CODMAG) VALUES (?, 'FF', 'I', ?, 1)", "FF" + number,
      today().substring(0, 4) + "-01-0" + number);
  sql("INSERT INTO G_LDOCUM (DOCID, LINIE, ARTID, CANT, CANTRAMASA, PRETFT, COST, CODMAG) VALUES (?, 1, ?, ?, ?, ?, ?, 1)",
      "FF" + number, article, quantity, quantity, price, price);
}

let w, lines;

const {press, refused} = steps(() => w);

function newVoucher(number, ...articles) {
  w.click("cmdFacturaNoua");
  w.type("txtFields(0)", number);
  w.pick("DataCombo1", "SECTIA DOI");
  w.type("txtFields(2)", "19");
  w.click("cmdSalvare");
  noMessage();
  articles.forEach(([code, quantity]) => lines.addLine(code, quantity));
}

function opened(options) {
  company(options);
  seed();
  w = menu("mnuBonConsum", "frmGRILABonConsum");
  lines = w.grid("TDBGrid1");
}

opened({method: "FIFO"});
equal(w.title(), "Bon de consum", "title");
equal(w.items("DataCombo1"), ["SECTIA DOI"], "customers only");
equal(w.items("DataCombo2"), ["Administratie", "Comercial", "Productie"], "cost centres");

// The checks of the header, then those of validation, with their order and texts.
const critical = {icon: "critical"};
refused("cmdValidare", "Va rugam selectati un bon de consum !");
refused("cmdSterge", "Va rugam selectati un aviz !");
w.type("txtFields(2)", "x");
refused("cmdSalvare", "Va rugam completati numarul avizului ! Salvarea nu se poate efectua !", critical);
w.type("txtFields(0)", "12");
refused("cmdSalvare", "Va rugam completati codul clientului ! Salvarea nu se poate efectua !", critical);
w.pick("DataCombo1", "SECTIA DOI");
equal(w.text("Label2"), "SECTIA DOI", "the partner's name");
refused("cmdSalvare", "Va rugam introduceti o valoare numerica pozitiva pentru Cota TVA ! Salvarea nu se poate efectua !");
check(w.hasFocus("txtFields(2)"), "focus on the percentage");
w.type("txtFields(2)", "19");
w.pick("DataCombo2", "Productie");
w.click("cmdSalvare");
noMessage();
equal(w.text("DataCombo2"), "Productie", "the cost centre is kept, though drafts do not store it");
refused("cmdValidare", "Bonul de consum nu contine nici un articol ! Nu se poate efectua validarea !");
w.set("dtpDataFactura", (Number(today().substring(0, 4)) - 1) + "-12-31");
lines.addLine("A1", "1");
refused("cmdValidare", "Data documentului trebuie sa fie cuprinsa in exercitiul financiar!");
w.set("dtpDataFactura", today());

// 5 at 10 and 2 at 20 are 90, and 90 / 7 is 12.857.
replied("OK", () => equal(lines.enter(0, "CANT", "-1"), false, "below zero"), "Va rugam introduceti o valoare numerica pozitiva pentru Cantitate !");
key("Esc");
lines.enter(0, "CANT", "7");
equal([lines.cell(0, "PRETFT"), lines.cell(0, "VALOAREFT"), lines.cell(0, "CANTRAMAS")], ["12,86", "90,00", "7,000"],
      "worked out on trial");
equal(lines.footer("VALOAREFT"), "90,00", "footer");
equal(lines.cell(0, "DENUMIRE"), "Cuie de otel foarte lungi si foarte", "35 characters of the name");
lines.enter(0, "VALOARETVA", "1.239");
equal([lines.cell(0, "VALOARETVA"), lines.cell(0, "VALOARETTI")], ["1,24", "91,24"], "VAT may be typed, and is kept on the draft only");
equal(sql("SELECT SUM(CANTRAMASA) AS R FROM G_LDOCUM WHERE ARTID = 'A1'"), [{R: 10}], "nothing taken yet");
lines.addLine("a1", "1");
press("cmdValidare", "Da", "OK");
expectMessage("Sunteti sigur ca doriti sa validati bonul de consum 12 ?", {title: "Confirmare validare"});
expectMessage("Articolul cu codul A1 se repeta !");
lines.deleteRow(1);
press("cmdValidare", "Da", "OK");
expectMessage("Sunteti sigur ca doriti sa validati bonul de consum 12 ?");
expectMessage("Bonul de consum a fost salvat cu succes in Articole si Documente !", {title: "Confirmare salvare"});
equal(sql("SELECT DOCID, CANTRAMASA FROM G_LDOCUM WHERE ARTID = 'A1' AND DOCID LIKE 'FF%' ORDER BY DOCID"),
      [{DOCID: "FF1", CANTRAMASA: 0}, {DOCID: "FF2", CANTRAMASA: 3}], "what the lots have left");
equal(sql("SELECT ID_I, CANT FROM G_I_E ORDER BY ID_I"), [{ID_I: "FF1", CANT: 5}, {ID_I: "FF2", CANT: 2}], "links");
equal(sql("SELECT STOC, COST FROM G_ARTMAG WHERE CODART = 'A1'"), [{STOC: 3, COST: 20}], "the article");
equal(sql("SELECT TIPIE, TOTALCOST, TOTALFT, CODTERT FROM G_DOCUME WHERE ID = 'BC12'"),
      [{TIPIE: "E", TOTALCOST: 90, TOTALFT: 90, CODTERT: 2}], "ledger");
equal(sql("SELECT CODCC FROM G_LDOCUM WHERE DOCID = 'BC12'"), [{CODCC: "PRO"}], "cost centre of the line");
equal(sql("SELECT CONT, DEBIT, CREDIT, CODBUG FROM kt_linii ORDER BY NRLINIE"),
      [{CONT: "607", DEBIT: 90, CREDIT: 0, CODBUG: "PRO"}, {CONT: "371", DEBIT: 0, CREDIT: 90, CODBUG: null}], "the note");
equal([lines.rows(), w.text("txtFields(0)"), w.text("txtFields(2)")], [0, "", "19"], "a new voucher is open and keeps the percentage");
equal(w.text("DataCombo2"), "Productie", "the cost centre is kept too");
refused("cmdSalvare", "Va rugam completati numarul avizului !");
w.type("txtFields(0)", "12");
w.pick("DataCombo1", "SECTIA DOI");
refused("cmdSalvare", "Avizul cu acest numar exista deja ! Salvarea nu se poate efectua !");

// 2 of the 5 in stock are reserved by customer orders; a service needs stock here too.
sql("INSERT INTO G_COMCLI (NUMCOM, CODCLI, VALIDAT) VALUES ('1', 2, -1)");
sql("INSERT INTO G_LCOMCL (NUMCOM, NRLINIE, CODART, CANT, CANTLIV) VALUES ('1', 1, 'A2', 2, 0)");
newVoucher("13", ["A2", "4"]);
press("cmdValidare", "Da", "OK");
expectMessage("Sunteti sigur");
expectMessage("Articolul: A2 are disponibil numai 3");
check(w.hasFocus("TDBGrid1"), "focus on the lines");
equal(sql("SELECT ID FROM G_DOCUME WHERE ID = 'BC13'"), [], "nothing written");
equal(sql("SELECT SUM(CANTRAMASA) AS R FROM G_LDOCUM WHERE ARTID = 'A2'"), [{R: 5}], "no lot used");
lines.enter(0, "CANT", "3");
lines.addLine("S1", "6");
press("cmdValidare", "Da", "OK");
messages();
equal(sql("SELECT VALIDAT FROM G_BONCON WHERE NUMAE = '13'"), [{VALIDAT: 0}], "6 services of 5");
lines.enter(1, "CANT", "1");
press("cmdValidare", "Da", "OK");
messages();
equal(sql("SELECT CODART, STOC FROM G_ARTMAG WHERE CODART > 'A1' ORDER BY CODART"),
      [{CODART: "A2", STOC: 2}, {CODART: "S1", STOC: 5}], "what keeps no stock keeps its figure");

newVoucher("14", ["A1", "1"]);
replied("Da", () => w.click("cmdSterge"), "Sunteti sigur ca doriti sa stergeti avizul 14 ?", {title: "Confirmare stergere"});
equal(sql("SELECT NUMAE FROM G_LBONCON WHERE NUMAE = '14'"), [], "lines gone");

// The average method: the ledger has the line's price, the note uses the current cost.
opened({method: "MP"});
newVoucher("1", ["A1", "2"]);
key("Esc");
equal([lines.cell(0, "PRETFT"), lines.cell(0, "VALOAREFT")], ["20,00", "40,00"], "the article's cost");
sql("UPDATE G_ARTMAG SET COST = 21 WHERE CODART = 'A1'");
press("cmdValidare", "Da", "OK");
messages();
equal(sql("SELECT PRETFT, VALCOST FROM G_LDOCUM WHERE DOCID = 'BC1'"), [{PRETFT: 20, VALCOST: 40}], "ledger");
equal(sql("SELECT CONT, DEBIT, CREDIT FROM kt_linii ORDER BY NRLINIE"),
      [{CONT: "607", DEBIT: 42, CREDIT: 0}, {CONT: "371", DEBIT: 0, CREDIT: 42}], "note");
equal(sql("SELECT ID_I FROM G_I_E"), [], "no lots under the average");
shot("bon-de-consum");
