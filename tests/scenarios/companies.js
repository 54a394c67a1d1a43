// The list of companies: adding, refusals, deleting, and working in a new company.
setToday("2026-03-15");
const folder = company();

menu("mnuCreare");
let list = win("frmSocietati");
equal(list.title(), "Lista Societati");
let grid = list.grid("TDBGrid1");
equal(grid.column("COD"), ["01"]);
equal(list.tooltip("txtCod"), "Cod alfanumeric, maxim 2 caractere");

function add(code, name) {
  list.type("txtCod", code);
  list.type("txtDenumire", name);
  list.click("cmdAdauga");
}

// Missing code and name are reported, with the focus in the box.
answer("OK");
add("", "BETA SRL");
expectMessage("Va rugam completati codul societatii  !");
check(list.hasFocus("txtCod"));
answer("OK");
add("b2", "   ");
expectMessage("Va rugam completati denumirea societatii  !");
check(list.hasFocus("txtDenumire"));

// The code is stored in upper case and is the file's name; the boxes are empty for the next one.
add("b2", " BETA SRL ");
equal(grid.column("COD"), ["01", "B2"]);
equal([grid.cell(1, "DENUMIRE"), grid.cell(1, "NUMEBD")], ["BETA SRL", "TarvonB2.mdb"]);
check(call("databaseExists", folder, "TarvonB2.mdb"));
equal([list.text("txtCod"), list.text("txtDenumire")], ["", ""]);

// The same code in any case is refused and the list is unchanged.
answer("OK");
add("B2", "GAMA");
expectMessage("Acest cod de societate exista deja ! Adaugarea nu se poate efectua !");
equal(grid.rows(), 2);
equal([list.text("txtCod"), list.text("txtDenumire")], ["", ""]);

// A code has at most two characters.
add("c34", "GAMA");
equal(grid.column("COD"), ["01", "B2", "C3"]);

// The first company cannot be deleted; the others are deleted with their file after confirmation.
grid.select(0);
answer("OK");
list.click("cmdSterge");
expectMessage("Societatea cu codul 01 nu se poate sterge !");
const question = "Sunteti sigur ca doriti sa stergeti societatea : C3 - GAMA si baza de date aferenta ?";
grid.select(2);
answer("Nu");
list.click("cmdSterge");
expectMessage(question, { title: "Confirmare stergere", icon: "question", buttons: ["Da", "Nu"] });
check(call("databaseExists", folder, "TarvonC3.mdb"));
equal(grid.rows(), 3);
answer("Alt+F4");
answer("Da");
list.click("cmdSterge");
expectMessage(question);
equal(grid.column("COD"), ["01", "B2"]);
check(!call("databaseExists", folder, "TarvonC3.mdb"));

// There is one window, however often the command is used; the exit button closes it.
menu("mnuCreare");
equal(openCount("frmSocietati"), 1);
list.click("cmdIesire");
check(!isOpen("frmSocietati"));
check(readFile(folder + "/Societat.xml").includes("TarvonB2.mdb"));

// A creation that ended between file and list is finished from the window.
writeFile(folder + "/Societat.xml", readFile(folder + "/Societat.xml").replace(/<z:row COD="B2"[^>]*>/, ""));
menu("mnuCreare");
list = win("frmSocietati");
equal(list.grid("TDBGrid1").column("COD"), ["01"]);
shot("companies-unlisted");
answer("Anulare");
list.click("cmdNelistate");
expectMessage("Baza de date TarvonB2.mdb (BETA SRL) nu este in lista societatilor.", {icon: "question"});
answer("Da");
list.click("cmdNelistate");
expectMessage("TarvonB2.mdb");
equal(list.grid("TDBGrid1").column("COD"), ["01", "B2"]);
check(!list.isVisible("cmdNelistate"));
list.click("cmdIesire");

// The new company is in the next login's list, with its name and its own users.
start(folder);
const login = win("frmLogin");
login.grid("TDBGrid1").select(1);
login.type("txtUserName", "admin");
login.type("txtPassword", "admin");
login.click("cmdOK");
win("frmSelMagazie").pick("DataCombo1", "Magazie 1");
win("frmSelMagazie").click("cmdOK");
equal(win("frmMain").title(), "Tarvon Velmar  - BETA SRL");
equal(sql("SELECT DENUMIRE FROM kt_info"), [{ DENUMIRE: "BETA SRL" }]);

// The open company cannot be deleted.
menu("mnuCreare");
list = win("frmSocietati");
list.grid("TDBGrid1").select(1);
answer("OK");
list.click("cmdSterge");
equal(messages().length, 1);
check(call("databaseExists", folder, "TarvonB2.mdb"));
equal(list.grid("TDBGrid1").column("COD"), ["01", "B2"]);
noMessage();
