// Keyboard operation: questions before unsaved input is left, Enter and Tab order, access keys, and how
// windows and columns share the screen.
const year = today().substring(0, 4);
const kCard = "Fisa a fost modificata. Salvati modificarile ?";

company({ method: "MP" });
sql("INSERT INTO kt_ter (COD, NUME, TIP) VALUES (1, 'FURNIZOR UNU', 'F'), (40, 'GEMEN SRL', 'C'), (41, 'GEMEN SRL', 'C'), (42, 'ALFA SRL', 'C'), (43, 'CASA', 'F')");
sql("INSERT INTO G_FAMART (COD, DENUMIRE, CONTSTOCMARFA, CONTCHELT, CONTVEN) VALUES (1, 'Marfuri', '371', '607', '707')");
for (const code of ["A1", "A2", "A3"])
  sql("INSERT INTO G_ARTMAG (CODART, DENART, FAMART, UM, CODFURNIZO, COTATVA, COST, PRETVFT, STOC, FARASTOC, PROVENIENTA) " +
      "VALUES (?, ?, 1, 'Buc', 1, 19, 10, 20, 100, 0, 'M')", code, "Articolul cu un nume destul de lung incat nu incape " + code);

// A partner's card: Enter in the last field stores it, a changed card is not left without a question.
menu("mnuTabeleClienti");
let w = win("frmTerti");
let grid = w.grid("grdDataGrid");
const name = (code) => sql("SELECT NUME FROM kt_ter WHERE COD = ?", code)[0].NUME;
grid.select(0);
w.tab("Fisa Tert");
w.press("cboIDAngajator", "Enter");
check(w.hasFocus("cmdAdauga"), "behind the last field what stores the card, not \"|<\"");
w.click("cmdNext");
w.click("cmdPrev");
noMessage();
w.type("txtFields(1)", "ALFA DOI SRL");
answer("Renuntare");
w.click("cmdNext");
expectMessage(kCard, { buttons: ["Da", "Nu", "Renuntare"] });
equal(w.text("txtFields(1)"), "ALFA DOI SRL", "all as typed");
answer("Renuntare");
w.close();
expectMessage(kCard);
check(isOpen("frmTerti"), "the window remains open");
answer("Renuntare");
w.click("cmdAdauga");
expectMessage(kCard);
w.tab("Lista Terti");
answer("Renuntare");
grid.select(2);
expectMessage(kCard);
w.tab("Fisa Tert");
equal([w.text("txtFields(0)"), w.text("txtFields(1)")], ["42", "ALFA DOI SRL"], "the list is reset too");
w.tab("Lista Terti");
answer("Da");
grid.select(2);
expectMessage(kCard);
w.tab("Fisa Tert");
equal([name(42), w.text("txtFields(1)")], ["ALFA DOI SRL", "GEMEN SRL"], "stored, and the selected row is shown");
w.type("txtFields(1)", "");
answer("Da", "OK");
answer("OK");
w.click("cmdPrev");
expectMessage(kCard);
expectMessage("Va rugam introduceti numele societatii");
equal(w.text("txtFields(0)"), "41", "refused: the user stays");
answer("Nu");
w.click("cmdPrev");
expectMessage(kCard);
equal([name(41), w.text("txtFields(0)")], ["GEMEN SRL", "40"], "discarded");
w.click("cmdAdauga");
w.type("txtFields(1)", "BETA SRL");
answer("Da");
w.click("cmdFirst");
expectMessage(kCard);
equal([sql("SELECT COUNT(*) AS N FROM kt_ter WHERE NUME = 'BETA SRL'")[0].N, w.text("txtFields(1)")], [1, "ALFA DOI SRL"], "added");
w.close();
noMessage();

// The same for an article; searches without a result show a message.
menu("mnuTabeleArticole");
w = win("frmArticole");
grid = w.grid("grdDataGrid");
grid.select(0);
w.tab("Articol Detalii");
w.type("txtCamp(2)", "Scaun");
answer("Nu");
w.click("cmdLast");
expectMessage(kCard);
equal([w.text("txtControl"), sql("SELECT COUNT(*) AS N FROM G_ARTMAG WHERE DENART = 'Scaun'")[0].N], ["A3", 0]);
w.close();
for (const [entry, window, found] of [["mnumnuTabelemnuTabPC", "frmPC", "clienti"], ["mnuJurnale", "frmJurnale", "j"]]) {
  menu(entry);
  w = win(window);
  check(w.tooltip("txtCautare").toLowerCase().includes("titlu"), "shows where it searches");
  w.type("txtCautare", found);
  noMessage();
  w.type("txtCautare", "nimic");
  check(w.text("lblStare").includes("nimic"), "shown during typing");
  answer("OK");
  w.press("txtCautare", "Enter");
  expectMessage("Nu exista inregistrari care sa inceapa cu nimic !");
  w.close();
}

// A voucher: keys of commands, cells and boxes.
menu("mnuBonIntr");
w = win("frmGRILABonIntr");
let lines = w.grid("TDBGrid1");
w.type("txtFields(0)", "1");
w.pick("DataCombo1", "FURNIZOR UNU");
w.press("txtFields(3)", "Ctrl+S");
equal(sql("SELECT COUNT(*) AS N FROM G_BONINT")[0].N, 1, "Ctrl+S");
lines.addLine("A1", "2");
key("Esc");
lines.select(0);
key("Down");
["A", "2", "Enter", "5", "Enter", "A", "3", "Enter", "7", "Enter"].forEach((each) => key(each));
key("Esc");
equal(sql("SELECT CODART, CANT FROM G_LBONINT ORDER BY NRLINIE"),
      [{ CODART: "A1", CANT: 2 }, { CODART: "A2", CANT: 5 }, { CODART: "A3", CANT: 7 }], "Down, then codes and quantities with Enter");
