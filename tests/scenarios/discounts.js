// Quantity discounts: bands of articles and families, ordered and contiguous, and the discounts used by sales.

company();
sql("INSERT INTO G_FAMART (COD, DENUMIRE) VALUES (1, 'Suruburi'), (2, 'Adezivi'), (3, 'Goala')");
sql("INSERT INTO G_ARTMAG (CODART, DENART, FAMART) VALUES ('S8', 'Surub M8', 1), ('S10', 'Surub M10', 1), " +
    "('S11', 'Surub cu cap hexagonal zincat M 12', 1), ('A1', 'Adeziv', 2)");

function stored(table, owner, code) {
  return sql('SELECT CantMin, CantMax, Discount FROM "' + table + '" WHERE ' + owner + " = ? ORDER BY CantMin", code)
    .map((band) => [band.CANTMIN, band.CANTMAX, band.DISCOUNT].join(" "));
}
const ofArticle = (code) => stored("Articole - Discounturi", "CODArticol", code);
const ofFamily = (code) => stored("Familii Articole - Discounturi", "CODFamilie", code);

const form = menu("mnuDiscounturiArt", "frmArticoleDiscount");
equal(form.title(), "Discount pe articol");
check(!form.isVisible("frmDiscounturi"), "nothing is selected at first");
shot("discounts-start");
const tree = form.tree("treeArticole");
equal(tree.nodes(), ["Discount pe familie/articole", "Adezivi (2)", "Adeziv (A1)", "Goala (3)", "Suruburi (1)",
                     "Surub cu cap hexagonal zincat M 12 (S11)", "Surub M10 (S10)", "Surub M8 (S8)"]);

const list = form.grid("lvwDiscounts");
const shown = () => list.column("CantMin").map((from, row) => [from, list.cell(row, "CantMax"), list.cell(row, "Discount")].join(" "));
const boxes = () => ["txtCantMin", "txtCantMax", "txtDiscount"].map((name) => form.text(name));
function fill(from, to, percent) {
  if (from !== null) form.type("txtCantMin", from);
  form.type("txtCantMax", to);
  form.type("txtDiscount", percent);
}

// An article without bands: empty boxes, nothing to apply.
tree.select("Surub M8 (S8)");
check(form.isVisible("frmDiscounturi"));
equal([form.text("frmDiscounturi"), form.text("lblAles")], ["Discounturi", "Surub M8 (S8)"]);
equal([list.rows(), boxes(), form.isEnabled("cmdAplica"), form.isEnabled("txtCantMin")], [0, ["", "", ""], false, true]);
equal(list.columns(), ["CantMin", "CantMax", "Discount"]);
shot("discounts-empty");

// The checks, in order; nothing is stored until all pass.
fill("1", "10", "");
replied("OK", () => form.click("cmdSalvare"), "Trebuie sa completati toate valorile", { icon: "" });
fill("5", "4", "2");
replied("OK", () => form.click("cmdSalvare"), "Cantitatea maxima nu poate fi mai mica decat cantitatea minima!");
check(form.hasFocus("txtCantMax"));
replied("OK", () => form.type("txtDiscount", "cinci"), "Valoarea trebuie sa fie numerica");
check(form.hasFocus("txtDiscount"));
form.type("txtDiscount", "5");
equal([list.rows(), ofArticle("S8")], [0, []]);

// Bands of 1 to 10 pieces at 5 and 11 to 20 at 7.5 percent.
fill("1", "10", "5");
form.click("cmdSalvare");
equal([shown(), ofArticle("S8")], [["1 10 5%"], ["1 10 5"]]);
form.click("cmdAdaugare");
equal(shown(), ["1 10 5%", "11 NOU NOU"]);
equal([boxes(), form.isEnabled("txtCantMin")], [["11", "", ""], false]);
shot("discounts-new");
replied("OK", () => form.click("cmdAdaugare"), "Trebuie sa completati toate valorile");
equal(shown().length, 2);
fill(null, "20", "7,5");
form.press("txtDiscount", "Enter");
equal([shown(), ofArticle("S8")], [["1 10 5%", "11 20 7,5%"], ["1 10 5", "11 20 7.5"]]);
shot("discounts-two");

