// Entering lines with the keyboard: values accepted and refused, and moving on after each.
setToday("2026-03-15");
company();
sql("INSERT INTO kt_ter (COD, NUME, TIP) VALUES (?, ?, ?)", 1, "FURNIZOR UNU", "F");
for (const [code, name, unit] of [["A1", "ARTICOL UNU", "Buc"], ["A2", "ARTICOL DOI", "Kg"]])
  sql("INSERT INTO G_ARTMAG (CODART, DENART, UM, COTATVA, PROVENIENTA, FAMART) VALUES (?, ?, ?, ?, ?, ?)",
      code, name, unit, 1, "M", 1);

menu("mnuBonIntr");
const w = win("frmGRILABonIntr");
w.type("txtFields(0)", "1");
w.pick("DataCombo1", "FURNIZOR UNU");
equal(w.text("txtFields(1)"), "1");
w.type("txtFields(2)", "19");
w.set("dtpDataDoc", "2026-03-10");
equal(w.value("dtpDataDoc"), "2026-03-10");
w.click("cmdSalvare");
equal(sql("SELECT NUMNR, CODFUR, DATANR FROM G_BONINT"), [{ NUMNR: "1", CODFUR: 1, DATANR: "2026-03-10" }]);

// The empty row for the next line is not a line.
const lines = w.grid("TDBGrid1");
equal(lines.rows(), 0);
equal(lines.columns().slice(0, 5), ["NRLINIE", "CODART", "DENUMIRE", "UM", "CANT"]);
equal(lines.captions()[1], "Cod articol");

// Codes are case insensitive, numbers have a point or comma; shown in Romanian format. 2.5 x 1234.5 = 3086.25
equal(lines.addLine("a1", "2.5"), 0);
equal([lines.cell(0, "CODART"), lines.cell(0, "denumire"), lines.cell(0, "UM")], ["A1", "ARTICOL UNU", "Buc"]);
equal(lines.cell(0, "CANT"), "2,500");
check(lines.enter(0, "PRETFT", "1234,5"));
equal([lines.cell(0, "PRETFT"), lines.cell(0, "VALOAREFT")], ["1.234,50", "3.086,25"]);
equal(lines.footer("VALOAREFT"), "3.086,25");

// Computed cells are locked.
equal([lines.isLocked(0, "VALOAREFT"), lines.isLocked(0, "CANT")], [true, false]);
equal(lines.enter(0, "VALOAREFT", "1"), false);
check(lines.colour(0, "VALOAREFT").back !== lines.colour(0, "CANT").back);

// A refused cell keeps its text and the focus; typing continues in it.
equal(lines.enter(-1, "CODART", "ZZZ"), false);
equal(openCount("frmMsgBox"), 1);
expectMessage("ZZZ");
win("frmMsgBox").click("cmdBtn(0)");
equal(lines.cell(-1, "CODART"), "ZZZ");
check(w.hasFocus("TDBGrid1"));
equal(lines.rows(), 1);
check(lines.enter(-1, "CODART", "A2"));
equal(lines.rows(), 2);

// Esc restores the old value.
answer("OK");
equal(lines.enter(1, "CANT", "-4"), false);
equal(messages().length, 1);
key("Esc");
check(lines.enter(1, "CANT", 4));
equal(lines.column("CANT"), ["2,500", "4,000"]);
noMessage();

lines.select(0);
lines.deleteRow(0);
equal(lines.column("CODART"), ["A2"]);
equal(sql("SELECT CODART, CANT FROM G_LBONINT"), [{ CODART: "A2", CANT: 4 }]);
