// Printing a list: Ctrl+P, the options, the preview, and the resulting files.
company();
for (let i = 2; i <= 60; ++i)
  sql("INSERT INTO G_MULTIMAGAZIE (COD, DENUMIRE) VALUES (?, ?)", i, "Depozit " + String(i).padStart(3, "0"));
const w = menu("mnuMagazii", "frmMagazii");
const grid = w.grid("grdDataGrid");
equal(grid.rows(), 60);

// The options are unchanged, the preview closes by itself: one file, with only the selected rows.
grid.selectMany([0, 2, 4]);
key("Ctrl+P");
let files = printed();
equal(files.length, 1);
check(files[0].endsWith("/Magazii-1.pdf"), files[0]);
let text = pdfText(files[0]);
equal(text.match(/Depozit \d+/g), ["Depozit 002", "Depozit 004", "Depozit 006"]);
check(/Magazii\s[^]*Cod +Denumire +Cont de stoc +Cod Jurnal Casa[^]*Pagina: 1 din 1/.test(text), text);
equal(printed(), []);

// Both windows are shown when the script requests them; cancelling prints nothing.
keepPreview(true);
w.press("grdDataGrid", "Ctrl+A");
key("Ctrl+P");
let options = win("frmOptiuniTiparire");
shot("optiuni");
equal(options.items("cboImprimanta"), ["PDF"]);
equal(options.isEnabled("txtCopii"), false);
options.click("cmdAnulare");
check(!isOpen("frmPrevizualizare"), "preview");
equal(printed(), []);

// Landscape has room for fewer rows.
key("Ctrl+P");
options = win("frmOptiuniTiparire");
equal(options.text("optToate").replace("&", ""), "Toate paginile (2)");
options.set("txtMargini(1)", 120);
options.set("optPeisaj", true);
options.set("txtMargini(1)", 60);
const pages = Number(/\((\d+)\)/.exec(options.text("optToate"))[1]);
check(pages > 2, options.text("optToate"));
options.click("cmdOK");
let preview = win("frmPrevizualizare");
equal(preview.title(), "Previzualizare - Magazii");
equal([preview.text("txtPagina"), preview.text("lblPagini")], ["1", "din " + pages]);
equal(preview.isEnabled("cmdInapoi"), false);
shot("previzualizare");
preview.click("cmdUltima");
equal([preview.text("txtPagina"), preview.isEnabled("cmdInainte")], [String(pages), false]);
key("Home");
preview.pick("cboMarime", "Pagina intreaga");
key("PgDown");
equal(preview.text("txtPagina"), "2");
shot("pagina2");
key("Ctrl++");
check(preview.text("cboMarime").endsWith("%"), preview.text("cboMarime"));
preview.type("txtCautare", "depozit 003");
preview.press("txtCautare", "Enter");
equal(preview.text("txtPagina"), "1");
files = printed();
equal(files.length, 1);
equal(pdfText(files[0]).match(/Depozit \d+/g).length, 59);

// The preview prints a range of pages.
key("Ctrl+P");
options = win("frmOptiuniTiparire");
options.type("txtDeLa", "2");
options.type("txtPanaLa", "2");
equal(options.value("optPagini"), true);
shot("optiuni-pagini");
options.click("cmdOK");
files = printed();
equal(files.length, 1);
text = pdfText(files[0]);
check(text.includes("Pagina: 2 din " + pages) && !text.includes("Pagina: 1 din"), text);
check(preview.text("lblStare").startsWith("Salvat in "), preview.text("lblStare"));
shot("tiparit");
key("Esc");
check(!isOpen("frmPrevizualizare"), "closed");
check(isOpen("frmMagazii"), "the list is open");
noMessage();
