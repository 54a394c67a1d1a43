// The list of users: adding, deleting, cells; admin and one user with all rights always remain.
company();
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
