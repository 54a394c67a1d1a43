// Bulk update of sale prices: the choice of articles, the two methods, refusals that write nothing.

setToday("2026-03-15");
company();
sql("INSERT INTO G_FAMART (COD, DENUMIRE) VALUES (1, 'Suruburi'), (2, 'Adezivi')");
sql("INSERT INTO G_ARTMAG (CODART, DENART, FAMART, COST, COSTDEV, PRETDEVIZAVANZ, COTATVA) VALUES " +
    "('S8', 'Surub M8', 1, 2.675, 1.5, 10, 19), ('S10', 'Surub M10', 1, 0, 0, 0, 19), ('A1', 'Adeziv', 2, 40, 8, 10, 9)");

// Mark-up, price without and with VAT, price in currency.
function prices(code) {
  const row = sql("SELECT ADAOS, PRETVFT, PRETVTTI, PRETDEVIZAVANZ FROM G_ARTMAG WHERE CODART = ?", code)[0];
  return [row.ADAOS, row.PRETVFT, row.PRETVTTI, row.PRETDEVIZAVANZ];
}

const form = menu("mnuActualizarePret", "FrmActPretVanz");
equal(form.title(), "Actualizare Pret Vanzare");
equal(["fraSelArt", "optToateArt", "optFamilie", "optArticol", "CheckAdaos", "CheckDeviza", "LabelValuta", "cmdOK", "cmdAnulare"]
        .map((name) => form.text(name)),
      ["Articole", "Toate", "Familie", "Articol", " Pe baza de adaos comercial",
       " Pe baza Pretului de vanzare in valuta", " Valuta", "OK", "Anulare"]);
equal(form.items("cboArticol"), ["Adeziv", "Surub M10", "Surub M8"]);
equal(form.items("cboFamilie"), ["2-Adezivi", "1-Suruburi"]);
equal([form.value("optToateArt"), form.isEnabled("cboFamilie"), form.isEnabled("cboArticol")], [true, false, false]);
shot("prices-start");

// Exactly one of the two methods is enabled.
const ways = () => [form.value("CheckAdaos"), form.value("CheckDeviza")];
equal(ways(), [true, false]);
form.click("CheckAdaos");
equal(ways(), [false, true]);
form.click("CheckDeviza");
equal(ways(), [true, false]);

function run(message) {
  replied("OK", () => form.click("cmdOK"), message, { icon: "" });
}

// The choice of articles is checked first, then the percentage.
form.set("optArticol", true);
run("Va rugam precizati articolul");
key("Esc");
check(form.hasFocus("cboArticol"), "its list was open");
form.set("optFamilie", true);
run("Va rugam precizati familia");
key("Esc");
check(form.hasFocus("cboFamilie"), "its list was open");
form.pick("cboFamilie", "1-Suruburi");
run("Va rugam introduceti adaosul comercial");
replied("OK", () => form.type("TextAdaos", "x"), "Valoarea trebuie sa fie numerica");
equal(prices("S8"), [0, 0, 0, 10]);

// 2.675 x 1.3333 = 3.5665775, with VAT 4.244227225; 1.5 x 1.3333 = 1.99995.
form.type("TextAdaos", "33,33");
run("Actualizarea s-a efectuat cu succes pentru 2 articole");
equal([prices("S8"), prices("S10"), prices("A1")], [[33.33, 3.57, 4.24, 2], [33.33, 0, 0, 0], [0, 0, 0, 10]]);
shot("prices-family");

// Another option clears the list of the previous one. The article is found by a part of its name.
form.set("optArticol", true);
equal([form.text("cboFamilie"), form.isEnabled("cboFamilie")], ["", false]);
form.pick("cboArticol", "Surub M8");
form.type("TextAdaos", "0");
run("Actualizarea s-a efectuat cu succes pentru 1 articole");
equal(prices("S8"), [0, 2.68, 3.18, 1.5]);
form.type("cboArticol", "dez");
equal(form.items("cboArticol"), ["Adeziv"]);
shot("prices-article");
run("Va rugam precizati articolul");
key("Esc");
form.type("cboArticol", "a1");
form.type("TextAdaos", "25");
run("Actualizarea s-a efectuat cu succes pentru 1 articole");
equal(prices("A1"), [25, 50, 59.5, 10]);

// By today's rate, whatever the currency of an article: 4.9765 x 10 = 49.765, a tie to the even ban.
form.set("optToateArt", true);
equal([form.text("cboArticol"), form.items("cboArticol").length], ["", 3]);
form.click("CheckDeviza");
form.type("TextDeviza", "EUR");
run("Nu este introdus cursul pe ziua : 15.03.2026");
equal(prices("A1"), [25, 50, 59.5, 10]);
sql("INSERT INTO kt_val2 (COD, DATA, CURS) VALUES ('EUR', '2026-03-15', 4.9765)");
sql("UPDATE G_ARTMAG SET PRETDEVIZAVANZ = 0 WHERE CODART = 'S8'");
run("Actualizarea s-a efectuat cu succes pentru 3 articole");
equal([prices("A1"), prices("S8"), prices("S10")], [[24.41, 49.76, 59.22, 10], [-100, 0, 0, 0], [100, 0, 0, 0]]);
shot("prices-currency");

// A single window, which closes without a question.
menu("mnuActualizarePret");
equal(openCount("FrmActPretVanz"), 1);
form.click("cmdAnulare");
check(!isOpen("FrmActPretVanz"));
noMessage();
