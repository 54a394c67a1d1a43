// The server is lost while a voucher is open, and its standby is promoted: one message, then the same window works
// on with what was typed.
company({method: "FIFO"});
sql("INSERT INTO kt_ter (COD, NUME, TIP) VALUES (1, 'FURNIZOR UNU SRL', 'F')");
sql("INSERT INTO G_FAMART (COD, DENUMIRE, CONTSTOCPROD) VALUES (1, 'Produse', '345')");
sql("INSERT INTO G_ARTMAG (CODART, DENART, UM, FAMART, COST, PRETVFT, PROVENIENTA) VALUES ('A1', 'Articol', 'Buc', 1, 10, 15, 'P')");
menu("mnuBonIntr");
const w = win("frmGRILABonIntr");
w.click("cmdFacturaNoua");
w.type("txtFields(0)", "7");
w.pick("DataCombo1", "FURNIZOR UNU SRL");
w.click("cmdSalvare");
w.grid("TDBGrid1").addLine("A1", "3");
w.type("txtFields(3)", "observatii noi");
noMessage();
server("pause");
server("promote");
answer("OK");
w.click("cmdSalvare");
expectMessage("Legatura cu serverul de baze de date s-a pierdut, nu s-a salvat nimic. Incercati din nou.");
equal(w.text("txtFields(3)"), "observatii noi", "what was typed stays");
w.click("cmdSalvare");
answer("Da");
answer("OK");
w.click("cmdValidare");
expectMessage("Sunteti sigur ca doriti sa validati bonul de intrare 7 ?");
expectMessage("Bonul de intrare a fost salvat cu succes in Articole si Documente !");
noMessage();
equal(sql("SELECT VALIDAT, OBS FROM G_BONINT"), [{VALIDAT: -1, OBS: "observatii noi"}]);
equal(sql("SELECT application_name AS NAME FROM pg_stat_activity WHERE pid = pg_backend_pid()")[0].NAME.split("|")[2], "ADMIN",
      "the list of users shows the login on this server too");
