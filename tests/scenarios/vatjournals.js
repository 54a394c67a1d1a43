// The VAT journals through their windows: a period, the work tables, the pages.

const year = today().substring(0, 4);

company({denumire: "ATELIERUL SRL"});
sql("INSERT INTO kt_ter (COD, NUME, TIP, CODFISCAL) VALUES (1, 'ALFA SRL', 'C', 'RO11'), (2, 'BETA SA', 'M', 'RO22')");
const document = (id, partner, month, base, vat) =>
    sql("INSERT INTO G_DOCUME (ID, TIP, CODTERT, DATADOC, TOTALFT, TOTALTVA) VALUES (?, ?, ?, ?, ?, ?)", id, id.substring(0, 2), partner,
        year + "-" + month, base, vat);
document("FC10", 1, "02-03", 100, 19);
document("FS11", 2, "02-10", -50, -9.5);
document("BS3", 1, "02-04", 8.4, 1.6);
document("FC12", 1, "01-01", 1000, 190); // the first day itself is excluded
document("FF5", 2, "03-05", 200, 38);
document("FI6", 2, "03-02", 70, 0);

const flat = (path) => pdfText(path).replace(/\s+/g, " ");
const has = (text, ...parts) => parts.forEach((part) => check(text.includes(part), part + " in " + text));

let w = menu("mnumnuRapmnuRapJVT", "frmRapJVTVA");
equal([w.title(), w.text("frmOptiuni"), w.text("frmData")].map((text) => text.replace("&", "")),
      ["Jurnal de vanzare cu TVA", "Optiuni", "Perioada"]);
equal([w.text("txtNRC"), w.value("DTPickerdela"), w.value("DTPickerla")], ["1", year + "-01-01", year + "-12-31"], "the year");
equal(["cmdCalcul", "cmdVisualizare", "cmdAnulare"].map((name) => w.text(name).replace("&", "")), ["Calcule", "Listare", "Iesire"]);
check(!w.isVisible("cmdDesign"), "hidden");
w.press("cmdVisualizare", "P");
check(w.isVisible("cmdDesign"), "shown by P");
shot("frmRapJVTVA");