key("Ctrl+Tab");
check(!w.hasFocus("TDBGrid1"), "Ctrl+Tab leaves from any cell");
lines.select(0);
for (let i = 0; i < 40 && w.hasFocus("TDBGrid1"); ++i) key("Tab");
check(!w.hasFocus("TDBGrid1"), "Tab leaves behind the last cell");
check(w.hasFocus("txtFields(0)"), "to the next control");

// The header of a draft is kept or discarded after a question; a new document asks nothing.
const header = (number) => sql("SELECT OBS FROM G_BONINT WHERE NUMNR = ?", number)[0].OBS;
const kHeader = "Antetul documentului 1 a fost modificat. Salvati modificarile ?";
const draft = (number) => w.grid("TDBGrid2").select(w.grid("TDBGrid2").column("NUMNR").indexOf(number));
key("Ctrl+N");
noMessage();
w.type("txtFields(0)", "2");
w.pick("DataCombo1", "FURNIZOR UNU");
w.click("cmdSalvare");
w.click("cmdFacturaNoua");
w.type("txtFields(0)", "3");
draft("1");
noMessage();
equal(w.text("txtFields(0)"), "1");
draft("2");
draft("1");
noMessage();
w.type("txtFields(3)", "Observatie");
answer("Renuntare");
draft("2");
expectMessage(kHeader, { buttons: ["Da", "Nu", "Renuntare"] });
equal([w.text("txtFields(0)"), w.text("txtFields(3)")], ["1", "Observatie"], "all as typed");
answer("Renuntare");
w.close();
expectMessage(kHeader);
answer("Da");
draft("2");
expectMessage(kHeader);
equal([header("1"), w.text("txtFields(0)")], ["Observatie", "2"], "stored, then the other draft");
draft("1");
w.set("dtpDataDoc", (Number(year) + 1) + "-01-01");
answer("Da");
answer("OK");
w.click("cmdFacturaNoua");
expectMessage(kHeader);
expectMessage("Data document trebuie sa fie in intervalul: 01/01/" + year + "-31/12/" + year);
equal([w.text("txtFields(0)"), w.value("dtpDataDoc")], ["1", (Number(year) + 1) + "-01-01"], "refused: the user stays");
answer("Nu");
w.click("cmdFacturaNoua");
expectMessage(kHeader);
draft("2");
w.press("cmdSterge", "Enter");
key("n");
expectMessage("", { answered: "Nu" });
w.press("cmdSterge", "Enter");
key("d");
expectMessage("", { answered: "Da" });
equal(sql("SELECT NUMNR FROM G_BONINT"), [{ NUMNR: "1" }], "Enter presses a button, D and N answer");
w.close();

// Equal partner names are distinguished, a new partner is returned to the document, sums fit a small screen.
menu("mnuVanzFactura");
win("frmGrilaFC2").click("cmdAE");
w = win("frmGrilaFC");
w.pick("DataCombo1", "GEMEN SRL (41)");
equal(w.text("txtFields(1)"), "41");
w.click("cmdAdaugaTert1");
let partners = win("frmTerti");
check(partners.text("txtFields(0)") === "" && partners.isVisible("txtFields(1)"), "an empty card");
partners.type("txtFields(1)", "GAMA SRL CU UN NUME CARE NU INCAPE IN LOCUL LUI DE SUB LISTA CLIENTILOR");
partners.click("cmdAdauga");
equal(name(w.text("txtFields(1)")).substring(0, 8), "GAMA SRL", "the new partner is in the invoice");
check(w.hasFocus("DataCombo1"), "the active window");
partners.close();
w.type("txtFields(0)", "1");
w.click("cmdSalvare");
lines = w.grid("TDBGrid1");
lines.addLine("A1", "5");
key("Esc");
w.shot("invoice");
w.close();
menu("mnuCasa");
w = win("frmGrilaCS");
w.click("cmdFacturaNoua");
noMessage();
w.grid("TDBGrid1").addLine("A1", "5");
key("Esc");
equal(w.text("lblDePlata"), w.grid("TDBGrid1").footer("VALOARETTI"), "the sum to pay");
w.shot("counter");

// Tiled windows keep the size that their contents need and can be scrolled.
for (const entry of ["mnuBonIntr", "mnuBonConsum", "mnuTabeleClienti", "mnuTabeleArticole"]) menu(entry);
for (const arrangement of ["mnuWindowTileHorizontal", "mnuWindowTileVertical", "mnuWindowCascade"]) {
  menu(arrangement);
  win("frmMain").shot(arrangement);
  for (const each of ["frmGRILABonIntr", "frmGRILABonConsum", "frmTerti"]) win(each).click(each === "frmTerti" ? "cmdCauta" : "cmdFacturaNoua");
  noMessage();
}

// Tab moves through all fields of a journal's window.
menu("mnumnuRapmnuRapJVT");
w = win("frmRapJVTVA");
w.press("DTPickerdela", "Tab");
for (let i = 0; i < 12 && !w.hasFocus("txtNRC"); ++i) key("Tab");
check(w.hasFocus("txtNRC"), "Tab reaches the number");
