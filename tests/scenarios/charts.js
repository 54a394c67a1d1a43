// Charts of the accounting notes: each kind with figures worked out by hand, its messages, the print and the picture.

const year = today().substring(0, 4);
company({denumire: "ATELIERUL SRL"});
sql("UPDATE kt_par SET DATAIN = ?, DATASN = ?, Chelt = 6, VENIT = 7, CONTCLIENTI = '4111', CONTFURNIZORI = '401'", year + "-01-01", year + "-12-31");
for (const [code, name] of [[1, "ALFA SRL"], [2, "BETA SA"], [3, "ALFA SRL"]]) sql("INSERT INTO kt_ter (COD, NUME, TIP) VALUES (?, ?, 'C')", code, name);
for (const [account, title] of [["4111", "Clienti"], ["607", "Cheltuieli cu marfurile"], ["6", "Cheltuieli"]])
  sql("DELETE FROM kt_pc WHERE CONT = ?", account), sql("INSERT INTO kt_pc (CONT, TITLU) VALUES (?, ?)", account, title);
let line = 0;
const note = (date, account, debit, credit, partner) =>
    sql("INSERT INTO kt_linii (NDI, NRLINIE, DATAINR, CONT, DEBIT, CREDIT, TERT) VALUES (1, ?, ?, ?, ?, ?, ?)", ++line, year + "-" + date, account, debit, credit, partner);
note("01-10", "4111", 119, 0, 1);
note("01-11", "4111", 50, 0, 3);
note("02-10", "4111.1", 30, 0, 1);
note("02-11", "4111", 0, 20, 2);
note("01-10", "607", 60, 0, null);
note("02-10", "605", 15.5, 5, null);
note("02-10", "707", 0, 100, null);
restart();

let w = menu("mnuGrafice", "frmGrafice");
equal([w.title(), w.value("DTPDeLa"), w.value("DTPLa"), w.text("TextValoare")], ["Grafice", year + "-01-01", year + "-12-31", "0"]);
replied("OK", () => w.click("cmdArata"), "Va rog selectati un cont !");
const drawn = (kind, account, form) => {
  w.pick("cmbMod", kind);
  w.pick("cboCont", account);
  if (form) w.pick("cmbTip", form);
  w.click("cmdArata");
  const grid = w.grid("DataGrid");
  return Array.from({length: grid.rows()}, (_, row) => grid.captions().map((caption, column) => grid.cell(row, grid.columns()[column])));
};
equal(drawn("Evolutie cont", "4111 - Clienti", "Bare 3D"), [["01 / " + year, "169,00", "1"], ["02 / " + year, "30,00", "2"]], "debits of customers");
equal([w.text("MSChart"), w.isVisible("MSChart"), w.isVisible("MSChartPie")], ["4111 - Clienti Evolutie cont", true, false]);
shot("bars");
equal(drawn("Repartitie clasa", "6 - Cheltuieli", "Diagrama circulara 2D"), [["605", "605", "15,50"], ["607", "607", "60,00"]], "debits of expenses");
equal([w.text("MSChartPie"), w.isVisible("MSChart"), w.isVisible("MSChartPie")], ["6 Repartitie clasa", false, true]);
w.set("CheckProcent", true);
w.click("cmdArata");
shot("circle");
equal(drawn("Evolutie Cheltuieli / Venituri", "6 - Cheltuieli", "Combinatie 2D"), [["01 / " + year, "0,00", "60,00", "1"], ["02 / " + year, "105,00", "15,50", "2"]], "both");
shot("combined");
equal(drawn("Repartitie Clienti", "6 - Cheltuieli", "Bare 2D"), [["ALFA SRL", "ALFA SRL", "149,00"], ["ALFA SRL", "ALFA SRL", "50,00"]], "one row a partner");
w.type("TextValoare", "50");
equal(drawn("Repartitie Clienti", "6 - Cheltuieli"), [["ALFA SRL", "ALFA SRL", "119,00"]], "rows above the minimum");
for (const form of ["Linii 3D", "Suprafata 2D", "Scara 2D"]) drawn("Evolutie Cheltuieli / Venituri", "6 - Cheltuieli", form);
shot("steps");
file(paths().app + "/grafic.png");
w.click("cmdSalvare");
equal(readFile(paths().app + "/grafic.png").substring(1, 4), "PNG", "picture");
w.click("cmdPrint");
equal(printed().length, 1, "printed");
// The figures of twelve months and of forty partners of long names can all be read on the printed chart.
const paper = () => {
  w.click("cmdPrint");
  return pdfText(printed()[0]).replace(/\s+/g, " ");
};
const readable = (what, ...texts) => {
  const text = paper();
  texts.forEach((part) => check(text.includes(part), what + ": " + part + " in " + text));
  return text;
};
const twelve = Array.from({length: 12}, (_, i) => String(i + 1).padStart(2, "0"));
twelve.forEach((month, i) => note(month + "-20", "5121", 1000 * (i + 1) - 2000.5, 0, null));
sql("DELETE FROM kt_pc WHERE CONT = '5121'"), sql("INSERT INTO kt_pc (CONT, TITLU) VALUES ('5121', 'Banca')");
for (const form of ["Bare 2D", "Linii 2D", "Suprafata 2D", "Scara 3D", "Combinatie 2D"]) {
  drawn("Evolutie cont", "5121 - Banca", form);
  const text = readable(form, "-1.000,50", "-0,50", "999,50", "9.999,50");
  twelve.forEach((month) => check(text.includes(month + " / " + year), form + ": month " + month));
  check(!/\d,\d{3}\D/.test(text), form + ": no figure with a comma for thousands in " + text);
}
shot("months");
sql("DELETE FROM kt_linii");
for (let i = 1; i <= 40; ++i) {
  sql("INSERT INTO kt_ter (COD, NUME, TIP) VALUES (?, ?, 'C')", 100 + i, "PARTENER CU NUME DE PATRUZECI LITERE " + (100 + i));
  note("03-05", "4111", 1000 * i, 0, 100 + i);
}
w.set("CheckProcent", true);
drawn("Repartitie Clienti", "6 - Cheltuieli", "Diagrama circulara 2D");
// 1,000 and 40,000 of 820,000.
readable("forty slices", "LITERE 101", "LITERE 140", "1.000,00 (0%)", "40.000,00 (5%)");
shot("slices");
w.type("TextValoare", "28000");
drawn("Repartitie Clienti", "6 - Cheltuieli", "Bare 2D");
readable("twelve bars", "29.000", "40.000", "50.000", "LITERE 129", "LITERE 140");
shot("partners");
w.set("DTPDeLa", year + "-05-01");
replied("OK", () => w.click("cmdArata"), "Nu exista date pentru trasare grafic! ");
w.click("CommandButton1");
