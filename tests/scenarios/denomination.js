// The conversion of an old company to new lei: the menu entry, the questions, the amounts and what reprints show.

company({denumire: "ATELIERUL SRL"});
equal(menuState("mnuDenominare").visible, false, "a new company counts as converted");
sql("DELETE FROM kt_val WHERE COD = 'ROL'");

// Only drafts: one without lines has nothing to convert, nor has one of the denomination's day.
const offered = () => { restart(); return menuState("mnuDenominare").visible; };
for (const [headers, lines, key, date] of [["G_COMCLI", "G_LCOMCL", "NUMCOM", "DATACOM"], ["G_NRFURN", "G_LNRFUR", "NUMNR", "DATANR"]]) {
  sql(`INSERT INTO ${headers} (${key}, ${date}) VALUES ('8', '2005-06-30'), ('9', '2005-07-01')`);
  sql(`INSERT INTO ${lines} (${key}, NRLINIE, CODART, CANT, PRETFT) VALUES ('9', 1, 'M1', 1, 20)`);
  equal(offered(), false, headers + " without lines in old lei");
  sql(`INSERT INTO ${lines} (${key}, NRLINIE, CODART, CANT, PRETFT) VALUES ('8', 1, 'M1', 1, 20000)`);
  equal(offered(), true, headers + " in old lei");
  sql(`DELETE FROM ${lines}`);
  sql(`DELETE FROM ${headers}`);
}
sql("INSERT INTO G_ARTMAG (CODART, DENART, UM, COST, PRETVFT, PRETVTTI) VALUES ('M1', 'Marfa', 'Buc', 12345.6, 20000, 23800)");
for (const [number, date] of [["1", "2005-06-30"], ["2", "2005-07-01"]]) {
  sql("INSERT INTO G_DOCUME (ID, TIP, TIPIE, DATADOC, CODMAG, TOTALFT, TOTALTVA, TOTALCOST, CURS) VALUES (?, 'FC', 'E', ?, 1, 15000, 2850, 9999, 36000)", "FC" + number, date);
  sql("INSERT INTO G_LDOCUM (DOCID, LINIE, ARTID, CANT, PRETFT, VALTVA, CODMAG) VALUES (?, 1, 'M1', 1, 15000, 2850, 1)", "FC" + number);
  sql("INSERT INTO G_FACCLI (NUMFAC, DATAFAC, CURS, VALIDAT) VALUES (?, ?, 36000, -1)", number, date);
  sql("INSERT INTO G_LFACCL (NUMFAC, NRLINIE, CODART, CANT, PRETFT, VALOAREFT) VALUES (?, 1, 'M1', 1, 15000, 15000)", number);
}
sql("INSERT INTO G_COMFUR (NUMCOM, DATACOM, CURS) VALUES ('3', '2005-01-01', 36000)");
sql("INSERT INTO G_LCOMFU (NUMCOM, NRLINIE, CODART, CANT, PRETFT, VALOARETTI) VALUES ('3', 1, 'M1', 1, 500, 700)");

restart();
equal([menuState("mnuDenominare").visible, menuState("mnuDenominare").caption], [true, "&Denominare"], "documents in old lei");

answer("Nu");
menu("mnuDenominare");
expectMessage(" Documentele cu data inregistrarii pana la 30.06.2005 vor fi convertite ireversibil in LEI NOI.", { title: "Confirmati, va rog denominarea" });
messages();
const price = () => sql("SELECT COST FROM G_ARTMAG")[0].COST;
equal(price(), 12345.6, "refused");
["Da", "OK", "OK", "OK"].forEach((button) => answer(button));
menu("mnuDenominare");
equal(messages().pop().text, "Baza de date a fost convertita in LEI NOI");
equal(Object.values(sql("SELECT COST, PRETVFT, PRETVTTI FROM G_ARTMAG")[0]), [1.2346, 2, 2.38], "rounded to whole old lei");
equal(sql("SELECT TOTALFT, CURS FROM G_DOCUME ORDER BY ID").map((row) => [row.TOTALFT, row.CURS]), [[1.5, 3.6], [15000, 36000]], "by date");
equal(sql("SELECT PRETFT FROM G_LDOCUM ORDER BY DOCID").map((row) => row.PRETFT), [1.5, 15000]);
equal(sql("SELECT CURS FROM G_FACCLI").map((row) => row.CURS), [3.6, 3.6], "rates of all drafts");
equal(sql("SELECT PRETFT FROM G_LFACCL ORDER BY NUMFAC").map((row) => row.PRETFT), [1.5, 15000]);
equal(Object.values(sql("SELECT PRETFT, VALOARETTI FROM G_LCOMFU")[0]), [0.05, 0.07]);
equal(sql("SELECT TITLU FROM kt_val WHERE COD = 'ROL'"), [{ TITLU: "LEI VECHI" }], "the marker");
replied("OK", () => menu("mnuDenominare"), " Convertirea bazei de date a fost deja facuta.");
equal(price(), 1.2346, "once");
messages();
