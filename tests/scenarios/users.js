// The list of users: adding, deleting, cells; admin and one user with all rights always remain. Passwords are
// shown only when asked for, and rights may apply to the tool bars.
const folder = company();
menu("mnuUtilizatori");
const w = win("frmUtilizatori");
const users = () => sql("SELECT NUME, PAROLA, TIP FROM UTILIZATORI ORDER BY NUME");
const refusedWith = (control, command, text) => {
  answer("OK");
  w.click(command);
  expectMessage(text, {icon: "critical"});
  if (control) check(w.hasFocus(control), "focus on " + control);
};
const grid = w.grid("grdDataGrid");
equal(w.title(), "Utilizatori");
equal(grid.captions(), ["Nume", "Parola", "Tip"]);
equal(w.items("cboTip"), ["0 (Toate)", "1 (Culegeri + raportari)", "2 (Raportari)"]);
equal(w.text("cboTip"), "0 (Toate)");
equal(w.text("txtNume"), "");
check(w.hasFocus("txtNume"), "ready for a name");
shot("users-start");

w.type("txtParola", "x");
refusedWith("txtNume", "cmdAdauga", "Va rugam introduceti numele !");
w.type("txtNume", "ADMIN");
w.type("txtParola", "   ");
refusedWith("txtParola", "cmdAdauga", "Va rugam introduceti parola !");
w.type("txtParola", "secret");
refusedWith("txtNume", "cmdAdauga", "Acest nume de utilizator exista deja ! Adaugarea nu se poate efectua !");
equal(users().length, 1);

w.type("txtNume", " ana12345678");
w.pick("cboTip", "2 (Raportari)");
w.click("cmdAdauga");
equal(users()[1], {NUME: "ana123456", PAROLA: "secret", TIP: 2});
equal([w.text("txtNume"), w.text("txtParola"), w.text("cboTip")], ["", "", "2 (Raportari)"]);
equal(grid.column("NUME"), ["admin", "ana123456"]);

answer("OK");
equal(grid.enter(0, "TIP", "1"), false);
expectMessage("Nu se poate modifica tipul pentru utilizatorul admin !", {icon: "critical"});
equal(grid.cell(0, "TIP"), "0");
equal(grid.enter(0, "PAROLA", "altul"), true);
answer("OK");
equal(grid.enter(1, "NUME", "Admin"), false);
expectMessage("exista deja");
answer("OK");
equal(grid.enter(1, "TIP", "doi"), false);
expectMessage("Tipul utilizatorului este 0, 1 sau 2 !");
equal(grid.enter(1, "TIP", "1"), true);
equal(grid.enter(1, "NUME", "Ana"), true);
equal(users(), [{NUME: "admin", PAROLA: "altul", TIP: 0}, {NUME: "Ana", PAROLA: "secret", TIP: 1}]);
shot("users");

// Passwords are dots in the list and while they are typed, and never on paper.
equal(grid.column("PAROLA"), ["\u2022".repeat(8), "\u2022".repeat(8)]);
check(!w.value("chkArataParole") && !w.value("chkDrepturiBare"), "both unticked at first");
w.set("chkArataParole", true);
equal(grid.column("PAROLA"), ["altul", "secret"]);
shot("users-passwords");
grid.selectMany([0, 1]);
key("Ctrl+P");
const paper = pdfText(printed()[0]);
check(paper.includes("admin") && !paper.includes("altul") && !paper.includes("\u2022"), paper);
w.set("chkArataParole", false);
equal(grid.cell(1, "PAROLA"), "\u2022".repeat(8));

grid.select(0);
refusedWith(null, "cmdSterge", "Utilizatorul admin nu se poate sterge !");
grid.select(1);
answer("Nu");
w.click("cmdSterge");
expectMessage("Sunteti sigur ca doriti sa stergeti utilizatorul : Ana ?", {title: "Confirmare stergere", icon: "question"});
equal(users().length, 2);
answer("Da");
w.click("cmdSterge");
expectMessage("Ana");
equal(users().length, 1);

// admin cannot be renamed; one renamed by an older program could be deleted, but no user with all rights would remain.
answer("OK");
equal(grid.enter(0, "NUME", "sef"), false);
expectMessage("Nu se poate modifica numele pentru utilizatorul admin !");
answer("OK");
equal(grid.enter(0, "PAROLA", "d'ana"), false);
expectMessage("Numele si parola nu pot contine apostrof !");
sql("UPDATE UTILIZATORI SET NUME = 'sef'");
w.press("grdDataGrid", "F5");
answer("Da");
answer("OK");
w.click("cmdSterge");
expectMessage("sef");
expectMessage("Cel putin un utilizator trebuie sa aiba toate drepturile !");
answer("OK");
equal(grid.enter(0, "TIP", "2"), false);
expectMessage("Cel putin un utilizator");
equal(users(), [{NUME: "sef", PAROLA: "altul", TIP: 0}]);
noMessage();
w.click("cmdIesire");
check(!isOpen("frmUtilizatori"), "closed");

// Rights apply to the menu, and to the tool bars once the company wants it.
function loginAs(user, password) {
  start(folder);
  const login = win("frmLogin");
  login.type("txtUserName", user);
  login.type("txtPassword", password);
  login.click("cmdOK");
  const warehouse = win("frmSelMagazie");
  warehouse.pick("DataCombo1", "Magazie 1");
  warehouse.click("cmdOK");
}
const opens = (window, bar, index) => {
  try {
    toolbar(bar, index);
  } catch (disabled) {
    return false;
  }
  const isShown = isOpen(window);
  if (isShown) win(window).close();
  return isShown;
};
sql("INSERT INTO UTILIZATORI (NUME, PAROLA, TIP) VALUES ('ION', 'x', 2)");
loginAs("ION", "x");
check(opens("frmParamSoc", "Toolbar", 1) && opens("frmArticole", "Toolbar", 7), "the bars ignore the rights");
loginAs("sef", "altul");
menu("mnuUtilizatori");
win("frmUtilizatori").set("chkDrepturiBare", true);
equal(sql("SELECT DREPTURIBARE FROM kt_par"), [{DREPTURIBARE: -1}]);
check(opens("frmArticole", "Toolbar", 7), "a user with all rights");
sql("INSERT INTO G_DOCUME (ID, TIP, TIPIE, DATADOC, CODMAG) VALUES ('FF1', 'FF', 'I', '2099-12-31', 1)");
answer("OK");
loginAs("ION", "x");
expectMessage("este inaintea ultimului document (31.12.2099)");
check(!opens("frmParamSoc", "Toolbar", 1) && !opens("frmArticole", "Toolbar", 7), "the bars follow the rights");
