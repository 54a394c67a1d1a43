// The file of the open company is taken away: nothing is reported as saved, and what was saved before can be
// kept in another file. A server has no such file.
const folder = company({ method: "MP" });
sql("INSERT INTO kt_ter (COD, NUME, TIP) VALUES (1, 'FURNIZOR UNU SRL', 'F')");
menu("mnuBonIntr");
const w = win("frmGRILABonIntr");

function header(number) {
  w.click("cmdFacturaNoua");
  w.type("txtFields(0)", number);
  w.pick("DataCombo1", "FURNIZOR UNU SRL");
  w.type("txtFields(2)", "19");
}

header("1");
w.click("cmdSalvare");
noMessage();
if (exists(folder + "/Tarvon01.mdb")) {
  header("2");
  removeFile(folder + "/Tarvon01.mdb");
  answer("OK");
  answer("Da");
  w.click("cmdSalvare");
  wait(300);
  const shown = messages().map((box) => box.text);
  check(/nu mai este la locul lui.*Nu s-a salvat nimic/.test(shown[0]), shown[0]);
  check(/Doriti sa le salvati acum in alta parte/.test(shown[1]), shown[1]);
  equal(w.text("txtFields(0)"), "2", "what was typed is kept");
  const save = win("frmSalvare");
  answer("OK");
  save.click("cmdOK");
  expectMessage("Salvare cu succes a bazei de date Tarvon01.mdb");
  const copy = save.text("txtCale").replace(/\\/g, "/");
  save.click("cmdIesire");
  check(exists(copy), copy);
}
