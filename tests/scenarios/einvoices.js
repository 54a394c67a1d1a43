// Electronic invoices through the real window: faults and the way to mend them, files, sending, answers, deletion.

company({method: "FIFO"});
setToday("2026-03-02");
sql("UPDATE kt_info SET DENUMIRE = 'SOCIETATE SRL', CODFISCAL = 'RO1590082', PLATITVA = 'D', STRADA1 = 'Lunga', ORAS1 = 'Oradea', JUDET1 = 'BH', CAPSOC = 200, NREGCOM = 'J05/1/1991'");
sql("UPDATE kt_par SET FCSTART = '1', FCEND = '500', SERIEFC = 'VLM'");
sql("UPDATE G_MULTIMAGAZIE SET CONT = '371' WHERE COD = 1");
sql("INSERT INTO kt_ter (COD, NUME, TIP, CODFISCAL, AD, ORAS, PlatesteTVA) VALUES (2, 'CLIENT DOI SRL', 'C', 'RO13548146', 'Str. Noua 2', 'Cluj-Napoca', -1)");
sql("INSERT INTO kt_ter (COD, NUME, TIP, CODFISCAL, AD, ORAS, CT) VALUES (3, 'ZURICH AG', 'C', 'CHE1', 'Weg 1', 'Zurich', 'CH')");
sql("INSERT INTO G_FAMART (COD, DENUMIRE, CONTSTOCMARFA, CONTCHELT, CONTVEN) VALUES (1, 'Marfuri', '371', '607', '707')");
sql("INSERT INTO G_ARTMAG (CODART, DENART, UM, FAMART, PRETVFT, PROVENIENTA, FARASTOC) VALUES ('S1', 'Serviciu', 'vrac', 1, 20, 'M', -1)");

let w;
const {press} = steps(() => w);
function invoice(day, client) {
  setToday(day);
  menu("mnuVanzFactura");
  win("frmGrilaFC2").click("cmdAE");
  w = win("frmGrilaFC");
  w.click("cmdFacturaNoua");
  w.pick("DataCombo1", client);
  w.click("cmdSalvare");
  w.grid("TDBGrid1").addLine("S1", 5);
  key("Esc");
  press("cmdValidare", "Da", "OK");
  messages();
  w.close();
}
invoice("2026-03-02", "CLIENT DOI SRL");
invoice("2026-03-02", "ZURICH AG");
invoice("2026-03-10", "CLIENT DOI SRL");

// FC1 is late on the 10th: five working days after the 2nd are the 9th.
menu("mnuPanou");
equal(win("frmPanou").text("lblEFactura"), "1", "late ones on the panel");
win("frmPanou").close();
menu("mnuEFactura");
w = win("frmEFactura");
const list = () => w.grid("TDBGrid1");
const row = (number) => list().column("DOCUMENT").indexOf(number);
const state = (number) => list().cell(row(number), "STARE");
equal([list().column("DOCUMENT"), ["VLM1", "VLM2", "VLM3"].map(state)], [["VLM1", "VLM2", "VLM3"], ["de trimis", "nu se trimite", "de trimis"]], "the list");
equal([list().colour(0, "NUME").back, list().colour(2, "NUME").back !== list().colour(0, "NUME").back, list().cell(0, "TOTAL")], ["#ffd999", true, "119,00"], "late ones");

