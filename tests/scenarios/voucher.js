// An input voucher through the real window: checks in order, lines by code and by name, refused cells,
// validation into ledger, article and note, under both cost methods.

function seed() {
  sql("INSERT INTO kt_ter (COD, NUME, TIP) VALUES (1, 'FURNIZOR UNU SRL', 'F')");
  sql("INSERT INTO kt_ter (COD, NUME, TIP) VALUES (2, 'CLIENT PUR SRL', 'C')");
  sql("INSERT INTO G_FAMART (COD, DENUMIRE, CONTSTOCPROD) VALUES (1, 'Produse', '345')");
  sql("INSERT INTO G_FAMART (COD, DENUMIRE, CONTSTOCPROD) VALUES (2, 'Semifabricate', '341')");
  const insert = "INSERT INTO G_ARTMAG (CODART, CODPRODFUR, DENART, UM, FAMART, COST, PRETVFT, PROVENIENTA) " +
                 "VALUES (?, ?, ?, 'Buc', ?, ?, ?, 'P')";
  sql(insert, "A1", "F-77", "Scaun de lemn", 1, 10, 15);
  sql(insert, "A2", "F-78", "Masa rotunda", 1, 0, 0);
  sql(insert, "B_1", "F-79", "Blat 100% fag", 2, 4, 6);
}

let w;

const {press, refused} = steps(() => w);

function newVoucher(number) {
  const w = win("frmGRILABonIntr");
  w.click("cmdFacturaNoua");
  w.type("txtFields(0)", number);
  w.pick("DataCombo1", "FURNIZOR UNU SRL");
  w.click("cmdSalvare");
  noMessage();
  return w;
}

company({method: "MP"});
seed();
w = menu("mnuBonIntr", "frmGRILABonIntr");
equal(w.title(), "Bon de intrare", "title");
equal(w.items("DataCombo1"), ["FURNIZOR UNU SRL"], "suppliers only");

// The checks of the header, in order.
w.type("txtFields(2)", "x");
refused("cmdSalvare", "Va rugam completati numarul N.I.R. ! Salvarea nu se poate efectua !", {icon: "critical"});
check(w.hasFocus("txtFields(0)"), "focus on the number");
w.type("txtFields(0)", "15'");
equal(w.text("txtFields(0)"), "15", "the apostrophe is swallowed");
refused("cmdSalvare", "Va rugam completati codul furnizorului ! Salvarea nu se poate efectua !");
w.type("txtFields(1)", "1");
equal(w.text("Label2"), "FURNIZOR UNU SRL", "partner by code");
refused("cmdSalvare", "Va rugam introduceti o valoare numerica pozitiva pentru Cota TVA ! Salvarea nu se poate efectua !");
w.type("txtFields(2)", "19");
w.type("txtFields(3)", "0123456789012345678901234567890123456789012345678901234567890");
const year = today().substring(0, 4);
w.set("dtpDataDoc", (Number(year) + 1) + "-01-01");
refused("cmdSalvare", "Data document trebuie sa fie in intervalul: 01/01/" + year + "-31/12/" + year);
// Typed digits replace those of the date shown; digits that are not typed remain.
w.set("dtpDataDoc", "2026-02-15");
for (const [typed, date] of [["31122024", "2024-12-31"], ["05", "2024-12-05"], ["311226", "2026-12-31"],
                             ["0102", "2026-02-01"]]) {
  w.type("dtpDataDoc", typed);
  equal(w.value("dtpDataDoc"), date, "the date typed as " + typed);
}
// An invalid date is refused, remains as typed and is replaced by the next digits; Up and Down change the day.
replied("OK", () => w.type("dtpDataDoc", "3002"), "Data introdusa nu exista !");
check(w.hasFocus("dtpDataDoc"), "the focus stays");
["0", "3", "0", "3", "Enter"].forEach((digit) => key(digit));
equal(w.value("dtpDataDoc"), "2026-03-03", "typed over");
w.press("dtpDataDoc", "Up");
equal(w.value("dtpDataDoc"), "2026-03-04", "the next day");
w.press("dtpDataDoc", "Down");
w.press("dtpDataDoc", "Down");
equal(w.value("dtpDataDoc"), "2026-03-02", "two days before");
w.set("dtpDataDoc", today());
refused("cmdValidare", "Bonul de intrare nu contine nici un articol ! Nu se poate efectua validarea !");
refused("cmdTiparire", "Va rugam apasati Salvare");
equal(w.grid("TDBGrid1").rows(), 0, "no lines before the header is saved");
w.click("cmdSalvare");
noMessage();
equal(sql("SELECT NUMNR, CODFUR, BATVA, OBS, Magazie, VALIDAT FROM G_BONINT"),
      [{NUMNR: "15", CODFUR: 1, BATVA: 19, OBS: "012345678901234567890123456789012345678901234", MAGAZIE: 1, VALIDAT: 0}],
      "stored header");
