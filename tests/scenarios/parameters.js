// The company's parameters: each tab saved separately, its checks in order, refusals, unchanged values.
setToday("2026-03-15");

let w;

function open() {
  w = menu("mnuFilemnuSocConf", "frmParamSoc");
}

// Saves the current tab, which is refused.
function refused(text, more) {
  replied("OK", () => w.click("cmdSalvare"), text, more);
}

function info(columns) { return sql("SELECT " + columns + " FROM kt_info")[0]; }
function par(columns) { return sql("SELECT " + columns + " FROM kt_par")[0]; }

company({method: ""});
sql("UPDATE kt_info SET DENUMIRE = NULL");
open();
equal(w.title(), "Parametri societate");
equal(w.tabs(), ["Societate", "Exercitiu", "Conturi", "Jurnale"]);
equal([w.tooltip("cmdSalvare"), w.tooltip("cmdCancel")], ["Salvare modificari", "Inchidere fereastra"]);
check(w.hasFocus("Text1(0)"), "the name has the focus");
noMessage();
shot("gol");

// Identity: the boxes are checked when they are left, the name when it is saved.
w.type("Text1(3)", "RO123");
equal(w.text("lblStare"), "Modificat, nesalvat");
refused("Salvarea nu se poate efectua. Introduceti o denumire pentru societatea curenta !",
        {title: "Configurare societate", icon: "critical"});
check(w.hasFocus("Text1(0)"));
equal(info("CODFISCAL").CODFISCAL, null, "nothing is stored");
w.type("Text1(0)", "ALFA SRL");
const numbers = {5: "capitalul social", 6: "forma de proprietate", 7: "codul CAEN"};
for (const box in numbers) {
  const name = "Text1(" + box + ")";
  replied("OK", () => w.type(name, "1x"), "Va rugam introduceti o valoare numerica pentru " + numbers[box] + " !", {icon: ""});
  check(w.hasFocus(name), "the focus stays in " + name);
  w.type(name, box === "5" ? "1234.5" : "35");
}
replied("OK", () => w.type("Text1(8)", "x"), "Va rugam completati D (de la DA) sau N (de la NU) !");
check(w.hasFocus("Text1(8)"));
refused("Va rugam completati D (de la DA) sau N (de la NU) !");
w.type("Text1(8)", "d");
equal(w.text("Text1(8)"), "D");
for (const [name, text] of [["Text1(9)", "Str. Lunga"], ["Text1(18)", "a@b.ro"], ["Text1(28)", "c@d.ro"],
                            ["txtBanca", "BANCA"], ["txtContBancar", "RO49"]])
  w.type(name, text);
equal([w.isEnabled("Option1"), w.isEnabled("Option2")], [true, true]);
w.set("chkModAudio", true);
w.click("cmdSalvare");
noMessage();
equal(w.text("lblStare"), "");
equal(info("DENUMIRE, CODFISCAL, CAPSOC, FP, PLATITVA, STRADA1, EMAIL1, EMAIL2, BANCA, CONTBANCAR, TCOST"),
      {DENUMIRE: "ALFA SRL", CODFISCAL: "RO123", CAPSOC: 1234.5, FP: 35, PLATITVA: "D", STRADA1: "Str. Lunga",
       EMAIL1: "a@b.ro", EMAIL2: "c@d.ro", BANCA: "BANCA", CONTBANCAR: "RO49", TCOST: null});
equal(par("MODAUDIO").MODAUDIO, -1);
check(w.isEnabled("Option1"), "no method was chosen yet");

// The cost method is chosen once.
w.set("Option1", true);
w.click("cmdSalvare");
equal(info("TCOST").TCOST, "FIFO");
equal([w.isEnabled("Option1"), w.isEnabled("Option2"), w.value("Option1")], [false, false, true]);
shot("societate");

// Closing discards changes; Esc closes; the window shows the stored values again.
w.type("Text1(0)", "ALTA SRL");
w.press("Text1(0)", "Esc");
check(!isOpen("frmParamSoc"));
open();
equal([w.text("Text1(0)"), w.text("Text1(5)"), w.isEnabled("Option2")], ["ALFA SRL", "1234,5", false]);

