// Spreadsheets of suppliers through the real windows: lines and new articles of invoices, the count of an import lot.

const year = today().substring(0, 4);

// An .xlsx file of stored parts: numbers are numbers, anything else is a text.
function workbook(path, rows) {
  const crc = (text) => {
    let sum = ~0;
    for (let i = 0; i < text.length; ++i) {
      sum ^= text.charCodeAt(i);
      for (let bit = 0; bit < 8; ++bit) sum = (sum >>> 1) ^ (sum & 1 ? 0xEDB88320 : 0);
    }
    return ~sum >>> 0;
  };
  const le = (value, bytes) => Array.from({length: bytes}, (_, i) => String.fromCharCode((value >>> (8 * i)) & 255)).join("");
  const cell = (value, row, column) => "<c r=\"" + String.fromCharCode(65 + column) + (row + 1) + "\"" +
      (typeof value === "number" ? "><v>" + value + "</v></c>" : " t=\"inlineStr\"><is><t>" + value + "</t></is></c>");
  const parts = {
    "xl/workbook.xml": "<workbook xmlns:r=\"r\"><sheets><sheet name=\"sheet1\" r:id=\"a\"/><sheet name=\"Alta\" r:id=\"b\"/></sheets></workbook>",
    "xl/_rels/workbook.xml.rels": "<R><Relationship Id=\"a\" Target=\"worksheets/s.xml\"/></R>",
    "xl/worksheets/s.xml": "<worksheet><sheetData>" + rows.map((cells, row) => "<row r=\"" + (row + 1) + "\">" +
        cells.map((value, column) => value === "" ? "" : cell(value, row, column)).join("") + "</row>").join("") + "</sheetData></worksheet>"};
  let body = "", index = "";
  for (const name of Object.keys(parts)) {
    const text = parts[name];
    const head = le(20, 2) + le(0, 8) + le(crc(text), 4) + le(text.length, 4) + le(text.length, 4) + le(name.length, 2) + le(0, 2);
    index += "PK\x01\x02" + le(20, 2) + head + le(0, 10) + le(body.length, 4) + name;
    body += "PK\x03\x04" + head + name + text;
  }
  const count = Object.keys(parts).length;
  writeFile(path, body + index + "PK\x05\x06" + le(0, 4) + le(count, 2) + le(count, 2) + le(index.length, 4) + le(body.length, 4) + le(0, 2));
}

// The columns of a table as they are named.
const table = (columns, rest, ...values) => sql("SELECT " + columns + " FROM " + rest, ...values).map((row) => columns.split(", ").map((column) => row[column]));

company({});
sql("INSERT INTO kt_ter (COD, NUME, TIP) VALUES (1, 'FURNIZOR SRL', 'F')");
sql("INSERT INTO G_FAMART (COD, DENUMIRE) VALUES (1, 'Marfuri')");
sql("INSERT INTO G_ARTMAG (CODART, ID, CODPRODFUR, DENART, UM, COTATVA, PROVENIENTA) VALUES ('00000007', 7, 'P-1', 'Caiet', 'Set', 9, 'M'), ('B-X', 8, 'ALT', 'Altul', 'Buc', 19, 'M')");
const rate = sql("SELECT COD FROM kt_cote WHERE PROCENT = 19 ORDER BY COD")[0].COD;
sql("INSERT INTO G_FACFUR (NUMFAC, DATAFAC, CODFUR, BATVA1, Magazie, OBS, VALIDAT) VALUES ('10', ?, 1, ?, 1, 'proba', 0)", year + "-03-01", rate);
const path = paths().app + "/preturi.xlsx";
workbook(path, [["cod", "DENUMIRE", "DENUMIRE2", "PRET", "CANTITATE", "ADAOS"],
                ["P-1", "Caiet", "Notebook", 10, 2, 0.2], [123, "Stilou\nalbastru", "", "12,5", 4, 0.25], ["P-3", "Guma", "", 1, 0, 0],
                ["", "Fara cod", "", 1, 1, 0], ["P-4", "", "", 1, 1, 0], ["P-5", "Creion", "", "scump", 1, 0], ["B-X", "Altfel", "", 1, 1, 0]]);

