// Partners: the card of a customer, search and filter, balances, the refused deletion of a partner in use.
setToday("2026-03-15");
company({ hearing: false });
sql("INSERT INTO kt_ter (COD, NUME, TIP, ORAS) VALUES (1, 'FURNIZOR UNU', 'F', 'IASI'), (2, 'MIXT SRL', 'M', 'CLUJ')");
sql("INSERT INTO kt_ter (COD, NUME, TIP) VALUES (3, 'DOCTOR POP', 'D')");

let w = menu("mnuTabeleClienti", "frmTerti");
let grid = w.grid("grdDataGrid");
equal(w.title(), "Terti");
equal(w.tabs(), ["Lista Terti", "Fisa Tert"]);
equal(grid.column("NUME"), ["DOCTOR POP", "MIXT SRL"], "no pure supplier among the customers");
equal(w.text("lblRecCount"), "2");
check(!w.isEnabled("cmdAdauga") && !w.isEnabled("cmdModifica") && w.isEnabled("cmdSolduri"), "list commands");

// A new customer: the first press clears the card, the second adds.
w.tab("Fisa Tert");
check(w.isEnabled("cmdAdauga") && !w.isEnabled("cmdSolduri") && !w.isEnabled("cmdListare"), "card commands");
w.click("cmdAdauga");
check(w.hasFocus("txtFields(1)"), "the name first");
equal(w.items("cboTip"), ["C - Client", "P - Persoana fizica", "M - Mixt"]);
equal([w.text("cboTip"), w.text("txtFields(2)")], ["C - Client", "C"]);
equal(w.text("dtDataEmis"), "2026-03-15");
replied("OK", () => w.click("cmdAdauga"), "Va rugam introduceti numele societatii ! Salvarea nu se poate efectua !");
w.type("txtFields(1)", "alfa srl");
equal(w.text("txtFields(1)"), "ALFA SRL");
key("Shift+Tab");
paste("alfa\r\nsrl");
equal(w.text("txtFields(1)"), "ALFA SRL", "pasted in two lines");
w.type("txtFields(3)", "ro123");
w.type("txtFields(11)", "Office@alfa.ro");
w.type("txtRegComert", "j40/1/2020");
equal(w.text("txtRegComert"), "J40/1/2020");
replied("OK", () => w.type("txtCodTertAuxiliar", "x1"), "Trebuie sa precizati o valoare numerica!", { title: "Atentie" });
check(w.hasFocus("txtCodTertAuxiliar"));
w.type("txtCodTertAuxiliar", "99999999999");
replied("OK", () => w.click("cmdAdauga"), "Numarul din campul CodVechi este prea mare !");
check(w.hasFocus("txtCodTertAuxiliar"));
w.type("txtCodTertAuxiliar", "77");
replied("OK", () => w.type("txtDiscount", "zece"), "Va rog introduceti o valoare numerica");
w.type("txtDiscount", "7,5");
w.type("TxtComision", "2");
w.pick("cboIDAngajator", "MIXT SRL");
w.set("chkReprezentant", true);
equal(w.text("lblStare"), "Modificat, nesalvat");
shot("card");
w.click("cmdAdauga");
noMessage();
equal(sql("SELECT COD, NUME, TIP, CODFISCAL, EMAIL, RegCom, CT, CodVechi, PROCPEN, Reprezentant, ID_Angajator, AD FROM kt_ter WHERE COD = 4"),
      [{ COD: 4, NUME: "ALFA SRL", TIP: "C", CODFISCAL: "RO123", EMAIL: "Office@alfa.ro", REGCOM: "J40/1/2020", CT: "RO",
         CODVECHI: 77, PROCPEN: 2, REPREZENTANT: -1, ID_ANGAJATOR: 2, AD: null }]);
equal(sql('SELECT Discount FROM "Terti - Discounturi" WHERE CODTert = 4'), [{ DISCOUNT: 7.5 }]);
equal(w.text("txtFields(0)"), "", "the card is ready for the next one");
w.click("cmdSterge");
noMessage();
w.tab("Lista Terti");
replied("Nu", () => w.click("cmdSterge"), "ALFA SRL");
w.press("grdDataGrid", "Enter");
equal(w.text("txtFields(0)"), "4", "opened by Enter");
w.tab("Lista Terti");
equal(grid.column("NUME"), ["ALFA SRL", "DOCTOR POP", "MIXT SRL"]);
equal(grid.cell(0, "Angajator"), "MIXT SRL");

// A change is undone by Esc, saved by the command; the discount is replaced.
grid.select(1);
grid.select(0);
w.tab("Fisa Tert");
equal([w.text("txtDiscount"), w.text("cboIDAngajator")], ["7,5", "MIXT SRL"]);
w.type("txtFields(6)", "brasov");
key("Esc");
equal(w.text("txtFields(6)"), "");
w.type("txtFields(6)", "brasov");
w.type("txtDiscount", "");
// Values that another user has stored for the same partner are not overwritten.
sql("UPDATE kt_ter SET TELEFON = '0268' WHERE COD = 4");
w.click("cmdModifica");
equal(sql("SELECT ORAS, TELEFON FROM kt_ter WHERE COD = 4"), [{ ORAS: "BRASOV", TELEFON: "0268" }]);
equal(sql('SELECT * FROM "Terti - Discounturi"'), []);