// A wrong number does not prevent closing.
replied("OK", () => w.type("Text1(5)", "abc"), "Va rugam introduceti o valoare numerica pentru capitalul social !");
w.click("cmdCancel");
check(!isOpen("frmParamSoc"));
noMessage();
open();

// Fiscal years: a date warns and remains, saving refuses.
w.tab("Exercitiu");
equal(w.value("DTPicker1(3)"), "2027-12-31");
replied("OK", () => w.set("DTPicker1(0)", "2027-02-01"),
        "Data de inceput a exercitiului trebuie sa fie mai mica decat data de sfarsit!", {icon: ""});
equal(w.value("DTPicker1(0)"), "2027-02-01");
equal(w.text("lblStare"), "Modificat, nesalvat");
refused("Data de inceput a exercitiului trebuie sa fie mai mica decat data de sfarsit ! Salvarea nu se poate efectua !",
        {title: "Validare", icon: ""});
check(w.hasFocus("DTPicker1(0)"));
w.type("DTPicker1(0)", "2026-01-01");
noMessage();

// Saving from a date that is not completely typed shows one message.
w.press("DTPicker1(5)", "0");
for (const digit of "10125") key(digit);
refused("Data de inceput a perioadei de culegere trebuie sa fie mai mica decat data de sfarsit ! " +
        "Salvarea nu se poate efectua !", {title: "Validare"});
equal(w.value("DTPicker1(5)"), "2025-01-01");
noMessage();
w.type("DTPicker1(5)", "2026-12-31");

replied("OK", () => w.type("DTPicker1(5)", "2028-01-01"), "Perioada de culegere trebuie sa fie cuprinsa in exercitiul N ,N+1!");
refused("Perioada de culegere trebuie sa fie cuprinsa in exercitiul N, N+1 ! Salvarea nu se poate efectua !");
equal(par("DATASC").DATASC, "2026-12-31");
w.type("DTPicker1(5)", "2026-03-31");
w.click("cmdSalvare");
noMessage();
equal(par("DATASC").DATASC, "2026-03-31");
check(call("InPerioadaCulegere", "2026-04-01"), "the parameters read before remain in effect");
shot("exercitiu");

// Accounts: box and list are synchronized.
w.press("DTPicker1(0)", "Ctrl+PgDown");
equal(w.text("lblStare"), "");
equal([w.text("txtConfig(0)"), w.text("cboCont(0)")], ["401", "401-Furnizori"]);
w.pick("cboCont(0)", "404-Furnizori de imobilizari");
equal(w.text("txtConfig(0)"), "404");
replied("OK", () => w.pick("cboCont(0)", "40-Furnizori si conturi asimilate"), "Va rugam selectati un cont corespunzator (minim 3 caractere) !");
equal([w.text("txtConfig(0)"), w.text("cboCont(0)")], ["404", "404-Furnizori de imobilizari"]);
replied("OK", () => w.type("txtConfig(0)", "4011x"), "Contul 4011x nu exista !");
equal([w.text("cboCont(0)"), w.hasFocus("txtConfig(0)")], ["", true]);
w.type("txtConfig(0)", "401");
equal(w.text("cboCont(0)"), "401-Furnizori");
w.press("cboCont(2)", "Ctrl+A");
for (const letter of "imobiliz") key(letter);
replied("OK", () => key("Tab"), "imobiliz nu este in lista !");
equal([w.text("txtConfig(2)"), w.hasFocus("cboCont(2)")], ["408", true], "no account given");
w.pick("cboCont(2)", "408-Furnizori - facturi nesosite");
replied("OK", () => w.type("txtNrZecimale", "doi"), "Valoarea trebuie sa fie numerica");
w.type("txtNrZecimale", "3");

// Number ranges.
const invoices = {title: "Facturi Client--Atentie !", icon: ""};
function range(start, end, series) {
  w.type("Text3(0)", start);
  w.type("Text3(1)", end);
  w.type("txtSeriaFC", series);
}
range("100", "200", "AB1");
refused("Introduceti numai litere pentru Serie !", invoices);
check(w.hasFocus("txtSeriaFC"));
range("100", "200", "AB");
w.type("txtSeriaAE", "AE");
refused("Verificati plaja de numere si seria introduse!", {title: "Avize de Expeditie--Atentie !"});
check(w.hasFocus("Text3(2)"));
equal([par("FCSTART").FCSTART, info("NRZEC").NRZEC], [null, 2], "nothing of the tab is stored");
w.type("txtSeriaAE", "");
w.set("optStornareNegru", true);
w.click("cmdSalvare");
noMessage();
equal(par("SERIEFC, FCSTART, FCEND, SERIEAE"), {SERIEFC: "AB", FCSTART: "100", FCEND: "200", SERIEAE: null});
check(par("STORNARENEGRU").STORNARENEGRU !== 0);
equal(info("NRZEC").NRZEC, 3);
shot("conturi");

