// The list of VAT rates: the checks of a new rate, the accounts offered, deleting.
company();
sql("DELETE FROM kt_cote WHERE COD > 2");
sql("INSERT INTO kt_pc (CONT, TITLU, DEBITN, CREDITN) VALUES ('4426.9', 'TVA de test', 0, 0)");
const rates = () => sql("SELECT COD, CONT, PROCENT FROM kt_cote ORDER BY COD");
let w = menu("mnumnuTabelemnuTabTVA", "frmCoteTVA");
let grid = w.grid("grdDataGrid");
equal(w.title(), "Cote TVA");
equal(grid.captions(), ["Cod", "Cont", "Procent"]);
equal(grid.cell(0, "PROCENT"), "19,00");
check(w.items("cboCont").length >= 3, "accounts offered");
check(w.items("cboCont").every(item => item.startsWith("4426") || item.startsWith("4427")), "only accounts of VAT");
shot("vatrates");

for (const percent of ["", "noua"]) {
  w.type("txtProcent", percent);
  replied("OK", () => w.click("cmdAdauga"), "Va rugam introduceti o valoare numerica pentru cota TVA !");
  check(w.hasFocus("txtProcent"), "focus on the percent");
}
w.type("txtProcent", "9,5");
replied("OK", () => w.click("cmdAdauga"), "Va rugam selectati un cont corespunzator (minim 3 caractere) !");
equal(rates().length, 2);
w.pick("cboCont", "4426.9-TVA de test");
w.click("cmdAdauga");
equal(rates()[2], {COD: 3, CONT: "4426.9", PROCENT: 9.5});
equal([w.text("txtProcent"), w.text("cboCont")], ["", ""]);

grid.select(2);
replied("Nu", () => w.click("cmdSterge"), "Sunteti sigur ca doriti sa stergeti cota TVA : 3 - 9,5% ?", {title: "Confirmare stergere"});
equal(rates().length, 3);
replied("Da", () => w.click("cmdSterge"), "3 - 9,5% ?");
equal(rates().length, 2);
w.close();

sql("UPDATE kt_par SET TVACumparare = '44', TVAVanzare = '7'");
call("InitParaSoc");
w = menu("mnumnuTabelemnuTabTVA", "frmCoteTVA");
check(w.items("cboCont").some(item => item.startsWith("707")), "accounts of the new parameters");
const short = w.items("cboCont").find(item => item.startsWith("44-"));
w.type("txtProcent", "5");
w.pick("cboCont", short);
replied("OK", () => w.click("cmdAdauga"), "Va rugam selectati un cont corespunzator (minim 3 caractere) !");
equal(rates().length, 2);
noMessage();
