// Orders of hearing devices: entry, audiograms, curves, files, papers, deletion.
company({hearing: true, denumire: "EXEMPLU AUZ SRL"});
const partner = (code, name, kind, own) =>
    sql("INSERT INTO kt_ter (COD, NUME, TIP, CodTert, Reprezentant, PF, PlatesteTVA, Utilizabil) VALUES (?, ?, ?, ?, 0, 0, 0, 0)", code, name, kind, own);
partner(501, "CAS BIHOR", "C", "CAS");
partner(502, "CABINET ORL", "C", null);
partner(503, "POP ION", "P", null);
partner(504, "DR. MICLEA", "D", null);
partner(505, "AUZ PROD SRL", "F", null);
const article = (code, name, price, insured) =>
    sql("INSERT INTO G_ARTMAG (CODART, DENART, FAMART, UM, COTATVA, PROVENIENTA, FARASTOC, CODFURNIZO, PretVanzare, CompensareCAS, TipAparat) VALUES (?, ?, 1, 'Buc', 19, 'M', 0, 505, ?, ?, 'RETRO')", code, name, price, insured);
article("AP1", "APARAT UNU", 2101.5, 900);
article("AP2", "APARAT DOI", 1500, 900);

menu("mnuComenziAudio");
let w = win("frmComandaAudio");
equal(w.title(), "Comanda Audio");
equal(w.tabs(), ["Lista comenzi", "Comanda detalii"]);
answer("OK");
w.click("cmdSterge");
expectMessage("Va rog selectati o comanda");
w.click("cmdAdauga");
noMessage();
answer("OK");
w.click("cmdModifica");
expectMessage("Va rog completati: \r\n\t: Nr Comanda\r\n\t: Pacient\r\n\t: Doctor\r\n\t: CAS\r\n\t: Grad Hipoacuzie\r\n\t: Dispozitiv\r\n\t: Nr. Decizie\r\n\t: Nr. Carnet Asigurat\r\n\t: Nr. Certificat Garantie");
check(w.hasFocus("txtNrComanda"), "the first missing field has the focus");
w.type("txtNrComanda", "a1");
equal(w.text("txtNrComanda"), "A1");
w.pick("cboPacient", "POP ION");
answer("OK");
w.click("cmdAdauga");
expectMessage("Va rog completati: \r\n\t: Doctor");
equal(w.text("txtNrComanda"), "A1", "nothing is lost");
w.pick("cboDoctor", "DR. MICLEA");
w.pick("cboCAS", "CAS BIHOR");
w.pick("cboPunctLucru", "CABINET ORL");
w.pick("cboDispozitiv", "APARAT UNU");
equal([w.text("txtPretVanzare"), w.text("txtCompensareCAS"), w.text("txtDiferenta")], ["2.101,50", "900,00", "1.201,50"]);
answer("OK");
w.type("txtCompensareCAS", "abc");
expectMessage("Va rog introduceti o valoare numerica");
equal(w.text("txtCompensareCAS"), "0");
w.type("txtCompensareCAS", "900");
equal(w.text("txtDiferenta"), "1.201,50");
w.type("txtGradHipoacuzie", "severa");
equal(w.text("txtGradHipoacuzie"), "SEVERA");
w.type("txtNrDecizie", "DECIZIA/CAS-12345678");
w.type("txtNrCarnetAsigurat", "C1");
w.type("txtNrCertificatGarantie", "G1");
w.set("optDreapta", true);
w.click("cmdModifica");
noMessage();
const order = sql("SELECT * FROM G_COMANDA_AUDIO")[0];
equal([order.NR, order.ID_PUNCTLUCRU, order.PRETLIVRARE, order.URECHEADREAPTA, order.ISIMPORT], ["A1", 502, 2101.5, -1, 0]);
equal(sql("SELECT COUNT(*) AS N FROM G_AudiogramaTonala")[0].N, 2);
equal(sql("SELECT COUNT(*) AS N FROM G_AT WHERE ID_Comanda = ?", order.ID_COMANDA)[0].N, 2);

// The audiograms are stored cell by cell; an emptied cell is null.
w.tab("Comanda detalii");
const tone = w.grid("grdAudiogramaTonala"), speech = w.grid("grdAudiogramaVocala");
equal(tone.captions(), ["Urechea", "125", "250", "500", "1000", "2000", "4000", "8000"]);
equal(speech.columns().length, 22);
equal(tone.column("Urechea"), ["Stanga", "Dreapta"]);
[["C125", "20"], ["C250", "35,5"], ["C1000", "60"], ["C2000", "75"], ["C4000", "130"]].forEach(([column, value]) => check(tone.enter(1, column, value), column));
check(tone.enter(0, "C125", "10"));
check(tone.enter(0, "C250", "15"));
[0, 30, 40, 60, 80, 100].forEach((loud, i) => check(speech.enter(1, "C" + loud, String(i * 20))));
answer("OK");
check(!tone.enter(0, "C500", "x"), "not a number");
expectMessage("Va rog introduceti o valoare numerica");
equal(tone.cell(0, "C500"), "");
check(tone.isLocked(0, "Urechea"));
check(tone.enter(0, "C250", ""));
equal(sql("SELECT C125, C250 FROM G_AudiogramaTonala WHERE UrecheaDreapta = 0")[0], {C125: 10, C250: null});
equal(tone.cell(1, "C250"), "35,5");
w.shot("comanda");

