// From the splash to the main window: the list of companies, users and passwords, the working warehouse, and
// cancelling.
setToday("2026-03-15");
const folder = paths().databases;
check(!call("databaseExists", folder, "Tarvon01.mdb"));

function logIn(user, password) {
  const login = win("frmLogin");
  login.type("txtUserName", user);
  login.type("txtPassword", password);
  login.press("txtPassword", "Enter");
}

// A folder with only the template gets a list with one company, and its file.
start(folder);
check(isOpen("frmSplash"), "the splash is shown first");
let login = win("frmLogin");
check(!isOpen("frmSplash"));
equal(login.title(), "Selectie societate");
equal(login.text("Label1"), folder);
equal(login.grid("TDBGrid1").columns(), ["COD", "DENUMIRE", "NUMEBD"]);
equal(login.grid("TDBGrid1").rows(), 1);
equal(["COD", "DENUMIRE", "NUMEBD"].map((field) => login.grid("TDBGrid1").cell(0, field)),
      ["01", "SOCIETATE", "Tarvon01.mdb"]);
check(call("databaseExists", folder, "Tarvon01.mdb"));
check(readFile(folder + "/Societat.xml").includes("<z:row COD='01' DENUMIRE='SOCIETATE' NUMEBD='Tarvon01.mdb'/>"));
equal(login.tooltip("txtUserName"), 'Utilizator implicit: "admin"');
equal([login.text("txtUserName"), login.text("txtPassword")], ["", ""]);

// After an unknown user or a wrong password the dialog remains open with what was typed, any number of times.
for (let attempt = 1; attempt <= 4; ++attempt) {
  answer("OK");
  logIn("nimeni", "admin");
  expectMessage("Utilizatorul nimeni nu exista !", { icon: "critical", buttons: ["OK"], title: "Velmar" });
}
equal(login.text("txtUserName"), "nimeni");
answer("OK");
logIn("admin", "gresita");
expectMessage("Parola nu este corecta !", { icon: "critical" });
check(isOpen("frmLogin") && !isOpen("frmSelMagazie"));

// An apostrophe in a name is ignored.
login.type("txtUserName", "ad'min");
equal(login.text("txtUserName"), "admin");

// Entering the company: an empty table of warehouses gets its first one, which is not selected yet.
logIn("admin", "admin");
check(!isOpen("frmLogin"));
let warehouse = win("frmSelMagazie");
equal(warehouse.title(), "Selectie Magazie");
equal(warehouse.items("DataCombo1"), ["Magazie 1"]);
equal(warehouse.text("DataCombo1"), "Magazie 1");
replied("OK", () => warehouse.click("cmdOK"), "Va rugam alegeti o magazie pentru activitate!", { title: "Atentie!", icon: "" });
check(!isOpen("frmMain"));
warehouse.pick("DataCombo1", "Magazie 1");
equal(warehouse.text("Label2"), "Magazie 1");
warehouse.click("cmdOK");
equal(win("frmMain").title(), "Tarvon Velmar  - SOCIETATE");
check(win("frmMain").text("sbStatusBar").includes("Utilizator:ADMIN--Denumire magazie:Magazie 1"));
equal(sql("SELECT COD, DENUMIRE FROM G_MULTIMAGAZIE"), [{ COD: 1, DENUMIRE: "Magazie 1" }]);

// Each company has its own users; a user of type 2 can log in and has most of the menu disabled.
sql("INSERT INTO UTILIZATORI (NUME, PAROLA, TIP) VALUES (?, ?, ?)", "ANA", "mere", 2);
sql("INSERT INTO G_MULTIMAGAZIE (COD, DENUMIRE) VALUES (?, ?)", 2, "Depozit 12");
start(folder);
logIn("ana", "mere");
warehouse = win("frmSelMagazie");
equal(warehouse.items("DataCombo1"), ["Magazie 1", "Depozit 12"]);
warehouse.pick("DataCombo1", "Depozit 12");
warehouse.click("cmdOK");
check(win("frmMain").text("sbStatusBar").includes("Utilizator:ANA--Denumire magazie:Depozit 12"));
equal(["mnuFile", "mnumnuTabele", "mnuCumparari", "mnuVanzari", "mnuRap"].map((name) => menuState(name).enabled),
      [true, false, false, false, true]);

// Cancelling the login and the choice of the warehouse.
start(folder);
win("frmLogin").click("cmdIesire");
check(!isOpen("frmLogin") && !isOpen("frmSelMagazie") && !isOpen("frmMain"));
start(folder);
logIn("admin", "admin");
win("frmSelMagazie").click("cmdIesire");
check(!isOpen("frmSelMagazie") && !isOpen("frmMain"));

// If no folder was chosen, the program's folder with its template is used; another is found by its file.
start("");
login = win("frmLogin");
equal(login.text("Label1"), paths().app);
check(exists(paths().app + "/Tarvon01.mdb"));
file("");
login.click("cmdCauta");
equal(login.text("Label1"), paths().app);
login.click("cmdCauta");
equal(win("QFileDialog").text("lookInLabel"), "Folder:");  // the toolkit's own texts are Romanian too
win("QFileDialog").close();
writeFile(paths().drive + "/altele/alta.mdb", "x");
answer("OK");
file(paths().drive + "/altele/alta.mdb");
login.click("cmdCauta");
expectMessage("Eroare selectare BD!");
equal(login.text("Label1"), paths().app);
file(folder + (exists(folder + "/Server.ini") ? "/Server.ini" : "/Tarvon.mdb"));
login.click("cmdCauta");
equal(login.text("Label1"), folder);
logIn("ana", "mere");
check(isOpen("frmSelMagazie"), "ANA is known in that folder alone");
noMessage();