check(w.isReadOnly("txtFields(0)"), "the number of a draft is read-only");

// Lines by code and by name; a refused cell keeps its text.
const lines = w.grid("TDBGrid1");
replied("OK", () => equal(lines.enter(-1, "CODART", ""), false, "no code"), "Va rugam introduceti cod articol");
key("Esc");
replied("OK", () => equal(lines.enter(-1, "CODART", "ZZ"), false, "unknown code"), "Articolul cu codul intern ZZ nu exista ");
key("Esc");
w.press("TDBGrid1", "Insert");
["Right", "Ctrl+A", "Enter"].forEach(key);
equal(lines.rows(), 0, "nothing chosen in the list");
w.press("TDBGrid1", "Insert");
key("Right");
equal(w.items("DataList1"), ["Blat 100% fag (B_1)", "Masa rotunda (A2)", "Scaun de lemn (A1)"], "the list of articles");
["Down", "Down", "Enter"].forEach(key);
equal(lines.column("DENUMIRE"), ["Masa rotunda (A2)"], "chosen in the list by the arrow keys alone");
key("Esc");
lines.deleteRow(0);
equal(lines.addLine("a1", "3"), 0, "first line");
equal(lines.cell(0, "DENUMIRE"), "Scaun de lemn", "name by code");
equal(lines.cell(0, "PRETFT"), "10,00", "the article's cost");
equal(lines.cell(0, "PRETVA"), "15,00", "the article's sale price");
equal(lines.cell(0, "VALOAREFT"), "30,00", "value");
check(lines.isLocked(0, "VALOAREFT") && lines.isLocked(0, "UM") && !lines.isLocked(0, "CANT"), "locked cells");
equal(lines.enter(0, "VALOAREFT", "1"), false, "a computed cell");
check(lines.colour(0, "VALOAREFT").back !== lines.colour(0, "CANT").back, "its colour");
equal([lines.columns().slice(0, 5), lines.captions()[1]], [["NRLINIE", "CODART", "DENUMIRE", "UM", "CANT"], "Cod articol"]);
// A refused cell keeps its text and the focus; typing continues in it.
equal(lines.enter(-1, "CODART", "ZZZ"), false);
expectMessage("ZZZ");
win("frmMsgBox").click("cmdBtn(0)");
equal([lines.cell(-1, "CODART"), w.hasFocus("TDBGrid1"), lines.rows()], ["ZZZ", true, 1], "as typed");
check(lines.enter(-1, "CODART", "A2"), "typed over");
lines.enter(1, "PRETFT", "1234,5");
lines.enter(1, "CANT", "2.5");  // 2.5 x 1234.5 = 3086.25
equal([lines.cell(1, "PRETFT"), lines.cell(1, "VALOAREFT"), lines.footer("VALOAREFT")], ["1.234,50", "3.086,25", "3.116,25"]);
lines.deleteRow(1);
replied("OK", () => equal(lines.enter(0, "CANT", "abc"), false, "no number"), "Va rugam introduceti o valoare numerica pentru Cantitate !");
key("Esc");
replied("OK", () => equal(lines.enter(0, "CANT", "-1"), false, "below zero"), "Va rugam introduceti o valoare numerica pozitiva pentru Cantitate !");
key("Esc");
equal(lines.cell(0, "CANT"), "3,000", "untouched");
check(lines.enter(-1, "DENUMIRE", "100% fa"), "by a part of the name");
equal(lines.cell(1, "CODART"), "B_1", "picked article");
equal(lines.cell(1, "DENUMIRE"), "Blat 100% fag (B_1)", "the list's text");
check(lines.enter(1, "CANT", "2.5"), "quantity with a point");
check(lines.enter(1, "PRETFT", "7,333"), "price with a comma");
equal(lines.cell(1, "PRETFT"), "7,33", "rounded price");
equal(lines.cell(1, "VALOAREFT"), "18,32", "18.325 to the even digit");
check(lines.enter(1, "PRETVA", ""), "an empty sale price");
equal(lines.footer("VALOAREFT"), "48,32", "footer");
w.set("CheckCODP", true);
check(lines.enter(-1, "CODART", "F-78"), "by the supplier's code");
equal(lines.cell(2, "CODART"), "A2", "rewritten to the own code");
w.set("CheckCODP", false);

