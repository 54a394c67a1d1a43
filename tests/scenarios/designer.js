// A new layout: drawn with the mouse, moved with the keyboard, undone and redone, saved, read again.
company();
const layoutFile = paths().out + "/designer/Factura.lst";
removeFile(layoutFile);
call("designLayout", layoutFile);
let w = win("frmProiectare");
equal(w.title(), "Proiectare raport");
equal(w.items("lstNume").slice(0, 4), ["CLIENT", "NRFAC", "DENUMIRE", "CANT"]);
equal(w.grid("lstNume").column("Tip").slice(0, 4), ["text", "numar", "text", "numar"]);
shot("gol");

w.click("cmdText");
w.drag("pagina", [20, 15], [80, 22]);
w.click("cmdChenar");
w.drag("pagina", [15, 12], [120, 30]);
w.click("cmdTabel");
w.drag("pagina", [15, 40], [195, 100]);
// The rows of a new table: the header, and the Line row to which names of the data are added.
w.carry("lstNume", "DENUMIRE", "pagina", [30, 47]);
w.carry("lstNume", "CANT", "pagina", [39, 47]);  // the right half of that cell: behind it
w.carry("lstNume", "NRFAC", "pagina", [16, 47]);  // the left half: before it
w.press("pagina", "Ctrl+Z");
w.carry("lstNume", "CLIENT", "pagina", [100, 17]);  // beside the text, within the box

// The text: selected with the mouse, edited in the properties, moved with the keyboard.
w.drag("pagina", [21, 16], [21, 16]);
const properties = w.grid("grdProprietati");
const row = (caption) => properties.column("Proprietate").indexOf(caption);
check(properties.enter(row("Formula"), "Valoare", "\"Factura \" + NRFAC"), "formula");
replied("OK", () => check(!properties.enter(row("Marime litera"), "Valoare", "mare"), "a size that is not a number"),
        "\"Marime litera\" trebuie sa fie un numar intre 1 si 500.");
key("Esc");
for (const each of ["Right", "Right", "Down", "Shift+Right", "Shift+Right", "Ctrl+Down"]) w.press("pagina", each);
equal(properties.cell(row("Stanga (mm)"), "Valoare"), "22");
// The fine move is a step, both sizings together are one, and so are the three moves.
w.click("cmdInapoi");
w.click("cmdInapoi");
w.press("pagina", "Ctrl+Z");
equal(properties.cell(row("Stanga (mm)"), "Valoare"), "20");
w.press("pagina", "Ctrl+Y");
w.click("cmdRefacere");
check(w.isEnabled("cmdRefacere"), "the fine move");
w.click("cmdRefacere");
check(!w.isEnabled("cmdRefacere"), "nothing more to redo");
equal(w.isVisible("lstGreseli"), false);
w.tab("Previzualizare");
shot("previzualizare");
w.tab("Pagina");
shot("desenat");

// Closing asks; the saved file contains what was drawn.
replied("Anulare", () => w.click("cmdInchide"), "Raportul a fost modificat. Salvati modificarile?", { title: "Proiectare raport" });
check(!exists(layoutFile), "saved without a message");
replied("Da", () => w.click("cmdInchide"), "Raportul a fost modificat");
check(!isOpen("frmProiectare"), "closed");
const text = readFile(layoutFile);
for (const part of ['x="22" y="16.1" width="62" height="7" formula="&quot;Factura &quot; + NRFAC"',
                    '<box name="Chenar1" x="15" y="12" width="105" height="18"',
                    'x="15" y="40" width="180" height="60"', 'x="100" y="17"', 'formula="CLIENT"'])
  check(text.includes(part), part + " in " + text);
equal(text.match(/<cell[^>]*formula="[^"]*"/g).map((cell) => /formula="([^"]*)"/.exec(cell)[1]),
      ["&quot;DENUMIRE&quot;", "&quot;CANT&quot;", "DENUMIRE", "CANT"]);

// Saved under another name.
call("designLayout", layoutFile);
w = win("frmProiectare");
const other = paths().out + "/designer/Alta.lst";
removeFile(other);
file(other);
w.click("cmdSalvareCa");
equal(readFile(other), text);
w.click("cmdInchide");
noMessage();