// The faults, and the way to each.
list().select(0);
equal(w.grid("TDBGrid2").column("REGULA").concat(w.grid("TDBGrid2").column("CAMP")), ["BR-RO-110", "BR-CL-23", "txtJudet", "grdDataGrid"], "faults");
w.shot("frmEFactura");
w.grid("TDBGrid2").select(0);
w.click("cmdCorecteaza");
let p = win("frmTerti");
check(p.hasFocus("txtJudet"), "at the county");
p.type("txtJudet", "cluj");
p.click("cmdModifica");
p.close();
w.click("cmdVerifica");
equal(w.grid("TDBGrid2").column("REGULA"), ["BR-CL-23"], "one fault left");
w.click("cmdCorecteaza");
p = win("frmUM");
check(p.hasFocus("grdDataGrid"), "at the units");
p.type("txtUM", "vrac");
p.type("txtCod", "BX");
answer("OK");
p.click("cmdAdauga");
expectMessage("Codul BX nu este in lista codurilor de unitati !");
p.type("txtCod", "e51");
p.click("cmdAdauga");
equal(sql("SELECT COD FROM G_UM WHERE UM = 'vrac'"), [{COD: "E51"}], "any code of the list");
sql("DELETE FROM G_UM WHERE UM = 'vrac'");
p.type("txtUM", "vrac");
p.type("txtCod", "h87");
p.click("cmdAdauga");
p.shot("frmUM");
equal(sql("SELECT COD FROM G_UM WHERE UM = 'vrac'"), [{COD: "H87"}], "unit");
p.close();

// Files: byte by byte again, anew as another version.
const folder = paths().out + "/efactura";
writeFile(folder + "/x", "");
const path = folder + "/VLM1_20260302.xml";
list().selectMany([0, 1, 2]);
file(folder);
w.click("cmdScrie");
equal([["VLM1", "VLM2", "VLM3"].map(state), exists(path), exists(folder + "/VLM3_20260310.xml")], [["fisier scris", "nu se trimite", "fisier scris"], true, true], "written");
const first = readFile(path);
check(/<cbc:ID>VLM1<\/cbc:ID>/.test(first) && /unitCode="H87"/.test(first), "its content");
sql("UPDATE kt_ter SET AD = 'Str. Alta 9' WHERE COD = 2");
removeFile(path);
list().select(0);
file(folder);
w.click("cmdScrie");
equal(readFile(path) === first, true, "the same file");
press("cmdReface", "Da");
messages();
file(folder);
w.click("cmdScrie");
check(/Str. Alta 9/.test(readFile(path)), "anew");
equal(sql("SELECT DOCID, ACTUAL, UTILIZATOR, LENGTH(SHA256) AS L FROM G_EFACTURA WHERE DOCID = 'FC1' ORDER BY ID"), [{ACTUAL: 0, DOCID: "FC1", L: 64, UTILIZATOR: "ADMIN"}, {ACTUAL: -1, DOCID: "FC1", L: 64, UTILIZATOR: "ADMIN"}], "versions");

// Sent, refused, mended, accepted.
w.type("txtIndex", "x1");
press("cmdTrimisa", "OK");
expectMessage("Introduceti indexul");
w.type("txtIndex", "5001");
w.click("cmdTrimisa");
equal([state("VLM1"), list().cell(0, "INDEX_INCARCARE"), list().colour(0, "NUME").back !== "#ffd999"], ["trimisa", "5001", true], "sent");
press("cmdReface", "Da", "OK");
expectMessage("Refaceti");
expectMessage("nu se mai reface");
const answerFile = (name, text) => { writeFile(folder + "/" + name, text); file(folder + "/" + name); w.click("cmdRaspuns"); };
const stateXml = (stare) => `<?xml version="1.0" encoding="UTF-8"?><header xmlns="mfp:anaf:dgti:efactura:stareMesajFactura:v1" stare="${stare}" id_descarcare="1"/>`;
const errorsXml = (index) => `<?xml version="1.0" encoding="UTF-8"?><header xmlns="mfp:anaf:dgti:efactura:mesajEroriFactuta:v1" Index_incarcare="${index}" Cif_emitent="1"><Error errorMessage="E: validari globale [BR-RO-110] judet"/></header>`;
list().select(0);
answerFile("s.xml", stateXml("in prelucrare"));
equal(state("VLM1"), "trimisa", "in work");
answerFile("e9.xml", errorsXml("9999"));
equal(state("VLM1"), "trimisa", "another index");
list().select(2);
answerFile("e.xml", errorsXml("5001"));
equal([state("VLM1"), state("VLM3")], ["respinsa", "fisier scris"], "refused by its index");
list().select(0);
equal(w.grid("TDBGrid2").cell(0, "REGULA"), "BR-RO-110", "its errors");
answerFile("u.xml", '<header xmlns="mfp:anaf:dgti:spv:respUploadFisier:v1" dateResponse="1" ExecutionStatus="0" index_incarcare="5002"/>');
equal([w.text("txtIndex"), list().cell(0, "INDEX_INCARCARE")], ["5002", "5002"], "the index of the upload");
writeFile(folder + "/bad.xml", '<!DOCTYPE x [<!ENTITY a "b">]><x>&a;</x>');
answer("OK");
file(folder + "/bad.xml");
w.click("cmdRaspuns");
expectMessage("DOCTYPE");