// Printing reads the ledger and does not change the table.
w.click("cmdVisualizare");
let files = printed();
equal(files.map((path) => path.replace(/.*\//, "")), ["Jvtva-1.pdf", "Jvtva-2.pdf"]);
let text = flat(files[1]);
has(text, "JURNAL PENTRU VANZARI", "01.01." + year + " - 31.12." + year, "ATELIERUL SRL", "FC10", "ALFA SRL", "RO11", "119,00", "100,00", "19,00",
    "FS11", "BETA SA", "-59,50", "-50,00", "-9,50", "BS3", "10,00", "TOTAL 69,50 58,40 11,10", "Pagina 1 din 1");
check(!text.includes("FC12"), "the first day");
equal(sql("SELECT COUNT(*) AS N FROM kt_jvt")[0].N, 0);

w.set("chkPrimaZi", true);
w.click("cmdVisualizare");
check(flat(printed()[1]).includes("FC12"), "the first day taken in");
w.set("chkPrimaZi", false);

// On the screen: the rows of the page with their sums, the way to the document, and the file.
w.type("txtNRC", "7");
w.click("cmdEcran");
let screen = win("frmEcran"), list = screen.grid("TDBGrid1");
equal([screen.title(), list.column("NRC"), list.column("NumarFactura"), list.column("TOTALDOC")],
      ["Jurnal de vanzare cu TVA", ["7", "8", "9"], ["FC10", "BS3", "FS11"], ["119,00", "10,00", "-59,50"]], "rows");
equal(["TOTALDOC", "TOTALFT", "TOTALTVA"].map((field) => list.footer(field)), ["69,50", "58,40", "11,10"], "sums");
shot("frmEcran");
file(paths().app + "/jurnal.csv");
screen.click("cmdExport");
equal(readFile(paths().app + "/jurnal.csv").split("\r\n")[1], "7;03.02." + year + ";FC10;ALFA SRL;RO11;119,00;100,00;19,00", "text file");
list.select(2);
screen.press("TDBGrid1", "Enter");
equal(win("frmLDoc").grid("grdParent").column("ID"), ["FS11"], "its document");
win("frmLDoc").close();
screen.close();

// The choices are kept, dates and the number are not. A ticked box subtracts the stornos.
equal(w.text("lblStorno"), "Stornari in perioada: 1");
w.set("chkStorno", true);
w.set("DTPickerdela", year + "-02-03");
w.click("cmdVisualizare");
has(flat(printed()[1]), "59,50 50,00 9,50", "TOTAL 69,50 58,40 11,10");
w.close();
w = menu("mnumnuRapmnuRapJVT", "frmRapJVTVA");
equal([w.value("chkStorno"), w.value("DTPickerdela"), w.text("txtNRC")], [true, year + "-01-01", "1"], "kept");
w.set("DTPickerla", year + "-03-31");
w.set("chkPrimaZi", true);
w.click("cmdImplicit");
equal([w.value("chkStorno"), w.value("chkPrimaZi"), w.value("DTPickerdela"), w.value("DTPickerla")], [false, false, year + "-01-01", year + "-12-31"], "as at first");

// The table, numbered from the given number.
w.type("txtNRC", "100");
w.click("cmdCalcul");
equal(sql("SELECT NRC, NDP FROM kt_jvt ORDER BY NRC").map((row) => [row.NRC, row.NDP]), [[100, "FC10"], [101, "BS3"], [102, "FS11"]]);
equal(w.text("lblStare"), "Jurnalul a fost calculat: 3 documente");
w.click("cmdVisualizare");
has(flat(printed()[0]), " 102 ");

// Invalid numbers, and a period without documents.
for (const wrong of ["0", "1.5", "40000"]) {
  w.type("txtNRC", wrong);
  replied("OK", () => w.click("cmdCalcul"), "Numarul curent de inceput trebuie sa fie un numar intreg intre 1 si 32767");
  check(w.hasFocus("txtNRC"), "focus on the number");
}
w.type("txtNRC", "");
w.set("DTPickerdela", year + "-06-01");
replied("OK", () => w.click("cmdCalcul"), "Nu exista inregistrari in perioada 01/06/" + year + " - 31/12/" + year);
replied("OK", () => w.click("cmdVisualizare"), "Nu exista inregistrari");
equal(sql("SELECT COUNT(*) AS N FROM kt_jvt")[0].N, 3, "the last calculation is kept");
equal(printed(), []);
w.click("cmdAnulare");
check(!isOpen("frmRapJVTVA"), "closed");

w = menu("mnumnuRapmnuJCT", "frmRapJCTVA");
equal(w.title(), "Jurnal de cumparare cu TVA");
w.click("cmdCalcul");
equal(sql("SELECT NRC, NDP FROM kt_jct ORDER BY NRC"), [{NRC: 1, NDP: "FI6"}, {NRC: 2, NDP: "FF5"}]);
w.click("cmdPrint");
files = printed();
equal(files.map((path) => path.replace(/.*\//, "")), ["Jctva-1.pdf"], "only the printer");
has(flat(files[0]), "JURNAL PENTRU CUMPARARI", "FI6", "70,00", "FF5", "238,00", "200,00", "38,00", "TOTAL 308,00 70,00 200,00 38,00");
w.click("cmdEcran");
screen = win("frmEcran");
list = screen.grid("TDBGrid1");
equal(["TOTALDOC", "NEIMPDOC", "BAZATVA", "TOTALTVA"].map((field) => list.footer(field)), ["308,00", "70,00", "200,00", "38,00"], "sums of the page");
screen.close();
w.click("cmdAnulare");

// Invoices in a currency are not rounded in lei: the printed amounts of 10.004 and 1.904 add up, the table is as the ledger.
for (const id of ["FC91", "FC92", "FC93"])
  sql("INSERT INTO G_DOCUME (ID, TIP, TIPIE, CODTERT, DATADOC, TOTALFT, TOTALTVA) VALUES (?, 'FC', 'E', 1, '2031-02-03', 10.004, 1.904)", id);
w = menu("mnumnuRapmnuRapJVT", "frmRapJVTVA");
w.set("DTPickerdela", "2031-01-01");
w.set("DTPickerla", "2031-12-31");
w.click("cmdCalcul");
equal(sql("SELECT TOTAL, BAZA1, TVA1 FROM kt_jvt")[0], {TOTAL: 11.908, BAZA1: 10.004, TVA1: 1.904});
w.click("cmdVisualizare");
has(flat(printed()[1]), "11,90 10,00 1,90", "TOTAL 35,70 30,00 5,70");
noMessage();
