// Saving, restoring and compacting the open company through the menu.
setToday("2026-03-15");
const folder = company({ denumire: "SOCIETATE" });
const backups = folder + "/Salv_Tarvon/";
const article = (code) => sql("INSERT INTO G_ARTMAG (CODART, DENART) VALUES (?, 'Scaun')", code);
const articles = () => sql("SELECT CODART FROM G_ARTMAG ORDER BY CODART").map((row) => row.CODART);

replied("OK", () => menu("mnuIntCompactare"), "Compactarea bazei de date Tarvon01.mdb s-a realizat cu succes !", { icon: "information" });

// Nothing to restore yet: the window shows this and creates the folder.
let restore = menu("mnuIntRestaurare", "frmRestaurare");
equal(restore.title(), "Restaurare baza de date ...");
check(restore.text("txtDirector").endsWith("Salv_Tarvon"));
check(!restore.isVisible("lblProgressMsg"));
restore.shot("restaurare-gol");
replied("OK", () => restore.click("cmdOK"), "Fisierul:  nu exista!", { icon: "exclamation" });
answer("OK");
file("");
restore.click("cmdGetSourceSpec1");
expectMessage("Nu exista directorul cu salvarile!", { icon: "exclamation" });
check(exists(backups));
restore.click("cmdIesire");
check(!isOpen("frmRestaurare"));

// Saving: the proposed name, refused folders, a folder made by its name.
article("A1");
let save = menu("mnuIntSalvare", "frmSalvare");
equal(save.title(), "Salvare baza de date");
const proposed = save.text("txtCale");
check(/Salv_Tarvon.SOCIETATE_Tarvon01_15\.03\.2026_\d\d\.\d\d\.mdb$/.test(proposed), proposed);
equal(save.tooltip("cmdOpen"), "Cautare catalog de slavare");
save.shot("salvare");
answer("OK");
save.type("txtCale", "");
save.click("cmdOK");
expectMessage("Va rog precizati directorul unde doriti sa salvati baza de date", { icon: "" });
check(save.hasFocus("txtCale"));
for (const path of [folder + "/alta/copie.mdb", "copie.mdb", "Salv_Tarvon/copie.mdb"]) {
  answer("OK");
  save.type("txtCale", path);
  save.click("cmdOK");
  expectMessage("Calea introdusa nu este valida", { icon: "information" });
}
answer("OK");
save.type("txtCale", folder + "/alta/salv_tarvon\\copie.mdb");
save.click("cmdOK");
expectMessage("Salvare cu succes a bazei de date Tarvon01.mdb", { icon: "information" });
check(/alta.salv_tarvon.SOCIETATE_Tarvon01_15\.03\.2026_\d\d\.\d\d\.mdb$/.test(save.text("txtCale")));
file(backups + "alt nume.mdb");
save.click("cmdOpen");
check(save.text("txtCale").endsWith("alt nume.mdb"));
replied("OK", () => save.click("cmdOK"), "Salvare cu succes a bazei de date Tarvon01.mdb");
const copy = save.text("txtCale");
check(exists(copy));
check(!exists(backups + "alt nume.mdb"));
save.click("cmdIesire");
check(!isOpen("frmSalvare"));

// An open list shows the restored company.
menu("mnuTabeleArticole");
article("A2");
equal(articles(), ["A1", "A2"]);
restore = menu("mnuIntRestaurare", "frmRestaurare");
file(copy);
restore.click("cmdGetSourceSpec1");
check(copy.endsWith(restore.text("txtSourceSpec1")));
restore.shot("restaurare");
replied("Nu", () => restore.click("cmdOK"), "Toate datele societatii", { icon: "question", buttons: ["Da", "Nu"] });
equal(articles(), ["A1", "A2"]);
answer("Da");
replied("OK", () => restore.click("cmdOK"), "(Tarvon01.mdb) vor fi inlocuite");
expectMessage("Restaurare cu succes a bazei de date", { icon: "" });
check(!isOpen("frmRestaurare"));
equal(articles(), ["A1"]);
equal(win("frmArticole").grid("grdDataGrid").column("CODART"), ["A1"]);
article("A3");
equal(articles(), ["A1", "A3"]);

// A file that is not a company is refused, and the company remains usable.
writeFile(backups + "stricata.mdb", "nu este o baza de date");
restore = menu("mnuIntRestaurare", "frmRestaurare");
restore.type("txtSourceSpec1", "stricata.mdb");
answer("Da");
answer("OK");
restore.click("cmdOK");
expectMessage("Toate datele societatii");
expectMessage("deteriorat");
equal([restore.isVisible("lblProgressMsg"), articles()], [false, ["A1", "A3"]]);
noMessage();