// Deletion: a sent one after a question, an accepted one never.
function remove(id, ...answers) {
  menu("mnuTabeleDocumente");
  const b = win("frmLDoc");
  b.grid("grdParent").select(b.grid("grdParent").column("ID").indexOf(id));
  answers.forEach((each) => answer(each));
  b.click("cmdSterge");
  const texts = messages().map((box) => box.text);
  b.close();
  return texts;
}
list().select(2);
w.type("txtIndex", "5002");
press("cmdTrimisa", "OK");
expectMessage("Indexul 5002 este al altei facturi !");
w.type("txtIndex", "5003");
w.click("cmdTrimisa");
equal(remove("FC3", "Da", "Nu")[1], "Factura electronica a documentului FC3 a fost trimisa. O stergeti totusi?", "sent");
list().select(0);
answerFile("ok.xml", stateXml("ok"));
equal(state("VLM1"), "acceptata", "accepted");
equal(remove("FC1", "Da", "OK")[1], "Factura electronica a documentului FC1 a fost acceptata. Documentul nu poate fi sters; stornati factura.", "accepted");
remove("FC3", "Da", "Da", "OK", "OK");
equal(sql("SELECT DOCID, ACTUAL FROM G_EFACTURA WHERE DOCID = 'FC3'"), [{ACTUAL: 0, DOCID: "FC3"}], "its file stays");
w.click("cmdIesire");

// Settings that the files use.
menu("mnuFilemnuSocConf");
w = win("frmParamSoc");
equal([w.text("txtTermen"), w.value("chkTVAIncasare")], ["5", false], "usual");
w.type("txtTermen", "0");
press("cmdSalvare", "OK");
expectMessage("Termenul facturilor electronice");
w.type("txtTermen", "3");
w.type("txtSector", "2");
w.set("chkTVAIncasare", true);
w.shot("frmParamSoc");
w.click("cmdSalvare");
noMessage();
equal(sql("SELECT TERMENEFACT, SECTOR1, TVAINCASARE FROM kt_info"), [{SECTOR1: "2", TERMENEFACT: 3, TVAINCASARE: -1}], "stored");
w.close();
menu("mnumnuTabelemnuTabTVA");
w = win("frmCoteTVA");
w.type("txtProcent", "0");
w.pick("cboCont", items(w, "4427"));
w.pick("cboCategorie", "AE");
w.type("txtCodScutire", "VATEX-EU-AE");
w.click("cmdAdauga");
w.shot("frmCoteTVA");
noMessage();
w.type("txtProcent", "24");
w.pick("cboCont", items(w, "4427"));
w.click("cmdAdauga");
w.grid("grdDataGrid").select(w.grid("grdDataGrid").rows() - 2);
w.pick("cboCategorie", "K");
w.type("txtCodScutire", "VATEX-EU-IC");
w.click("cmdSalvare");
equal(sql("SELECT CATEGORIE, CODSCUTIRE, PROCENT FROM kt_cote ORDER BY COD DESC").slice(0, 2), [{CATEGORIE: null, CODSCUTIRE: null, PROCENT: 24}, {CATEGORIE: "K", CODSCUTIRE: "VATEX-EU-IC", PROCENT: 0}], "category");
w.close();
function items(form, begin) { return form.items("cboCont").find((text) => text.includes(begin)); }
