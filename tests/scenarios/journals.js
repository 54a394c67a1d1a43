// The list of journals: the card, the checks of a new journal and of the cells, the VAT regime for its kind.
company();
const journal = code => sql("SELECT * FROM kt_jur WHERE COD = ?", code)[0];
const total = sql("SELECT COUNT(*) AS N FROM kt_jur")[0].N;
let w = menu("mnuJurnale", "frmJurnale");
let grid = w.grid("grdDataGrid");
equal(w.title(), "Jurnale");
equal(grid.captions(), ["Cod", "Titlu", "Cont", "Utilizabil", "Tip", "Banca", "Adresa", "Oras", "CP", "Cont Bancar", "Serie Chitante",
                        "Nr de la", "pana la", "Regim TVA"]);
equal(w.items("cboTip"), ["B (Banca)", "C (Cumparari)", "D (Diverse)", "R (Casa)", "V (Vanzari)", "I(Import)"]);
equal([w.items("CboFel").length, w.items("CboFel")[0], w.items("CboFel")[21]], [22, " -", "O-Casa-21"]);
grid.select(grid.column("COD").indexOf("BC"));
equal([w.text("txtCodJurnal"), w.text("txtTitluJurnal"), w.text("cboTip"), w.text("CboFel")],
      ["BC", journal("BC").TITLU, "D (Diverse)", " -"]);
check(w.text("cboCont").startsWith("607-"), "account with its title");
sql("UPDATE kt_pc SET NeUtilizabil = -1 WHERE CONT = '607'");
sql("UPDATE kt_jur SET CONT = 'lipsa' WHERE COD = 'BI'");
equal(["AE", "BC", "BI"].map(code => grid.cell(grid.column("COD").indexOf(code), "UTILIZABIL")), ["DA", "NU", ""]);
shot("journals-start");

w.press("grdDataGrid", "Insert");
equal(w.text("txtCodJurnal"), "");
const refused = (text, control) => {
  replied("OK", () => w.click("cmdAdauga"), text);
  check(w.hasFocus(control), "focus on " + control);
};
refused("Va rugam completati codul jurnalului  !", "txtCodJurnal");
w.type("txtCodJurnal", "b'c");
equal(w.text("txtCodJurnal"), "bc");
refused("Va rugam completati titlul  !", "txtTitluJurnal");
w.type("txtTitluJurnal", "Achizitii - nou");
refused("Va rugam selectati un cont", "cboCont");
w.pick("cboCont", w.items("cboCont").find(item => item.startsWith("40-")));
refused("Acest cod de jurnal exista deja ! Adaugarea nu se poate efectua !", "txtCodJurnal");
w.type("txtCodJurnal", "JX");
refused("Va rugam selectati un cont corespunzator (minim 3 caractere) !", "cboCont");
equal(sql("SELECT COUNT(*) AS N FROM kt_jur")[0].N, total);
w.pick("cboCont", w.items("cboCont").find(item => item.startsWith("401-")));
w.pick("cboTip", "C (Cumparari)");
w.pick("CboFel", "C-Bunuri scutite-4");
w.click("cmdAdauga");
equal([journal("JX").TITLU, journal("JX").CONT, journal("JX").TIP, journal("JX").FEL], ["Achizitii - nou", "401", "C", 4]);
const at = grid.column("COD").indexOf("JX");
equal(w.text("txtCodJurnal"), "JX");

// A regime for another kind of journal is not stored, all other values are.
w.pick("CboFel", "V-Bunuri taxabile-12");
w.type("txtTitluJurnal", "Achizitii");
w.click("CmdModificare");
equal([journal("JX").TITLU, journal("JX").TIP, journal("JX").FEL], ["Achizitii", "C", 4]);
equal(w.text("CboFel"), "C-Bunuri scutite-4");
w.pick("cboTip", "R (Casa)");
w.pick("CboFel", "O-Casa-21");
w.click("CmdModificare");
equal([journal("JX").TIP, journal("JX").FEL, journal("JX").CONT], ["R", 21, "401"]);
w.type("cboCont", "");
w.pick("cboTip", "V (Vanzari)");
w.pick("CboFel", "V-Bunuri scutite cu drept de deducere-19");
w.click("CmdModificare");
equal([journal("JX").TIP, journal("JX").FEL, journal("JX").CONT], ["V", 19, "401"]);

const cellRefused = (column, text, expected, more) => {
  const before = grid.cell(at, column);
  replied("OK", () => equal(grid.enter(at, column, text), false, column), expected, more);
  equal(grid.cell(at, column), before);
};
cellRefused("CONT", "40", "Introduceti un cont format din minim 3 caractere !");
cellRefused("NrInceput", "zece", "Va rog introduceti o valoare numerica!", {icon: "information"});
equal(grid.enter(at, "NrInceput", "100"), true);
cellRefused("NrSfarsit", "100", "Nr de la trebuie sa fie mai mic decat Nr pana la");
equal(grid.enter(at, "NrSfarsit", "199"), true);
cellRefused("NrInceput", "200", "Nr de la trebuie sa fie mai mic decat Nr pana la");
cellRefused("BANCA", "Banca Nationala pentru Comert Exterior SA", "prea lung");
equal(grid.enter(at, "CONT", "5311"), true);
equal(grid.enter(at, "BANCA", "Banca Comerciala"), true);
check(grid.isLocked(at, "COD") && grid.isLocked(at, "TIP") && grid.isLocked(at, "FEL"), "locked cells");
equal([journal("JX").NRINCEPUT, journal("JX").NRSFARSIT, journal("JX").CONT, journal("JX").BANCA],
      [100, 199, "5311", "Banca Comerciala"]);
shot("journals");

sql("INSERT INTO kt_linii (NDI, NRLINIE, JURNAL, CONT, DEBIT, CREDIT) VALUES (1, 1, 'JX', '5311', 1, 0)");
answer("Da");
replied("OK", () => w.click("cmdSterge"), "Sunteti sigur ca doriti sa stergeti jurnalul cu codul : JX ?", {title: "Confirmare stergere"});
expectMessage("Jurnalul nu se poate sterge deoarece este utilizat in Inregistrari !");
sql("DELETE FROM kt_linii");
// Deleted while it is being changed: the typed values remain on the card, but are not stored.
w.type("txtTitluJurnal", "Alt titlu");
sql("DELETE FROM kt_jur WHERE COD = 'JX'");
equal(w.text("lblStare"), "Inregistrarea a fost stearsa intre timp de alt utilizator !");
equal(w.text("txtTitluJurnal"), "Alt titlu");
w.click("CmdModificare");
equal(sql("SELECT COUNT(*) AS N FROM kt_jur WHERE TITLU = 'Alt titlu'")[0].N, 0);
grid.select(0);
const next = w.text("txtCodJurnal");

replied("Da", () => w.click("cmdSterge"), next + " ?");
equal(grid.rows(), total - 1);
noMessage();

w.close();
sql("DELETE FROM kt_pc");
w = menu("mnuJurnale", "frmJurnale");
equal(w.items("cboCont"), ["0-Nu exista inregistrari !"]);
w.type("txtCodJurnal", "JY");
w.pick("cboCont", "0-Nu exista inregistrari !");
refused("Va rugam selectati un cont corespunzator (minim 3 caractere) !", "cboCont");