// Validation: checks, notices, question.
press("cmdValidare", "Da", "OK", "OK");
expectMessage("Sunteti sigur ca doriti sa validati bonul de intrare 15 ?", {title: "Confirmare validare", icon: "question"});
expectMessage("Pretul de vanzare este mai mic decat pretul de cumparare pentru articolul cu codul B_1 ");
expectMessage("Cantitatea pentru articolul cu codul A2 trebuie sa fie diferita de zero ! Validarea nu se poate efectua !");
lines.deleteRow(2);
lines.addLine("B_1", "1");
press("cmdValidare", "Da", "OK");
expectMessage("Sunteti sigur");
expectMessage("Articolul cu codul B_1 se repeta ! Va rugam introduceti articole distincte ! Validarea nu se poate efectua ! ");
lines.deleteRow(2);
press("cmdValidare", "Nu");
messages();
equal(sql("SELECT ID FROM G_DOCUME"), [], "nothing written");
press("cmdValidare", "Da", "OK", "OK");
expectMessage("Sunteti sigur");
expectMessage("Pretul de vanzare");
expectMessage("Bonul de intrare a fost salvat cu succes in Articole si Documente !", {title: "Confirmare salvare"});
noMessage();
equal(w.text("txtFields(0)"), "", "a new document");
equal([w.text("txtFields(1)"), w.text("txtFields(2)"), w.text("txtFields(3)"), w.text("Label2")], ["", "19", "", ""],
      "cleared but for the rate");
equal(w.grid("TDBGrid2").rows(), 0, "no draft left");

equal(sql("SELECT ID, TIP, TIPIE, CODTERT, TOTALFT, TOTALTVA, TOTALCOST, CODDEV, CURS, UTILIZATOR, CODMAG FROM G_DOCUME"),
      [{ID: "BI15", TIP: "BI", TIPIE: "I", CODTERT: 1, TOTALFT: 48.32, TOTALTVA: 0, TOTALCOST: 48.32, CODDEV: "LEI",
        CURS: 0, UTILIZATOR: "ADMIN", CODMAG: 1}], "ledger document");
equal(sql("SELECT LINIE, ARTID, CANT, PRETFT, PRETTTI, COST, VALCOST, CODTVA, CANTRAMASA, PRETVA FROM G_LDOCUM ORDER BY LINIE"),
      [{LINIE: 1, ARTID: "A1", CANT: 3, PRETFT: 10, PRETTTI: 10, COST: 10, VALCOST: 30, CODTVA: 19, CANTRAMASA: 3, PRETVA: 15},
       {LINIE: 2, ARTID: "B_1", CANT: 2.5, PRETFT: 7.33, PRETTTI: 7.33, COST: 7.33, VALCOST: 18.32, CODTVA: 19,
        CANTRAMASA: 2.5, PRETVA: null}], "ledger lines");
