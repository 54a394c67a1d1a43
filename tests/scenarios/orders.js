// Orders and proformas through the real windows: a customer's order holds stock back and is invoiced in parts, an
// order to a supplier in lei and in currency without a rate, a proforma with discounts.

const year = today().substring(0, 4);

function seed() {
  sql("INSERT INTO kt_ter (COD, NUME, TIP) VALUES (1, 'FURNIZOR UNU SRL', 'F')");
  sql("INSERT INTO kt_ter (COD, NUME, TIP) VALUES (2, 'CLIENT DOI SRL', 'C')");
  sql("INSERT INTO kt_ter (COD, NUME, TIP) VALUES (3, 'CLIENT TREI SA', 'C')");
  sql("INSERT INTO \"Terti - Discounturi\" (CODTert, Discount) VALUES (2, 10)");
  sql("INSERT INTO G_FAMART (COD, DENUMIRE, CONTSTOCMARFA, CONTCHELT, CONTVEN) VALUES (1, 'Marfuri', '371', '607', '707')");
  sql("INSERT INTO G_ARTMAG (CODART, DENART, UM, FAMART, COST, STOC, PRETVFT, PROVENIENTA, FARASTOC, CODPRODFUR, DENALTALIMBA) " +
      "VALUES ('M1', 'Marfa intai', 'Buc', 1, 12.345, 10, 20, 'M', 0, 'PF-1', 'First goods')");
  sql("INSERT INTO G_DOCUME (ID, TIP, TIPIE, DATADOC, CODMAG) VALUES ('FF1', 'FF', 'I', ?, 1)", year + "-01-02");
  sql("INSERT INTO G_LDOCUM (DOCID, LINIE, ARTID, CANT, CANTRAMASA, PRETFT, COST, CODMAG) VALUES ('FF1', 1, 'M1', 10, 10, 12.345, 12.345, 1)");
}

let w, lines;
const {press} = steps(() => w);
const said = () => messages().pop().text;
const cells = (...columns) => columns.map((column) => lines.cell(0, column));
const ledger = (id) => sql("SELECT D.TIPIE AS T, D.TOTALFT AS V, D.TOTALTVA AS X, D.CODDEV AS C, D.TOTALDEV AS Y, L.PRETDEV AS P, " +
    "L.CANTRAMASA AS R FROM G_DOCUME D, G_LDOCUM L WHERE D.ID = ? AND L.DOCID = ?", id, id)
    .map((row) => [row.T, row.V, row.X, row.C, row.Y, row.P, row.R])[0];
const disagreements = () => call("disagreementText").split("\n").filter((line) => line && !/: FF1$/.test(line));

function entered(menuName, form, number, partner, quantity) {
  menu(menuName);
  if (form === "frmGrilaFC") win("frmGrilaFC2").click("cmdCC");
  w = win(form);
  lines = w.grid("TDBGrid1");
  w.click("cmdFacturaNoua");
  w.type("txtFields(0)", number);
  w.pick("DataCombo1", partner);
  w.click("cmdSalvare");
  if (quantity === undefined) return;
  lines.addLine("M1", quantity);
  key("Esc");
}

function validated(text) {
  press("cmdValidare", "Da", "OK");
  equal(said(), text, "validated");
}

company({method: "MP"});
seed();

// 8 ordered: VAT from the rounded value; another customer can have only 2.
entered("mnuVanzariComanda", "frmGrilaCOMC", "5", "CLIENT DOI SRL", "8");
equal(cells("VALOAREFT", "VALOARETVA", "VALOARETTI"), ["160,00", "30,40", "190,40"], "order");
check(w.isVisible("dtpDataLivrare"), "date of delivery");
validated("Comanda a fost salvata cu succes in Documente !");
equal(ledger("CC5"), [null, 160, 30.4, "LEI", 0, 0, 8], "recorded");
entered("mnuVanzFactura", "frmGrilaFC", "21", "CLIENT TREI SA", "3");
press("cmdValidare", "Da", "OK");
equal(said(), "Articolul: M1 are disponibil in stoc numai 2", "held back");

