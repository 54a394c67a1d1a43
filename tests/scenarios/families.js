// The list of article families: four accounts, adding and changing with the same button, deleting.
company();
const families = () => sql("SELECT COD, DENUMIRE, CONTSTOCMARFA, CONTCHELT, CONTVEN, CONTSTOCPROD FROM G_FAMART ORDER BY COD");
let w = menu("mnuTabeleFamArt", "frmFamArticole");
let grid = w.grid("grdDataGrid");
equal(w.title(), "Familii Articole");
equal(grid.captions(), ["Cod", "Denumire", "Cont stoc marfa", "Cont cheltuieli", "Cont venituri", "Cont stoc productie"]);
check(w.hasFocus("txtDenumire"), "ready for a name");
shot("families-empty");
const starts = (list, digits) => w.items(list).length > 0 && w.items(list).every(item => digits.includes(item[0]));
check(starts("cboCont(0)", "36") && starts("cboCont(1)", "6") && starts("cboCont(2)", "7") && starts("cboCont(3)", "3"),
      "accounts by class");
check(w.items("cboCont(0)").some(item => item[0] === "6"), "goods in stock may post to expenses");
check(w.isReadOnly("txtCod"), "the code is only shown");

const refused = (text, control) => {
  replied("OK", () => w.click("cmdAdauga"), text);
  check(w.hasFocus(control), "focus on " + control);
  equal(families().length, 0);
};
const pick = (index, account) => {
  const list = "cboCont(" + index + ")";
  w.pick(list, w.items(list).find(item => item.startsWith(account + "-")));
  equal(w.text("txtCont(" + index + ")"), account);
};
refused("Va rugam introduceti denumirea pentru familia de articole !", "txtDenumire");
w.type("txtDenumire", " Mobila");
refused("Va rugam introduceti Cont stoc marfa", "cboCont(0)");
pick(0, "371");
refused("Va rugam introduceti Cont cheltuieli", "cboCont(1)");
pick(1, "607");
refused("Va rugam introduceti Cont de venituri", "cboCont(2)");
w.type("txtCont(2)", "707");
check(w.text("cboCont(2)").startsWith("707-"), "the list shows a typed account");
refused("Va rugam introduceti Cont stoc de  productie", "cboCont(3)");
pick(3, "345");
w.type("txtDenumire", "Mo\u202ebila");
refused("Textul contine un caracter de control (U+202E), care nu se vede ! Scrieti-l din nou fara el.", "txtDenumire");
paste("Mobila\r\nde\tlemn");
equal(w.text("txtDenumire"), "Mobila de lemn", "the refused text is selected, pasted lines are joined");
w.type("txtDenumire", " Mobila");
w.click("cmdAdauga");
const furniture = {COD: 1, DENUMIRE: "Mobila", CONTSTOCMARFA: "371", CONTCHELT: "607", CONTVEN: "707", CONTSTOCPROD: "345"};
equal(families(), [furniture]);
const boxes = ["txtCod", "txtDenumire", "txtCont(0)", "txtCont(1)", "txtCont(2)", "txtCont(3)"];
equal(boxes.map(box => w.text(box)), ["", "", "", "", "", ""]);

sql("UPDATE G_FAMART SET DENUMIRE = 'Mo\u202eb\nila'");
key("F5");
equal(grid.cell(0, "DENUMIRE"), "Mo[U+202E]b[U+000A]ila");
shot("families-hidden-characters");
sql("UPDATE G_FAMART SET DENUMIRE = 'Mobila'");
key("F5");
grid.select(0);
equal(boxes.map(box => w.text(box)), ["1", "Mobila", "371", "607", "707", "345"]);
shot("families-card");
w.type("txtDenumire", "");
replied("OK", () => w.click("CommandButton1"), "Va rugam introduceti denumirea");
w.type("txtDenumire", "Mobila de birou, scaune si alte lucruri");
pick(3, "341");
w.click("CommandButton1");
equal([families()[0].DENUMIRE, families()[0].CONTSTOCPROD], ["Mobila de birou, scaune si alte luc", "341"]);
equal(boxes.map(box => w.text(box)), ["", "", "", "", "", ""]);
w.click("CommandButton1");
equal(families().length, 1);
grid.select(0);
w.type("txtDenumire", "Scaune");
w.click("cmdAdauga");
equal([families().length, families()[0].DENUMIRE, w.text("txtCod")], [1, "Scaune", ""]);

grid.select(0);
replied("Nu", () => w.click("cmdSterge"), "Sunteti sigur ca doriti sa stergeti familia de articole cu codul : 1 ?", {title: "Confirmare stergere"});
equal([families().length, w.text("txtCod")], [1, "1"]);
replied("Da", () => w.click("cmdSterge"), "1 ?");
equal([families().length, w.text("txtCod")], [0, ""]);
noMessage();