// Prefix search among all partners; without a match the list is unchanged.
w.tab("Lista Terti");
w.type("txtCautare", "mi");
w.press("txtCautare", "Enter");
equal(grid.column("NUME"), ["MIXT SRL"]);
w.type("txtCautare", "zz");
replied("OK", () => w.press("txtCautare", "Enter"), "Nu exista terti ale caror nume sa inceapa cu ZZ !");
equal(grid.rows(), 1);
w.type("txtCautare", "");
w.press("txtCautare", "Enter");
equal(grid.column("NUME"), ["ALFA SRL", "DOCTOR POP", "FURNIZOR UNU", "MIXT SRL"]);
w.click("cmdCauta");
equal(grid.rows(), 3);

// The filter, in words.
w.pick("cboCamp", "ORAS FACTURARE");
w.pick("cboComparatie", "incepe cu");
w.type("txtValoare", "br");
w.click("cmdCauta");
equal(grid.column("NUME"), ["ALFA SRL"]);
equal(w.text("lblConditie"), 'ORAS FACTURARE incepe cu "br"');
w.click("cmdSau");
w.pick("cboCamp", "ANGAJATOR");
w.pick("cboComparatie", "este gol");
shot("filter");
w.click("cmdCauta");
equal(grid.rows(), 3);
w.click("cmdGoleste");
w.pick("cboCamp", "CODTERTAUX");
w.type("txtValoare", "' OR 1=1");
replied("OK", () => w.click("cmdCauta"), "Va rugam introduceti o valoare numerica !");
w.click("cmdGoleste");
w.click("cmdCauta");

// Balances: the list sums all postings, the stored one is the last class 4 account.
sql("INSERT INTO kt_linii (NDI, NRLINIE, CONT, DEBIT, CREDIT, TERT) VALUES (1, 1, '4111', 100.10, 0, 4), " +
    "(1, 2, '4111', 0, 40, 4), (2, 1, '419', 0, 5.05, 4), (3, 1, '5121', 0, 60, 4)");
key("F5");
equal(grid.cell(0, "SOLD"), "-4,95", "100.10 - 40 - 5.05 - 60");
equal(grid.cell(1, "SOLD"), "");
w.click("cmdSolduri");
equal(sql("SELECT COD, SOLD FROM kt_ter WHERE SOLD IS NOT NULL"), [{ COD: 4, SOLD: -5.05 }], "of 4111 and 419 the last");

// In use: refused after the question, whatever the balance.
grid.select(0);
answer("Da"); answer("OK");
w.click("cmdSterge");
expectMessage("Sunteti sigur ca doriti sa stergeti societatea : ALFA SRL ?", { title: "Confirmare stergere", icon: "question" });
expectMessage("Tertul nu se poate sterge deoarece exista documente inregistrate !");
grid.select(1);
replied("Nu", () => w.click("cmdSterge"), "DOCTOR POP");
replied("Da", () => w.click("cmdSterge"), "DOCTOR POP");
equal(grid.column("NUME"), ["ALFA SRL", "MIXT SRL"]);

// At either end the navigation shows a message.
grid.select(0);
replied("OK", () => w.click("cmdPrev"), "Sunteti pozitionat pe primul  tert!");
w.click("cmdLast");
replied("OK", () => w.click("cmdNext"), "Sunteti pozitionat pe ultimul  tert!");

// Suppliers have their own window, with their kinds; both windows are synchronized.
menu("mnuTabeleFurnizori");
equal(openCount("frmTerti"), 2);
let s = win("frmTerti");
equal(s.grid("grdDataGrid").column("NUME"), ["FURNIZOR UNU", "MIXT SRL"]);
s.tab("Fisa Tert");
s.click("cmdAdauga");
equal(s.items("cboTip"), ["F - Furnizor", "M - Mixt"]);
s.type("txtFields(1)", "comun");
s.pick("cboTip", "M - Mixt");
s.click("cmdAdauga");
equal(sql("SELECT TIP FROM kt_ter WHERE NUME = 'COMUN'"), [{ TIP: "M" }]);
s.close();
equal(win("frmTerti").grid("grdDataGrid").column("NUME"), ["ALFA SRL", "COMUN", "MIXT SRL"]);

// All headings are printed completely, on each sheet beside the code.
w = win("frmTerti");
w.tab("Lista Terti");
w.press("grdDataGrid", "Ctrl+A");
w.click("cmdListare");
const sheets = pdfText(printed()[0]).split("\f").filter((page) => page.trim() != "");
check(sheets.length > 1 && sheets.every((page) => /^ *Cod .*\n(.*\n)* *2\b/m.test(page)), sheets.join("|"));
check(!/\u2026|\.\.\./.test(sheets.join("")) && sheets.join("").includes("CP facturare"), sheets.join("|"));
noMessage();