let w = menu("mnuCumpFactura", "frmGrilaFF");
w.click("cmdFacturaNoua");
replied("OK", () => w.click("cmdImport"), "Va rog selectati o factura");
w.grid("TDBGrid2").select(0);
const importing = (...answers) => { answers.forEach((each) => answer(each)); };
function opened() {
  w.click("cmdImport");
  return win("frmImportXLS");
}
let form = opened();
equal([form.title(), form.value("DataDoc"), form.value("chkDeviza"), form.isEnabled("txtCurs")], ["Import din fisier EXCEL", year + "-03-01", false, false]);
form.type("txtSourceSpec1", path);
replied("OK", () => form.click("cmdOK"), "Va rugam precizati familia");
form.pick("cboFamilie", "1-Marfuri");
form.set("CheckFam", true);
form.set("CheckCPF", true);
check(!form.value("CheckFam"), "one of the two");
shot("frmImportXLS");
form.type("txtSourceSpec1", paths().app + "/lipsa.xlsx");
replied("OK", () => form.click("cmdOK"), "nu poate fi deschis");
form.type("txtSourceSpec1", path);
importing("OK", "OK");
form.click("cmdOK");
const boxes = messages().map((box) => box.text);
equal(boxes.slice(-2), ["Articolul  nu poate fi importat\nArticolul P-4 nu are denumire\nArticolul P-5: pretul nu este un numar\nCodul B-X este al altui articol",
                        "Importul s-a realizat cu succes"], "rows left out, then the end");
equal(table("NRLINIE, CODART, UM, CANT, PRETFT, VALOAREFT, VALOARETVA, VALOARETTI, PRETVA", "G_LFACFU ORDER BY NRLINIE"),
      [[1, "00000007", "Set", 2, 10, 20, 1.8, 21.8, 12], [2, "123", "Buc", 4, 12.5, 50, 9.5, 59.5, 15.625]], "lines");
equal(sql("SELECT DENART FROM G_ARTMAG WHERE CODART = '123'")[0].DENART, "Stilou albastru", "a name is one line");
equal(table("CODART, ID, CODPRODFUR, FAMART, COSTDEV, PRETDEVIZAVANZ, COTATVA, CODFURNIZO", "G_ARTMAG WHERE ID > 8 ORDER BY ID"),
      [["123", 9, "123", 1, 12.5, 15.625, 19, 1], ["P-3", 10, "P-3", 1, 1, 1, 19, 1]], "new articles, also of a quantity of 0");
equal(sql("SELECT DENALTALIMBA FROM G_ARTMAG WHERE CODART = '00000007'")[0].DENALTALIMBA, "Notebook");
form.click("cmdIesire");
equal(w.grid("TDBGrid1").rows() >= 2, true, "shown");
replied("OK", () => w.click("cmdImport"), "Va rugam stergeti liniile de detalii inaintea importului, sau creati o factura noua");
w.close();

// A stop leaves everything as it was: an unknown family in the second row.
sql("INSERT INTO G_FACFUR (NUMFAC, DATAFAC, CODFUR, BATVA1, Magazie, OBS, VALIDAT) VALUES ('11', ?, 1, ?, 1, 'proba', 0)", year + "-03-02", rate);
workbook(path, [["COD", "CODI", "FAM", "DENUMIRE", "DENUMIRE2", "PRET", "CANTITATE", "ADAOS"], ["Q", "Q1", 1, "Nou", "", 1, 1, 0], ["R", "R1", 9, "Nou", "", 1, 1, 0]]);
w = menu("mnuCumpFactura", "frmGrilaFF");
w.grid("TDBGrid2").select(w.grid("TDBGrid2").column("NUMFAC").indexOf("11"));
form = opened();
form.type("txtSourceSpec1", path);
form.set("CheckFam", true);
replied("OK", () => form.click("cmdOK"), "Familia cu codul 9 nu exista in Tabelul Familii. Import nereusit");
equal(sql("SELECT COUNT(*) AS N FROM G_ARTMAG WHERE CODART = 'Q1'")[0].N, 0, "nothing");
form.click("cmdIesire");
w.close();

