// The functions of the scenario runner: comparisons, the company made to order, its database, shared functions,
// files and the clock.

function failure(step) {
  try {
    step();
  } catch (error) {
    return error.message;
  }
  return "";
}

// Numbers compare within 1e-9, arrays and objects by content.
equal(0.1 + 0.2, 0.3);
equal([1, { A: null, B: "x" }], [1, { B: "x", A: null }]);
equal(failure(() => equal(1, 1.000001, "unequal")), "unequal");
equal(failure(() => equal([1, 2], [1])), "the values differ");
equal(failure(() => equal(1, "1")), "the values differ");
equal(failure(() => check(false, "reason")), "reason");

// The clock advances by days; a company made now is of that year.
setToday("2026-03-15");
equal(today(), "2026-03-15");

const folder = company();
check(call("databaseExists", folder, "Tarvon01.mdb") && exists(folder + "/Societat.xml"));
equal(paths().databases, folder);
equal(win("frmMain").title(), "Tarvon Velmar  - SOCIETATE");
equal(sql("SELECT TCOST, NrZec FROM kt_info"), [{ TCOST: "FIFO", NRZEC: 2 }]);
const periods = "SELECT DATAIC, DATASC, DATAIN, DATASN, DATAIN1, DATASN1, MODAUDIO FROM kt_par";
equal(sql(periods), [{ DATAIC: "2026-01-01", DATASC: "2026-12-31", DATAIN: "2026-01-01", DATASN: "2026-12-31",
                       DATAIN1: "2027-01-01", DATASN1: "2027-12-31", MODAUDIO: 0 }]);

// Values are bound: quotes, blanks, fractions, nulls, booleans.
sql("INSERT INTO UTILIZATORI (NUME, PAROLA, TIP) VALUES (?, ?, ?)", "d'Arc", null, 2);
equal(sql("SELECT nume, parola, tip FROM UTILIZATORI WHERE NUME = ?", "D'ARC"),
      [{ NUME: "d'Arc", PAROLA: null, TIP: 2 }]);
equal(sql("SELECT COUNT(*) AS n FROM UTILIZATORI"), [{ N: 2 }]);
check(failure(() => sql("SELECT * FROM nowhere")).includes("nowhere"));

// Shared functions by name.
equal(call("Round", 2.675, 2), 2.68);
equal(call("Round", 0.125, 2), 0.12);
equal(call("Nz", null, 7), 7);
equal(call("NzGol", "", "gol"), "gol");
equal(call("NumarUrmator", "G_FACCLI"), 1);
equal(call("InPerioadaCulegere", "2026-12-31"), true);
equal(call("InPerioadaCulegere", "2027-01-01"), false);
equal(call("ValoareSql", "SELECT TCOST FROM kt_info"), "FIFO");
equal(call("Exista", "401", "Cont"), true);
equal(call("Exista", "nimic", "Cont"), false);
equal(failure(() => call("Nicaieri")), "there is no shared function Nicaieri");

// A message shown by a shared function is answered and recorded like any other.
answer("OK");
equal(call("ValidareValoare", "abc", 0), false);
const shown = messages();
equal(shown.length, 1);
equal([shown[0].title, shown[0].buttons, shown[0].answered], ["Velmar", ["OK"], "OK"]);
noMessage();

// Without an answer the box remains open, and the script operates it.
call("ValidareValoare", "abc", 0);
check(isOpen("frmMsgBox"));
equal(failure(() => menu("mnuFileExit")).includes("is in front of"), true);
expectMessage(win("frmMsgBox").text("lblMsg"));
win("frmMsgBox").click("cmdBtn(0)");
check(!isOpen("frmMsgBox"));
equal(openCount("frmMsgBox"), 0);
equal(failure(() => expectMessage("orice")), "the message differs");

// Files, byte for byte.
const bytes = paths().drive + "/bonuri/bon1.txt";
writeFile(bytes, "S,1;\xe9\x00\r\n");
equal(readFile(bytes), "S,1;\xe9\x00\r\n");
check(exists(paths().drive + "/bonuri") && exists(paths().app));
removeFile(bytes);
check(!exists(bytes));
check(failure(() => readFile(bytes)).includes("cannot be read"));
equal(printed(), []);
shot("main");
check(exists(paths().out + "/main.png"));

// A second company is new, with the requested options.
const second = company({ method: "MP", decimals: 3, denumire: "ALFA SRL", from: "2025-07-01", to: "2026-06-30",
                         hearing: true, user: "ION", type: 2 });
check(second !== folder);
equal(win("frmMain").title(), "Tarvon Velmar  - ALFA SRL");
equal(sql("SELECT DENUMIRE, TCOST, NrZec FROM kt_info"), [{ DENUMIRE: "ALFA SRL", TCOST: "MP", NRZEC: 3 }]);
equal(sql(periods), [{ DATAIC: "2025-07-01", DATASC: "2026-06-30", DATAIN: "2025-07-01", DATASN: "2026-06-30",
                       DATAIN1: "2026-07-01", DATASN1: "2027-06-30", MODAUDIO: -1 }]);
equal(sql("SELECT NUME, TIP FROM UTILIZATORI ORDER BY NUME"), [{ NUME: "admin", TIP: 0 }, { NUME: "ION", TIP: 2 }]);
equal(menuState("mnumnuTabele").enabled, false);
equal(menuState("mnuVanzariComanda").visible, false);

company({ method: "" });
equal(sql("SELECT TCOST FROM kt_info"), [{ TCOST: null }]);
equal(failure(() => company({ metoda: "MP" })), "company() has no option metoda");
