// The list of warehouses: adding in two steps, renaming, deleting.
company();
let w = menu("mnuMagazii", "frmMagazii");
equal(w.title(), "Magazii");
equal(w.text("Text1"), "1");
w.click("cmdAdauga");
equal(w.text("Text1"), "");
check(w.hasFocus("txtNume"), "focus");
replied("OK", () => w.click("cmdAdauga"), "Va rugam specificati denumirea magaziei!", {title:"Atentie"});
w.type("txtNume", "De'pozit");
equal(w.items("cboJurnal").length > 0, true);
w.pick("cboJurnal", w.items("cboJurnal")[0]);
w.click("cmdAdauga");
equal(sql("SELECT COD, DENUMIRE, JURNAL FROM G_MULTIMAGAZIE ORDER BY COD")[1].DENUMIRE, "Depozit");
equal(w.text("Text1"), "2");
w.type("txtNume", "Depozit mare");
key("Esc");
equal(w.text("txtNume"), "Depozit");
w.type("txtNume", "MAGAZIE 1");
replied("OK", () => w.click("cmdSalvare"), "Magazia cu denumirea MAGAZIE 1 exista deja !");
check(w.hasFocus("txtNume"), "focus on the name");
for (const name of ["DEPOZIT", "Depozit mare"]) {
  w.type("txtNume", name);
  w.click("cmdSalvare");
  equal(sql("SELECT DENUMIRE FROM G_MULTIMAGAZIE WHERE COD = 2")[0].DENUMIRE, name);
}
equal(w.grid("grdDataGrid").column("DENUMIRE"), ["Depozit mare", "Magazie 1"]);
replied("Da", () => w.click("cmdSterge"), "Sunteti sigur ca doriti sa stergeti articolul : Depozit mare ?");
equal(w.grid("grdDataGrid").rows(), 1);
w.press("txtNume", "Esc");
check(!isOpen("frmMagazii"), "closed");
