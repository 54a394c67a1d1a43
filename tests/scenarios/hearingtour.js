// A tour of the hearing-device trade on the second sample company: an order with its audiograms, an order from a
// file, an invoice to an insurer, a repair, commissions. Each step leaves a screenshot or a page.

const folder = paths().databases;
call("makeHearingSampleCompany", folder);
start(folder);
const login = win("frmLogin");
const companies = login.grid("TDBGrid1");
companies.select(companies.column("DENUMIRE").indexOf("EXEMPLU AUZ SRL"));
login.type("txtUserName", "admin");
login.type("txtPassword", "admin");
login.press("txtPassword", "Enter");
win("frmSelMagazie").pick("DataCombo1", "Magazie 1");
win("frmSelMagazie").click("cmdOK");
shot("01-fereastra-principala");

// The orders, and one with its curves; its two pages.
let w = menu("mnuComenziAudio", "frmComandaAudio");
equal(w.grid("grdComenzi").rows(), 40);
shot("02-comenzi");
w.pick("cboCamp", "PACIENT");
w.pick("cboValoare", "IONESCU MARIA");
w.click("cmdCauta");
check(w.grid("grdComenzi").rows() > 1, "the orders of a patient");
w.click("cmdGoleste");
w.click("cmdCauta");
w.grid("grdComenzi").select(3);
w.press("grdComenzi", "Enter");
shot("03-comanda");
w.click("cmdTiparireDocument");
const paper = win("frmLSTComandaAudio");
shot("04-tiparire");
paper.click("cmdVisualizare");
paper.set("OptionVerso", true);
paper.click("cmdVisualizare");
paper.click("cmdAnulare");
equal(printed().length, 2);

// A new order by keyboard.
w.click("cmdAdauga");
w.type("txtNrComanda", "n500");
w.pick("cboPacient", "MATEI DUMITRU");
w.pick("cboDoctor", "DR. SABAU");
w.pick("cboCAS", "CAS BIHOR");
w.pick("cboPunctLucru", "OPTICA MARGHITA");
w.pick("cboDispozitiv", "SONATA 20");
w.type("txtGradHipoacuzie", "medie");
["txtNrDecizie", "txtNrCarnetAsigurat", "txtNrCertificatGarantie", "txtSerieDisp"].forEach((box, i) => w.type(box, "N5" + i));
w.click("cmdModifica");
noMessage();
const tone = w.grid("grdAudiogramaTonala");
[20, 25, 35, 50, 60, 70, 80].forEach((value, i) => tone.enter(0, "C" + 125 * 2 ** i, String(value)));
shot("05-comanda-noua");
w.close();

// The draft to the insurer takes the new order; validated.
menu("mnuFacturiAudio");
shot("06-factura-pe-baza");
win("frmFacturaAudio").set("optCas", true);
win("frmFacturaAudio").click("cmdOk");
w = win("frmGrilaFacturaAudio");
w.grid("grdListaFacturi").select(0);
const open = w.grid("grdListaComenzi");
open.select(open.column("Nr").indexOf("N500"));
answer("Da");
w.press("grdListaComenzi", "Enter");
expectMessage("Sigur doriti sa adaugati comanda ?");
shot("07-factura");
w.click("cmdTiparire");
win("frmLstFC").click("cmdVisualizare");
win("frmLstFC").click("cmdAnulare");
answer("OK");
w.click("cmdValidare");
expectMessage("Factura a fost salvata in documente");
w.close();

// The repair that waits.
w = menu("mnuBonReparatie", "frmGrilaBonReparatie");
w.tab("Lista Bonuri reparatie");
shot("08-bonuri");
const vouchers = w.grid("grdListaBonuri");
vouchers.select(vouchers.column("Validat").indexOf("NU"));
w.tab("Bon reparatie detalii");
shot("09-bon");
w.click("cmdTiparire");
win("frmLstBonReparatii").click("cmdVisualizare");
win("frmLstBonReparatii").click("cmdAnulare");
answer("OK");
w.click("cmdValidare");
expectMessage("Bonul a fost salvat in documente");
w.close();

// Commissions, orders not billed yet, the documents, the check.
w = menu("mnuComisioane", "frmRapComisioane");
w.click("cmdCauta");
shot("10-comisioane");
w.close();
w = menu("mnuRapComenziClienti", "frmRapComNelivCl");
w.click("cmdVisualizare");
w.close();
w = menu("mnuTabeleDocumente", "frmLDoc");
shot("11-documente");
w.close();
equal(call("disagreementText"), "");