equal(sql("SELECT CODART, STOC, COST, ADAOS, PRETVFT, PRETVTTI FROM G_ARTMAG WHERE STOC <> 0 ORDER BY CODART"),
      [{CODART: "A1", STOC: 3, COST: 10, ADAOS: 50, PRETVFT: 15, PRETVTTI: 18},
       {CODART: "B_1", STOC: 2.5, COST: 7.33, ADAOS: -100, PRETVFT: 0, PRETVTTI: 0}], "articles");
equal(sql("SELECT CONT, DEBIT, CREDIT FROM kt_linii ORDER BY NRLINIE").map((row) => [row.CONT, row.DEBIT, row.CREDIT]),
      [["341", 18.32, 0], ["711", 0, 18.32], ["345", 30, 0], ["711", 0, 30]], "the note");
equal(sql("SELECT DISTINCT NDI, JURNAL, DOC, MARCA, COD, PROV, TIPDOC FROM kt_linii"),
      [{NDI: 1, JURNAL: "BI", DOC: "15", MARCA: "15", COD: "LEI", PROV: "G", TIPDOC: "BI"}], "its rows");

// A draft is deleted with its lines; a number cannot be used twice.
w.type("txtFields(0)", "15");
w.pick("DataCombo1", "FURNIZOR UNU SRL");
refused("cmdSalvare", "Bonul de intrare cu acest numar exista deja ! Salvarea nu se poate efectua !");
newVoucher("16");
w.grid("TDBGrid1").addLine("A1", "1");
newVoucher("17");
w.grid("TDBGrid2").select(1);
equal(w.text("txtFields(0)"), "16", "selected draft");
equal(w.grid("TDBGrid1").rows(), 1, "its lines");
replied("Da", () => w.click("cmdSterge"), "Sunteti sigur ca doriti sa stergeti N.I.R.  16 ?", {title: "Confirmare stergere"});
equal(sql("SELECT NUMNR FROM G_LBONINT WHERE NUMNR = '16'"), [], "lines gone");
refused("cmdSterge", "Va rugam selectati un N.I.R. !");

// A draft that another workstation deletes while it is open here: reported, and nothing is written.
newVoucher("20");
w.grid("TDBGrid1").addLine("A1", "1");
sql("DELETE FROM G_BONINT WHERE NUMNR = '20'");
replied("OK", () => equal(w.grid("TDBGrid1").enter(0, "CANT", "2"), false, "a line of no draft"),
        "Documentul a fost validat sau sters intre timp de alt utilizator ! Nu s-a modificat nimic !");
key("Esc");
equal(sql("SELECT CANT FROM G_LBONINT WHERE NUMNR = '20'"), [{CANT: 1}], "nothing written");
sql("DELETE FROM G_LBONINT WHERE NUMNR = '20'");

// A stock of zero by which the average cannot be divided.
sql("UPDATE G_ARTMAG SET STOC = -1 WHERE CODART = 'A2'");
newVoucher("19");
let at = w.grid("TDBGrid1").addLine("A2", "1");
w.grid("TDBGrid1").enter(at, "PRETFT", "10");
w.grid("TDBGrid1").enter(at, "PRETVA", "10");
press("cmdValidare", "Da", "OK");
expectMessage("Sunteti sigur");
expectMessage("11 - Impartire la zero Linia: ", {title: "Functia SalvareStocArticole", icon: "critical"});
equal(sql("SELECT ID FROM G_DOCUME WHERE ID = 'BI19'"), [], "rolled back");
equal(w.text("txtFields(0)"), "19", "the draft stays on screen");
shot("bon-de-intrare");

company({method: "FIFO"});
seed();
menu("mnuBonIntr");
w = newVoucher("1");
sql("UPDATE G_ARTMAG SET STOC = 5, COST = 20 WHERE CODART = 'A1'");
at = w.grid("TDBGrid1").addLine("A1", "5");
w.grid("TDBGrid1").enter(at, "PRETFT", "10");
press("cmdValidare", "Da", "OK");
messages();
equal(sql("SELECT STOC, COST FROM G_ARTMAG WHERE CODART = 'A1'"), [{STOC: 10, COST: 10}], "the latest receipt's cost");