// The end of a band with a successor cannot change, its discount can. Only the last band can be deleted.
list.select(0);
equal([boxes(), form.isEnabled("txtCantMin")], [["1", "10", "5"], false]);
replied("OK", () => form.click("cmdSterge"), "Trebuie sa selecati ultimul din lista!");
fill(null, "10", "6");
form.click("cmdSalvare");
equal(ofArticle("S8"), ["1 10 6", "11 20 7.5"]);

// A new band is discarded when another node is selected; after a deletion the boxes show the last remaining band.
list.select(1);
form.click("cmdAdaugare");
equal(shown().length, 3);
tree.select("Surub M10 (S10)");
equal(list.rows(), 0);
tree.select("Surub M8 (S8)");
equal([shown(), boxes()], [["1 10 6%", "11 20 7,5%"], ["11", "20", "7,5"]]);
form.click("cmdSterge");
equal([shown(), boxes(), form.isEnabled("txtCantMin")], [["1 10 6%"], ["1", "10", "6"], true]);
form.click("cmdSterge");
equal([list.rows(), boxes(), ofArticle("S8")], [0, ["", "", ""], []]);

// A family's bands are a template until they are applied to its articles.
tree.select("Suruburi (1)");
check(form.isEnabled("cmdAplica"));
fill("1", "10", "5");
form.click("cmdAdaugare");
fill(null, "20", "7.5");
form.click("cmdSalvare");
equal([ofFamily(1), ofArticle("S10"), call("DiscountArticol", "S10", 5)], [["1 10 5", "11 20 7.5"], [], 0]);
shot("discounts-family");
sql("INSERT INTO \"Articole - Discounturi\" (CODArticol, CantMin, CantMax, Discount) VALUES ('S10', 1, 3, 50), ('A1', 1, 3, 40)");
const question = "Daca salvati discounturi pe familie - vor fi sterse discounturile setate \r\n" +
  "anterior pentru fiecare produs. Sunteti sigur ca vreti salvati?";
replied("Nu", () => form.click("cmdAplica"), question, { buttons: ["Da", "Nu"] });
equal(ofArticle("S10"), ["1 3 50"]);
replied("Da", () => form.click("cmdAplica"), question);
equal([ofArticle("S8"), ofArticle("S10"), ofArticle("A1")],
      [["1 10 5", "11 20 7.5"], ["1 10 5", "11 20 7.5"], ["1 3 40"]]);

// The search finds an article by its code and shows it in its family.
form.pick("cboCautare", "Adeziv (A1)");
equal([form.text("treeArticole"), form.text("lblAles"), shown()], ["Adeziv (A1)", "Adeziv (A1)", ["1 3 40%"]]);
tree.select("Discount pe familie/articole");
check(!form.isVisible("frmDiscounturi"));

// Another user has changed the bands: nothing is written, the list shows the new ones.
tree.select("Adeziv (A1)");
form.click("cmdAdaugare");
sql("INSERT INTO \"Articole - Discounturi\" (CODArticol, CantMin, CantMax, Discount) VALUES ('A1', 4, 9, 30)");
fill(null, "8", "1");
replied("OK", () => form.click("cmdSalvare"), "Discounturile au fost modificate intre timp de alt utilizator.");
equal([shown(), ofArticle("A1")], [["1 3 40%", "4 9 30%"], ["1 3 40", "4 9 30"]]);

// A new window each time.
menu("mnuDiscounturiArt");
equal(openCount("frmArticoleDiscount"), 2);
win("frmArticoleDiscount").click("cmdIesire");
equal(openCount("frmArticoleDiscount"), 1);
noMessage();
