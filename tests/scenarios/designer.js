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
w.carry("lstNume", "CANT", "pagina", [39, 47]);

// The text: selected with the mouse, edited in the properties, moved with the keyboard.
w.drag("pagina", [21, 16], [21, 16]);
const properties = w.grid("grdProprietati");
const row = (caption) => properties.column("Proprietate").indexOf(caption);
check(properties.enter(row("Formula"), "Valoare", "\"Factura \" + NRFAC"), "formula");
answer("OK");
check(!properties.enter(row("Marime litera"), "Valoare", "mare"), "a size that is not a number");
expectMessage("\"Marime litera\" trebuie sa fie un numar intre 1 si 500.");
key("Esc");
for (const each of ["Right", "Right", "Down", "Shift+Right"]) w.press("pagina", each);
equal(properties.cell(row("Stanga (mm)"), "Valoare"), "22");
w.click("cmdInapoi");
w.press("pagina", "Ctrl+Z");
equal(properties.cell(row("Stanga (mm)"), "Valoare"), "20");
w.press("pagina", "Ctrl+Y");
w.click("cmdRefacere");
check(!w.isEnabled("cmdRefacere"), "nothing more to redo");
equal(w.isVisible("lstGreseli"), false);
w.tab("Previzualizare");
shot("previzualizare");
w.tab("Pagina");
shot("desenat");

// Closing asks; the saved file contains what was drawn.
answer("Anulare");
w.click("cmdInchide");
expectMessage("Raportul a fost modificat. Salvati modificarile?", { title: "Proiectare raport" });
check(!exists(layoutFile), "saved without a message");
answer("Da");
w.click("cmdInchide");
expectMessage("Raportul a fost modificat");
check(!isOpen("frmProiectare"), "closed");
const text = readFile(layoutFile);
for (const part of ['x="22" y="16" width="61" height="7" formula="&quot;Factura &quot; + NRFAC"',
                    '<box name="Chenar1" x="15" y="12" width="105" height="18"',
                    'x="15" y="40" width="180" height="60"'])
  check(text.includes(part), part + " in " + text);
equal(text.match(/<cell[^>]*formula="[^"]*"/g).map((cell) => /formula="([^"]*)"/.exec(cell)[1]),
      ["&quot;DENUMIRE&quot;", "&quot;CANT&quot;", "DENUMIRE", "CANT"]);

// Saved under another name and damaged: shown as text with the position of the error, corrected there.
call("designLayout", layoutFile);
w = win("frmProiectare");
const other = paths().out + "/designer/Alta.lst";
removeFile(other);
file(other);
w.click("cmdSalvareCa");
equal(readFile(other), text);
w.click("cmdInchide");
noMessage();
writeFile(other, text.replace('width="61"', 'width="lat"'));
call("designLayout", other);
w = win("frmProiectare");
check(w.isVisible("txtText"), "the text");
check(/^Linia \d+, coloana \d+: "width" trebuie/.test(w.items("lstGreseli")[0]), w.items("lstGreseli")[0]);
shot("stricat");
w.click("cmdInchide");
noMessage();
