// The currencies and their daily rates.
company();
setToday("2026-03-15");
sql("DELETE FROM kt_val WHERE COD NOT IN ('LEI')");
sql("INSERT INTO kt_val (COD, TITLU) VALUES ('EUR', 'Euro')");
const rates = () =>
  sql("SELECT DATA, CURS FROM kt_val2 WHERE COD = 'EUR' ORDER BY DATA DESC, ID").map(row => [row.DATA.slice(0, 10), row.CURS]);
let w = menu("mnumnuTabelemnuPrelValuta", "frmValute");
let list = w.grid("grdValute");
let shown = w.grid("grdCursValuta");
equal(w.title(), "Valute");
equal([list.captions(), shown.captions()], [["Cod", "Titlu"], ["COD", "DATA", "CURS"]]);
equal(w.text("lblValuta"), "EUR");
equal(w.text("cboNumarCursuri"), "5");
check(w.isEnabled("txtCodValuta") && !w.isEnabled("txtCurs"), "currencies at first");
shot("currencies-start");

replied("OK", () => w.click("cmdAdauga"), "Va rugam completati codul valutei  !");
check(w.hasFocus("txtCodValuta"), "focus on the code");
w.type("txtCodValuta", "eur");
replied("OK", () => w.click("cmdAdauga"), "Acest cod de valuta exista deja ! Adaugarea nu se poate efectua !");
w.type("txtCodValuta", "USDX");
w.type("txtDenumireValuta", "Dolar SUA, cel mai lung nume de");
w.click("cmdAdauga");
equal(sql("SELECT COD, TITLU FROM kt_val ORDER BY COD")[2], {COD: "USD", TITLU: "Dolar SUA, cel mai lung nume d"});
equal(w.text("lblValuta"), "USD");
equal(w.text("txtCodValuta"), "");

list.select(0);
w.set("optCurs", true);
check(!w.isEnabled("txtCodValuta") && w.isEnabled("txtCurs"), "rates now");
equal(w.value("dteDataCurs"), "2026-03-15");
for (const text of ["", "abc"]) {
  w.type("txtCurs", text);
  replied("OK", () => w.click("cmdAdauga"), "Va rugam introduceti o valoare numerica !");
  check(w.hasFocus("txtCurs"), "focus on the rate");
}
equal(rates(), []);
const enter = (day, rate) => {
  w.set("dteDataCurs", day);
  w.type("txtCurs", rate);
  w.click("cmdAdauga");
  equal(w.text("txtCurs"), "");
};
enter("2026-03-15", "4.9765");
equal(call("Curs", "EUR", "2026-03-15"), 4.9765);
enter("2026-03-15", "4,98");
equal(rates(), [["2026-03-15", 4.98]]);
enter("2026-03-14", "4.9");
enter("2026-03-14", "4.91");
equal(shown.cell(0, "DATA"), "15.03.2026");
equal(shown.column("CURS"), ["4,9800", "4,9100", "4,9000"]);
enter("2026-03-16", "5");
enter("2026-03-10", "5");
enter("2026-03-11", "5");
equal(shown.rows(), 5);
shot("currencies");
w.pick("cboNumarCursuri", "Toate");
equal(shown.rows(), 6);
w.type("dteDataCurs", "14032026");
equal(w.value("dteDataCurs"), "2026-03-14");
w.click("cmdCautaCurs");
equal(shown.column("CURS"), ["4,9100", "4,9000"]);
list.select(2);
equal([w.text("lblValuta"), shown.rows()], ["USD", 0]);

replied("Nu", () => w.press("grdValute", "Delete"), "Sunteti sigur ca doriti sa stergeti valuta cu codul : USD ?", {title: "Confirmare stergere"});
equal(list.rows(), 3);
list.select(0);
replied("Da", () => w.press("grdValute", "Delete"), "EUR ?");
equal(list.column("COD"), ["LEI", "USD"]);
equal(rates().length, 6);

for (const code of ["LEI", "USD"]) sql("DELETE FROM kt_val WHERE COD = ?", code);
w.press("grdValute", "F5");
equal(w.text("lblValuta"), "");
w.type("txtCurs", "1");
replied("OK", () => w.click("cmdAdauga"), "Va rugam selectati un cod de valuta !");
noMessage();
shot("currencies-empty");