// The paper of the right ear: its second rows.
w.click("cmdTiparireDocument");
const paper = win("frmLSTComandaAudio");
equal(paper.title(), "Comanda dispozitiv");
paper.click("cmdVisualizare");
paper.set("OptionVerso", true);
paper.click("cmdVisualizare");
const pdfs = printed();
equal(pdfs.length, 2);
const decision = "DECIZIA/CAS-12345678 din " + today().split("-").reverse().join(".");
["COMANDA DISPOZITIV", "A1", "POP ION", "CAS BIHOR", "DR. MICLEA", "CABINET ORL", "APARAT UNU", "1.201,50", decision].forEach(text =>
    check(pdfText(pdfs[0]).includes(text), text));
check(pdfText(pdfs[1]).includes("CERTIFICAT DE GARANTIE") && pdfText(pdfs[1]).includes("35,5") && pdfText(pdfs[1]).includes(decision), "back");
paper.click("cmdAnulare");
sql("DELETE FROM kt_ter WHERE COD = 504");
w.click("cmdTiparireDocument");
answer("OK");
win("frmLSTComandaAudio").click("cmdVisualizare");
expectMessage("Doctor inexistent in baza de date\r\nTrebuie introdus in baza de date");
equal(printed(), []);
win("frmLSTComandaAudio").click("cmdAnulare");
partner(504, "DR. MICLEA", "D", null);

// A file; the same file again; a file with an unknown device is listed apart.
const cells = (n, v) => "<c>" + v + "</c>" + "<c>-</c>".repeat(n - 1);
const xml = (number, device) => `<comanda><nrComanda>${number}</nrComanda><dataComanda><zi>1</zi><luna>3</luna><an>2026</an></dataComanda>
<dateClient><nume>IONESCU</nume><prenume>ANA</prenume><adresa>Str. 1</adresa><biSerie>XH</biSerie><biNr>1</biNr><cnp>2</cnp><politia>P</politia>
<data><zi>1</zi><luna>1</luna><an>2020</an></data></dateClient><doctor>DR. MICLEA</doctor>
<dateDispozitivMedical><numeDispMedical>${device}</numeDispMedical><gradHipoAcuzie>usoara</gradHipoAcuzie><serieDisp>S</serieDisp>
<pretLivrare>1.500 lei</pretLivrare><pretReferinta>900</pretReferinta><urechea><dreapta>false</dreapta></urechea></dateDispozitivMedical>
<decizie><nrDecizie>D</nrDecizie><dataDecizie><zi>1</zi><luna>3</luna><an>2026</an></dataDecizie></decizie><cas>CAS BIHOR</cas>
<nrCarnetAsigurat>C</nrCarnetAsigurat><certificatGarantie><nr>G</nr><data><zi>1</zi><luna>3</luna><an>2026</an></data></certificatGarantie>
<audiogramaTonala><stanga>${cells(7, 5)}</stanga><dreapta>${cells(7, 6)}</dreapta></audiogramaTonala>
<audiogramaVocala><stanga>${cells(21, 7)}</stanga><dreapta>${cells(21, 8)}</dreapta></audiogramaVocala></comanda>`;
const path = paths().out + "/comanda.xml";
const take = text => { writeFile(path, text); file(path); w.click("cmdImport"); };
answer("OK");
take(xml("b2", "AP2"));
expectMessage("Comanda a fost importata cu succes");
answer("OK");
take(xml("b2", "AP2"));
expectMessage("Comanda mai exista");
answer("OK");
take(xml("b3", "LIPSA"));
expectMessage("Comanda a fost importata cu succes");
answer("OK");
take(xml("b4", "AP2").replace("<zi>1</zi>", "<zi>41</zi>"));
expectMessage("Elementul comanda/dataComanda nu este o data care exista");
w.tab("Lista comenzi");
w.click("cmdCauta");
equal(w.grid("grdComenzi").column("Nr").sort(), ["A1", "B2"]);
equal(w.text("lblNeafisate"), "Comenzi neafisate: 1");
w.click("cmdNeafisate");
equal(w.grid("grdNeafisate").column("Nr"), ["B3"]);
equal(w.grid("grdNeafisate").cell(0, "Lipseste"), "dispozitivul");
w.shot("lista");
w.press("grdNeafisate", "Enter");
equal(w.text("txtNrComanda"), "B3");
w.pick("cboDispozitiv", "APARAT DOI");
w.click("cmdModifica");
noMessage();
check(!w.isVisible("lblNeafisate"), "none is hidden");
equal(w.text("cboPacient"), "IONESCU ANA", "a patient that the list does not offer is shown");

w.tab("Lista comenzi");
w.pick("cboCamp", "ESTE IMPORT");
w.pick("cboValoare", "Da");
w.click("cmdCauta");
equal(w.grid("grdComenzi").rows(), 2);
w.click("cmdGoleste");
w.click("cmdCauta");
const place = w.grid("grdComenzi").column("Nr").indexOf("B3");
w.grid("grdComenzi").select(place);
answer("Da");
answer("OK");
w.click("cmdSterge");
expectMessage("Sigur doriti sa stergeti comanda?");
expectMessage("Comanda a fost stearsa cu succes");
equal(sql("SELECT COUNT(*) AS N FROM G_AudiogramaVocala")[0].N, 4);
equal(call("disagreementText"), "");
