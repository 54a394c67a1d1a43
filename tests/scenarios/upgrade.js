// The login offers to upgrade a company of another revision to this program's structure: refused, accepted,
// forced and failed.
setToday("2026-03-15");
const folder = company({ decimals: 3 });
const question = "Structura bazei de date Tarvon01.mdb trebuie actualizata !\r\n" +
                 " Doriti sa efectuati actualizarea acum ?";
const asked = { title: "Actualizare baza de date", icon: "question", buttons: ["Da", "Nu"] };
const done = "Actualizarea bazei de date s-a incheiat !";
const revision = () => sql("SELECT VERSIUNE FROM kt_info")[0].VERSIUNE;
const own = revision();

function logIn(button, password) {
  const login = win("frmLogin");
  login.type("txtUserName", "admin");
  login.type("txtPassword", password || "admin");
  login.click(button);
}

function leave() {
  win("frmSelMagazie").click("cmdIesire");
  noMessage();
}

// A company of another version, with a table of its own.
sql("UPDATE kt_info SET VERSIUNE = NULL, DENUMIRE = 'ALFA SRL'");
sql("ALTER TABLE kt_info DROP COLUMN EMAIL2");
sql("DROP VIEW qryTertiLinii");
sql("DROP TABLE G_UM");
sql("CREATE TABLE note_proprii (COD INTEGER)");
sql("INSERT INTO note_proprii (COD) VALUES (?)", 42);

// No: the user logs in with the old structure, and is asked again.
start(folder);
win("frmLogin").type("txtUserName", "admin");
win("frmLogin").type("txtPassword", "admin");
win("frmLogin").click("cmdOK");
check(isOpen("frmMsgBox") && isOpen("frmLogin"), "the question is shown over the login");
shot("question");
win("frmMsgBox").click("cmdBtn(1)");
expectMessage(question, asked);
check(isOpen("frmSelMagazie"));
equal(revision(), null);
leave();

// Yes, with a wrong password: the upgrade needs no user.
start(folder);
answer("Da");
answer("OK");
answer("OK");
logIn("cmdOK", "gresita");
expectMessage(question, asked);
expectMessage(done, { icon: "information", buttons: ["OK"], title: "Velmar" });
expectMessage("Parola nu este corecta !");
logIn("cmdOK");
check(isOpen("frmSelMagazie"));
noMessage();
equal(revision(), own);
equal(sql("SELECT DENUMIRE, NrZec, EMAIL2 FROM kt_info"), [{ DENUMIRE: "ALFA SRL", NRZEC: 3, EMAIL2: null }]);
equal(sql("SELECT COUNT(*) AS N FROM qryTertiLinii")[0].N, 0);
equal(sql("SELECT COD FROM note_proprii")[0].COD, 42);
equal(sql("SELECT COD FROM G_UM WHERE UM = 'Kg'"), [{ COD: "KGM" }], "a new table with rows");
leave();

// Nothing to do: no question, unless forced with the button or its key.
start(folder);
logIn("cmdOK");
leave();
start(folder);
answer("Nu");
logIn("cmdActualizare");
expectMessage(question, asked);
leave();
start(folder);
win("frmLogin").press("txtPassword", "`");
noMessage();
answer("Da");
answer("OK");
logIn("cmdOK");
expectMessage(question, asked);
expectMessage(done);

// A value that cannot be converted stops the upgrade, and the login continues.
sql("ALTER TABLE kt_info DROP COLUMN CAPSOC");
sql("ALTER TABLE kt_info ADD COLUMN CAPSOC VARCHAR(20)");
sql("UPDATE kt_info SET CAPSOC = ?, VERSIUNE = ?", "multi bani", own + 1);
leave();
start(folder);
answer("Da");
logIn("cmdOK");
shot("failure");
win("frmMsgBox").click("cmdBtn(0)");
expectMessage(question, asked);
expectMessage("Eroare in actualizarea bazei de date !\r\n", { icon: "" });
check(isOpen("frmSelMagazie"));
equal(revision(), own + 1);
noMessage();
