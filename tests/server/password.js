// A server that wants TLS and a password: the password is asked for at login, again after a wrong one, and kept
// only until the program ends.
setToday("2026-03-15");
const folder = paths().databases;
const settings = (tls) => writeFile(folder + "/Server.ini",
    `[General]\nhost=127.0.0.1\nport=${server("port")}\nuser=velmar\ntls=${tls}\n`);

// A user who cancels returns to the login and can try again.
settings("require");
start(folder);
let question = win("frmParola");
equal(question.title(), "Parola server");
equal(question.text("Label1"), "Parola utilizatorului velmar pe serverul 127.0.0.1");
question.shot("parola");
key("Esc");
check(!isOpen("frmParola"));
win("frmLogin").click("cmdIesire");

start(folder);
question = win("frmParola");
answer("OK");
question.click("cmdOK");
expectMessage("Va rugam completati parola !", { icon: "exclamation" });
check(question.hasFocus("txtParola"));
answer("OK");
question.type("txtParola", "gresita");
question.click("cmdOK");
expectMessage("Serverul nu primeste aceasta parola. Incercati din nou.", { icon: "exclamation" });
question = win("frmParola");
equal(question.text("txtParola"), "");
question.type("txtParola", "parola");
question.press("txtParola", "Enter");
check(!isOpen("frmParola"));
let login = win("frmLogin");
equal(login.grid("TDBGrid1").column("NUMEBD"), ["Tarvon01.mdb"]);
check(!readFile(folder + "/Server.ini").includes("parola"), "nothing is stored");
login.type("txtUserName", "admin");
login.type("txtPassword", "admin");
login.press("txtPassword", "Enter");
check(!isOpen("frmParola"), "one question a run");
const warehouses = win("frmSelMagazie");
warehouses.pick("DataCombo1", warehouses.items("DataCombo1")[0]);
warehouses.click("cmdOK");
win("frmMain");
equal(sql("SELECT ssl FROM pg_stat_ssl WHERE pid = pg_backend_pid()").length, 1);
equal(sql("SELECT CASE WHEN ssl THEN 'da' ELSE 'nu' END AS TLS FROM pg_stat_ssl WHERE pid = pg_backend_pid()")[0].TLS, "da");
noMessage();

// A server without TLS is refused with a message if the settings require TLS, and accepted otherwise.
server("pause");
server("resume", "plain");
answer("OK");
start(folder);
login = win("frmLogin");
expectMessage("Serverul de baze de date nu primeste legaturi criptate (TLS), iar setarile le cer.");
login.click("cmdIesire");
settings("prefer");
start(folder);
login = win("frmLogin");
equal(login.grid("TDBGrid1").column("NUMEBD"), ["Tarvon01.mdb"]);
login.click("cmdIesire");
noMessage();
