// The chart of accounts: adding, cells, deleting, turnovers.
company();
setToday("2026-03-15");
const account = symbol => sql("SELECT CONT, TITLU, DEBITN, CREDITN, SOLDN, CODBUG, NeUtilizabil FROM kt_pc WHERE CONT = ?", symbol)[0];
const total = sql("SELECT COUNT(*) AS N FROM kt_pc")[0].N;
let w = menu("mnumnuTabelemnuTabPC", "frmPC");
let grid = w.grid("grdDataGrid");
equal(w.title(), "Plan de Conturi");
equal(grid.captions(), ["CONT", "TITLU", "DEBIT", "CREDIT", "SOLD", "Centru de cost", "Neutilizabil"]);
equal(grid.rows(), total);
w.click("cmdPrint");
const chart = pdfText(printed()[0]);
check(chart.includes("PLAN DE CONTURI") && chart.includes("Editat de Tarvon Ostrel") && chart.includes("4111"), "the complete chart is printed");
equal(w.value("DTPicker"), "2026-03-15");
shot("accounts-start");

const refused = (text, control, more) => {
  replied("OK", () => w.click("cmdAdauga"), text, more);
  if (control) check(w.hasFocus(control), "focus on " + control);
};
w.type("txtCont", "2-1");
refused("Simbol cont nu poate contine cratima ", "txtCont", {icon: "exclamation"});
w.type("txtCont", "");
refused("Va rugam completati un numar de cont !", "txtCont", {icon: ""});
w.type("txtCont", "5121");
refused("Va rugam completati titlul contului !", "txtTitlu");
w.type("txtTitlu", "Test");
refused("Acest numar de cont exista deja ! Adaugarea nu se poate efectua !", "txtCont");
equal(sql("SELECT COUNT(*) AS N FROM kt_pc")[0].N, total);

w.type("txtCont", "4111.01");
w.type("txtTitlu", "Clienti - un titlu de patruzeci de caracte");
w.pick("cboCentruCost", w.items("cboCentruCost")[0]);
const centre = w.text("txtCC");
check(centre !== "", "cost centre in its box");
w.click("cmdAdauga");
equal(account("4111.01"), {CONT: "4111.01", TITLU: "Clienti - un titlu de patruzeci de carac", DEBITN: 0, CREDITN: 0,
                           SOLDN: null, CODBUG: centre, NEUTILIZABIL: 0});
equal([w.text("txtCont"), w.text("txtTitlu"), w.text("txtCC"), w.text("cboCentruCost")], ["", "", "", ""]);
const at = grid.column("CONT").indexOf("4111.01");

replied("OK", () => equal(grid.enter(at, "TITLU", "  "), false), "Va rugam completati titlul contului !");
replied("OK", () => equal(grid.enter(at, "NeUtilizabil", "poate"), false), "Introduceti DA sau NU !");
equal(grid.enter(at, "NeUtilizabil", "da"), true);
equal(grid.enter(at, "TITLU", "Clienti vechi"), true);
// Leaving a refused cell with a command shows only the cell's message.
grid.select(at);
w.press("grdDataGrid", "Home");
w.press("grdDataGrid", "Right");
w.press("grdDataGrid", "F2");
key("Ctrl+A");
key("Backspace");
replied("OK", () => w.click("cmdSterge"), "Va rugam completati titlul contului !");
noMessage();
equal(grid.cell(at, "TITLU"), "Clienti vechi");
check(grid.isLocked(at, "DEBITN") && grid.isLocked(at, "CONT"), "figures and symbols are unchanged");
equal([account("4111.01").TITLU, account("4111.01").NEUTILIZABIL], ["Clienti vechi", -1]);

// Clienti: 119 in the year, of which 19 VAT; a payment after the day is not included.
const post = (note, day, symbol, debit, credit) =>
  sql("INSERT INTO kt_linii (NDI, NRLINIE, JURNAL, DATAINR, CONT, DEBIT, CREDIT) VALUES (?, ?, 'JV', ?, ?, ?, ?)",
      note, sql("SELECT COUNT(*) AS N FROM kt_linii")[0].N + 1, day, symbol, debit, credit);
post(1, "2026-03-15", "4111.01", 119, 0);
post(1, "2026-03-15", "707", 0, 100);
post(1, "2026-03-15", "4427", 0, 19);
post(2, "2026-03-16", "5121", 119, 0);
post(2, "2026-03-16", "4111.01", 0, 119);
w.click("cmdActualizare");
equal(["4111.01", "4111", "411", "41", "4"].map(symbol => account(symbol)).map(row => [row.DEBITN, row.CREDITN, row.SOLDN]),
      [[119, 0, 119], [119, 0, 119], [119, 0, 119], [119, 0, 119], [119, 19, 100]]);
equal(grid.cell(grid.column("CONT").indexOf("4"), "SOLDN"), "100,00");
shot("accounts");

const removing = (symbol, expected) => {
  grid.select(grid.column("CONT").indexOf(symbol));
  answer("Da");
  if (expected) answer("OK");
  w.click("cmdSterge");
  expectMessage("Sunteti sigur ca doriti sa stergeti contul " + symbol + " ?", {title: "Confirmare stergere"});
  if (expected) expectMessage(expected);
  equal(account(symbol) !== undefined, Boolean(expected), symbol);
};
removing("4111.01", "Contul nu se poate sterge deoarece este utilizat in Inregistrari !");
const ofJournal = sql("SELECT J.CONT AS CONT FROM kt_jur J JOIN kt_pc P ON P.CONT = J.CONT WHERE J.CONT NOT IN (SELECT CONT FROM kt_linii) ORDER BY J.CONT")[0].CONT;
removing(ofJournal, "Contul nu se poate sterge deoarece este utilizat in Jurnale !");
removing("41", "Clasele si subclasele nu se pot sterge!");
sql("DELETE FROM kt_linii");
removing("4111.01", "");
noMessage();

// The list shows changes made in other windows.
sql("UPDATE kt_info SET DENUMIRE = 'ALFA SRL'");
menu("mnuFilemnuSocConf");
win("frmParamSoc").set("optBugetar", true);
noMessage();
win("frmParamSoc").close();
equal(grid.column("CONT"), sql("SELECT CONT FROM kt_pc ORDER BY CONT").map(row => row.CONT));
check(grid.column("CONT").includes("232.31"), "accounts of the new plan");