// An import invoice: prices in its currency; the next free number is the code of a new article. A second press adds the lines again.
sql("INSERT INTO G_FACIMP (NUMFAC, DATAFAC, CODFUR, BATVA, CODVALUTA, CURSVALUTA, Magazie, OBS, VALIDAT) VALUES ('12', ?, 1, ?, 'EUR', 5, 1, 'proba', 0)", year + "-03-02", rate);
workbook(path, [["COD", "DENUMIRE", "DENUMIRE2", "PRET", "CANTITATE", "ADAOS"], ["N-1", "Nou", "New", 2, 3, 0.5], ["N-2", "Fara cantitate", "", 1, "", 0]]);
w = menu("mnuCumpFacturaImport", "frmGrilaFFI");
w.grid("TDBGrid2").select(0);
form = opened();
equal([form.value("chkDeviza"), form.text("cboIDDeviza"), form.text("txtCurs")], [true, "EUR", "5"]);
form.type("txtSourceSpec1", path);
form.pick("cboFamilie", "1-Marfuri");
form.type("TextPalet", "PAL1");
for (let press = 0; press < 2; ++press) replied("OK", () => form.click("cmdOK"), "Importul s-a realizat cu succes");
form.click("cmdIesire");
equal(table("NRLINIE, CODART, CANT, PRETVAL, PRET, VALOARE, VALOAREVAL, VALTVA, VALOAREFT, PRETVA, PALET, COST", "G_LFACIM ORDER BY NRLINIE"),
      [1, 2].map((line) => [line, "00000124", 3, 2, 10, 30, 6, 5.7, 30, 15, "PAL1", 0]), "in lei at the rate");
equal(table("CODART, CODPRODFUR", "G_ARTMAG WHERE CODPRODFUR LIKE 'N-%' ORDER BY CODART"), [["00000124", "N-1"], ["00000125", "N-2"]], "an article without a quantity has no line");
equal(table("CODDEVIZA, COSTDEV, PRETDEVIZAVANZ, PALET", "G_ARTMAG WHERE CODART = '00000124'"), [["EUR", 2, 3, "PAL1"]], "article in the currency");
w.close();

// The count of a lot: 10 invoiced, 7 + 5 counted; 4 invoiced, 3 counted; one unknown code.
sql("INSERT INTO G_DOCUME (ID, TIP, TIPIE, DATADOC, CODMAG, OBS) VALUES ('FI1', 'FI', 'I', ?, 1, 'LOT''5 din luna lui martie nr. 1')", year + "-02-01");
sql("INSERT INTO G_LDOCUM (DOCID, LINIE, ARTID, CANT, PRETFT, CODMAG) VALUES ('FI1', 1, '00000007', 10, 3, 1), ('FI1', 2, '123', 4, 8, 1)");
for (const number of ["21", "22"]) sql("INSERT INTO G_NRFURN (NUMNR, DATANR, CODFUR, BATVA, Magazie, OBS, VALIDAT) VALUES (?, ?, 1, ?, 1, 'x', 0)", number, year + "-03-01", rate);
workbook(path, [["CODARTICOL", "CANTITATE"], ["P-1", 7], ["P-1", 5], ["123", 3], ["ZZ", 1]]);
w = menu("mnuCumpNIR", "frmGrilaNIR");
for (const [number, command, remark, lines] of
         [["21", "cmdImportP", "Receptie plusuri - LOT'5 din luna lui martie", [["00000007", 2, 3, 10, "12", 6]]], ["22", "cmdImportM", "Constatare diferente - LOT'5 din luna lui mar", [["123", -1, 8, 4, "3", -8]]]]) {
  w.grid("TDBGrid2").select(w.grid("TDBGrid2").column("NUMNR").indexOf(number));
  w.click(command);
  form = win("frmReceptieXLS");
  form.type("txtSourceSpec1", path);
  replied("OK", () => form.click("cmdOK"), "Va rog introduceti numar lot.");
  equal(form.tooltip("txtSourceSpec1"), "Selectati fisierul EXCEL de importat cu structura:COD,DENUMIRE,PRET,CANTITATE");
  form.type("TextLot", "LOT'5 din luna lui martie");
  shot("frmReceptieXLS");
  importing("OK", "OK");
  form.click("cmdOK");
  equal(messages().map((box) => box.text).slice(-2), ["Articolul ZZ nu exista in tabela Articole", "Verificarea facturilor din lot s-a realizat cu succes"]);
  equal(table("CODART, CANT, PRETFT, QTECOM, NUMCOM, VALOAREFT", "G_LNRFUR WHERE NUMNR = ?", number), lines, command);
  equal([w.text("txtFields(3)"), sql("SELECT OBS FROM G_NRFURN WHERE NUMNR = ?", number)[0].OBS], [remark, remark], "remark");
}
w.grid("TDBGrid2").select(w.grid("TDBGrid2").column("NUMNR").indexOf("21"));
check(!isOpen("frmMsgBox"), "the header is as stored");
w.close();
