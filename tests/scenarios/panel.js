// The first page: sales, drafts, articles that run out and late orders; shown at the start where its user wants it.

setToday(today());
company({denumire: "ATELIERUL SRL"});
const year = today().substring(0, 4);
setToday(year + "-03-10");
sql("INSERT INTO kt_ter (COD, NUME, TIP) VALUES (1, 'ALFA SRL', 'C')");
const sale = (id, date, value) => sql("INSERT INTO G_DOCUME (ID, TIP, DATADOC, TOTALFT, TOTALTVA) VALUES (?, ?, ?, ?, ?)", id, id.substring(0, 2), date, value, value * 0.19);
sale("FC1", year + "-03-10", 100);
sale("BS2", year + "-03-10", 10);
sale("FS3", year + "-03-10", 20);
sale("FC4", year + "-03-03", 200);
sale("FC5", year + "-02-28", 1000);
sale("FF6", year + "-03-10", 5000);
sql("INSERT INTO G_FACCLI (NUMFAC, DATAFAC, VALIDAT) VALUES ('7', ?, 0), ('8', ?, 0)", year + "-03-09", year + "-03-09");
sql("INSERT INTO G_ARTMAG (CODART, DENART, UM, STOC, STOCMINIM, FARASTOC) VALUES ('M1', 'Caiet', 'Buc', 2, 2, 0), ('M2', 'Stilou', 'Buc', 3, 2, 0), ('M3', 'Guma', 'Buc', 0, 0, 0)");
sql("INSERT INTO G_COMCLI (NUMCOM, CODCLI, DATACOM, DATALIV, VALIDAT) VALUES ('5', 1, ?, ?, -1), ('6', 1, ?, ?, -1)", year + "-03-01", year + "-03-09", year + "-03-01", year + "-03-10");
sql("INSERT INTO G_LCOMCL (NUMCOM, NRLINIE, CODART, CANT, CANTLIV, PRETFT) VALUES ('5', 1, 'M1', 4, 1, 10), ('6', 1, 'M1', 4, 1, 10)");

let w = menu("mnuPanou", "frmPanou");
equal(["lblAzi", "lblLuna", "lblAcumSapte"].map((name) => w.text(name)), ["107,10", "345,10", "238,00"], "less stornos, with VAT");
equal([w.grid("grdCiorne").column("FEL"), w.grid("grdCiorne").column("NUMAR")], [["FC"], ["2"]], "drafts");
equal(w.grid("grdMinim").column("CODART"), ["M1"], "at its minimum");
equal([w.grid("grdComenzi").column("NUMCOM"), w.grid("grdComenzi").cell(0, "RAMAS")], [["5"], "30,00"], "late");
shot("frmPanou");
w.grid("grdCiorne").select(0);
w.press("grdCiorne", "Enter");
check(isOpen("frmGrilaFC2"), "the way to the drafts");
win("frmGrilaFC2").close();
w.click("lblLuna");
equal(win("frmLDoc").grid("grdParent").column("ID").slice().sort(), ["BS2", "FC1", "FC4", "FF6", "FS3"], "the documents of the month");
win("frmLDoc").close();
w.set("chkLaPornire", true);
w.close();

restart();
equal(win("frmPanou").text("lblAzi"), "107,10", "at the start");

// A user without the menu of sales does not get to its windows from here.
sql("INSERT INTO UTILIZATORI (NUME, PAROLA, TIP) VALUES ('ANA', 'mere', 2)");
restart("ana", "mere");
check(!isOpen("frmPanou"), "each user's own choice");
w = menu("mnuPanou", "frmPanou");
w.grid("grdCiorne").select(0);
w.press("grdCiorne", "Enter");
check(!isOpen("frmGrilaFC2"), "no rights");
