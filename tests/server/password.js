// A server that wants TLS and a password: the password is asked for at login, again after a wrong one, and kept
// only until the program ends.
setToday("2026-03-15");
const folder = paths().databases;
const settings = (tls, host = "127.0.0.1") => writeFile(folder + "/Server.ini",
    `[General]\nhost=${host}\nport=${server("port")}\nuser=velmar\ntls=${tls}\n`);

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

// Choosing the folder of a server on another machine offers to verify it by its certificate.
server("pause");
server("resume");
settings("require", "127.0.0.2");
const certificate = paths().drive + "/velmar.crt";
writeFile(certificate, server("certificate") + "\n");
start("");
login = win("frmLogin");
const choose = (...answers) => {
  file(folder + "/Server.ini");
  ["Da", ...answers].forEach((each) => answer(each));
  file(certificate);
  login.click("cmdCauta");
  expectMessage("Programul nu verifica daca serverul 127.0.0.2 este cel adevarat.\r\nDoriti sa alegeti certificatul cu care sa fie verificat ?");
};
choose();
question = win("frmParola");
question.type("txtParola", "parola");
question.press("txtParola", "Enter");
equal(login.text("Label1"), folder);
check(/tls=verify-full\n/.test(readFile(folder + "/Server.ini")));
equal(readFile(folder + "/Server.crt"), readFile(certificate));
file(folder + "/Server.ini");
login.click("cmdCauta");
noMessage();

// Another server in its place, with a certificate of its own, gets no password, which it would have accepted.
server("pause");
server("resume", "impostor");
answer("OK");
file(folder + "/Server.ini");
login.click("cmdCauta");
expectMessage("Certificatul serverului nu este cel asteptat, poate raspunde alt server. Parola nu a fost trimisa.");
settings("require", "127.0.0.2");
choose("OK");
expectMessage("Certificatul serverului nu este cel asteptat");
check(/tls=require\n/.test(readFile(folder + "/Server.ini")), "what cannot be verified is not configured");
answer("Nu");
answer("OK");
file(folder + "/Server.ini");
login.click("cmdCauta");
expectMessage("Programul nu verifica daca serverul 127.0.0.2");
expectMessage("Serverul de baze de date nu dovedeste ca este cel adevarat, asa ca parola nu i-a fost trimisa.");
check(!isOpen("frmParola"), "nobody is asked for the password either");
settings("prefer", "127.0.0.2");
file(folder + "/Server.ini");
answer("Nu");
login.click("cmdCauta");
expectMessage("Programul nu verifica daca serverul 127.0.0.2");
check(!isOpen("frmParola"), "this server accepts the password that it gets");
login.click("cmdIesire");
noMessage();