// Journals and the register.
w.tab("Jurnale");
check(w.items("cboJurnal(0)").includes("OD-Jurnal operatii diverse"));
check(!w.items("cboJurnal(0)").some((item) => item.startsWith("RC-")), "no cash journals");
w.pick("cboJurnal(0)", "JCN-Jurnal de cumparari - nevoile firmei");
equal([w.text("txtDoc(0)"), w.text("txtDoc(4)"), w.text("txtDoc(5)")], ["JCN", "AE", "BI"]);
equal(w.tooltip("TextCM"), "A-Activa,D-Datecs,O-Optima,P-Partner");
w.type("TextCM", "d");
w.type("TextNrCaracter", "22");
w.click("cmdSalvare");
equal(par("JURFACFUR, JURAVIZ, CASAMARCAT, CASAMARCAT_NR"),
      {JURFACFUR: "JCN", JURAVIZ: "AE", CASAMARCAT: "D", CASAMARCAT_NR: 22});
shot("jurnale");

// The parameters take effect when the window is closed.
w.close();
check(!call("InPerioadaCulegere", "2026-04-01"));

// A change of plan takes effect at once and saves the current tab and the accounts.
open();
check(w.value("optGeneral"));
w.type("Text1(1)", "SRL");
w.set("optBugetar", true);
noMessage();
equal(info("PLANC, TIP"), {PLANC: 1, TIP: "SRL"});
equal(par("CONTFURNIZORI, CONTCLIENTI, CONTNIR, CONTAVIZEXP_P, FCSTART"),
      {CONTFURNIZORI: "234", CONTCLIENTI: "225", CONTNIR: null, CONTAVIZEXP_P: null, FCSTART: "100"});
w.tab("Conturi");
equal([w.text("cboCont(0)"), w.text("txtConfig(2)"), w.text("cboCont(2)")], ["234-Furnizori", "", ""]);
w.tab("Societate");
w.set("optObstesc", true);
equal(par("CONTFURNIZORI, CONTAVIZEXP_P"), {CONTFURNIZORI: "401", CONTAVIZEXP_P: "354"});

// A fault in the accounts is reported after the change, at its field.
w.tab("Conturi");
w.type("Text3(2)", "5");
w.tab("Societate");
replied("OK", () => w.set("optGeneral", true), "Verificati plaja de numere si seria introduse!", {title: "Avize de Expeditie--Atentie !"});
check(w.hasFocus("Text3(3)"));
equal(info("PLANC").PLANC, 0);

// Another user posts: the change is refused and the choice is disabled.
sql("INSERT INTO kt_linii (NDI, NRLINIE, CONT) VALUES (1, 1, '371')");
w.tab("Societate");
answer("OK");
w.set("optBugetar", true);
equal(messages().length, 1);
equal([w.value("optGeneral"), w.isEnabled("optBugetar")], [true, false]);
equal(info("PLANC").PLANC, 0);
equal(sql("SELECT COUNT(*) AS N FROM kt_pc WHERE CONT = '401'")[0].N, 1);
w.close();
open();
equal([w.isEnabled("optGeneral"), w.isEnabled("Option1")], [false, false]);

// Another user chooses the method while this window still offers it.
company({method: ""});
open();
w.type("Text1(0)", "BETA SRL");
w.set("Option1", true);
sql("UPDATE kt_info SET TCOST = 'MP'");
answer("OK");
w.click("cmdSalvare");
equal(messages().length, 1);
equal(info("TCOST").TCOST, "MP");
equal([w.value("Option2"), w.isEnabled("Option1")], [true, false]);
w.click("cmdSalvare");
noMessage();
equal(info("DENUMIRE, TCOST"), {DENUMIRE: "BETA SRL", TCOST: "MP"});