// Its own invoice takes 5 of 8 with the customer's discount, the next one the rest and one more.
entered("mnuVanzFactura", "frmGrilaFC", "22", "CLIENT DOI SRL");
answer("Da");
w.grid("TDBGrid4").select(0);
equal(cells("CANT", "PRETFT", "DiscountClient", "ValoareFTCuDiscount", "VALOAREFT", "VALOARETVA", "COST", "NUMAE"),
      ["8,000", "20,00", "10,00", "18,00", "144,00", "27,36", "98,76", "CC5"], "from the order");
lines.enter(0, "CANT", "5");
validated("Factura a fost salvata cu succes in Articole si Documente !");
const delivered = () => sql("SELECT CANTLIV FROM G_LCOMCL")[0].CANTLIV;
equal([delivered(), sql("SELECT ID_Comanda FROM G_FACTURI_COMENZI_CLIENTI WHERE ID_Factura = '22'").length], [5, 1], "five delivered");
entered("mnuVanzFactura", "frmGrilaFC", "23", "CLIENT DOI SRL");
answer("Da");
w.grid("TDBGrid4").select(0);
equal(cells("CANT", "COST"), ["3,000", "37,04"], "the rest");
lines.enter(0, "CANT", "4");
validated("Factura a fost salvata cu succes in Articole si Documente !");
equal([delivered(), w.grid("TDBGrid4").rows()], [8, 0], "not more than ordered");
equal(disagreements(), [], "after the invoices");

// A deleted draft leaves no tie.
entered("mnuVanzariComanda", "frmGrilaCOMC", "6", "CLIENT DOI SRL", "1");
validated("Comanda a fost salvata cu succes in Documente !");
entered("mnuVanzFactura", "frmGrilaFC", "24", "CLIENT DOI SRL");
answer("Da");
w.grid("TDBGrid4").select(0);
press("cmdSterge", "Da");
equal(sql("SELECT ID_Factura FROM G_FACTURI_COMENZI_CLIENTI WHERE ID_Factura = '24'"), [], "no tie");

// An order to a supplier: cost as price, in currency without a rate.
entered("mnuCumpComanda", "frmGrilaCOMF", "31", "FURNIZOR UNU SRL", "3");
equal(cells("PRETFT", "VALOAREFT", "CODPRODFUR", "DENUMIRE2"), ["12,34", "37,02", "PF-1", "First goods"], "at cost");
w.click("chkDeviza");
equal([w.hasFocus("txtCurs"), w.text("txtFields(2)")], [true, "19,00"], "on to the rate; the rate of VAT with two decimals");
w.pick("cboIDDeviza", "EUR");
equal(Number(w.text("txtCurs").replace(",", ".")), 0, "no rate today");
answer("OK");
w.click("cmdSalvare");
equal(said(), "Va rog specificati un curs pentru deviza EUR", "a warning");
validated("Comanda a fost salvata cu succes in Documente !");
equal(ledger("CF31"), [null, 37.02, 0, "EUR", 0, 0, null], "no amounts in currency");
equal(sql("SELECT CANTRLIV FROM G_LCOMFU"), [{CANTRLIV: 3}], "three to come");

// A proforma moves nothing; the rate is picked or typed with decimals.
entered("mnuVanzariProforma", "frmGrilaPRO", "41", "CLIENT DOI SRL", "2");
equal(cells("ValoareFTCuDiscount", "VALOAREFT", "VALOARETVA"), ["18,00", "36,00", "6,84"], "discount");
w.type("txtFields(2)", "9,5");
w.click("cmdSalvare");
equal(cells("VALOARETVA", "VALOARETTI"), ["3,42", "39,42"], "at 9.5 percent");
check(w.isVisible("cboTVA"), "rates to pick");
validated("Factura Proforma a fost salvata cu succes in Documente !");
equal(ledger("PR41"), [null, 36, 3.42, "LEI", 0, 0, null], "recorded");
equal(disagreements(), [], "all agrees");
