// The main window: rights by the user's type, the hearing-device entries, the bars, and the message box.
setToday("2026-03-15");

const tops = ["mnuFile", "mnuView", "mnumnuTabele", "mnuCumparari", "mnuVanzari", "mnuRap", "mnuIntretinere",
              "mnuWindow", "mnuHelp"];
const enabled = (names) => names.map((name) => menuState(name).enabled);
const visible = (names) => names.map((name) => menuState(name).visible);
function refused(name) {
  try {
    menu(name);
  } catch (error) {
    return error.message;
  }
  return "";
}

// For type 0 everything is enabled.
company();
equal(enabled(tops), [true, true, true, true, true, true, true, true, true]);
equal(menuState("mnuCreare").enabled, true);
equal(visible(["mnuVanzariComanda", "mnuVanzFactura", "mnuStorno", "mnuBonConsum"]), [true, true, true, true]);
equal(visible(["mnuComenziAudio", "mnuFacturiAudio", "mnuBonReparatie", "mnuComisioane"]),
      [false, false, false, false]);
equal(refused("mnuComenziAudio"), "the menu entry mnuComenziAudio is hidden");

// The check marks of the view menu match what is visible.
const main = win("frmMain");
for (const [entry, bar] of [["mnuViewStatusBar", "sbStatusBar"], ["mnuViewLeftBar", "Toolbar"],
                            ["mnuViewRightBar", "ToolbarRap"]]) {
  equal([menuState(entry).checked, main.isVisible(bar)], [true, true]);
  menu(entry);
  equal([menuState(entry).checked, main.isVisible(bar)], [false, false]);
  menu(entry);
  equal([menuState(entry).checked, main.isVisible(bar)], [true, true]);
}

// The window of connections can be opened several times, that of companies once; they can be arranged.
menu("mnuConexiuni");
menu("mnuConexiuni");
menu("mnuCreare");
menu("mnuCreare");
equal([openCount("frmConexiuni"), openCount("frmSocietati")], [2, 1]);
const users = win("frmConexiuni");
equal(users.title(), "Utilizatori conectati");
users.click("cmConexiuni");
equal(users.text("lblUsers"), "1 Conexiuni deschise");
menu("mnuWindowCascade");
menu("mnuWindowTileHorizontal");
menu("mnuWindowTileVertical");
users.close();
equal(openCount("frmConexiuni"), 1);

// About is modal and shows the version.
const about = menu("mnuHelpAbout", "frmAbout");
equal(about.title(), "Informatii");
equal(about.text("lblDescription"), "Program de Gestiune Comerciala");
check(/^Versiune \d+\.\d+\.\d+$/.test(about.text("lblVersion")));
check(refused("mnuCreare").includes("frmAbout is in front of"));
about.click("cmdOK");
check(!isOpen("frmAbout"));

// Without the help file the command shows a message.
replied("OK", () => menu("mnuHelpContents"), "No help file!!! ", { title: "Velmar", icon: "" });

// A yes/no box can only be closed with its buttons.
const list = menu("mnuCreare", "frmSocietati");
list.type("txtCod", "x1");
list.type("txtDenumire", "PROBA");
list.click("cmdAdauga");
list.grid("TDBGrid1").select(1);
list.click("cmdSterge");
const box = win("frmMsgBox");
equal(box.title(), "Confirmare stergere");
equal([box.text("cmdBtn(0)"), box.text("cmdBtn(1)")], ["Da", "Nu"]);
check(box.hasFocus("cmdBtn(0)"));
box.close();
check(isOpen("frmMsgBox"), "no cancel button, so the close box is refused");
key("Esc");
check(isOpen("frmMsgBox"));
box.click("cmdBtn(1)");
check(!isOpen("frmMsgBox"));
equal(messages().map((shown) => shown.answered), ["Nu"]);

// Each set of buttons with its return values, the default button, and the close box, which means cancel if there
// is such a button.
const sets = [[0, ["OK"], [1]], [1, ["OK", "Anulare"], [1, 2]],
              [2, ["Abandon", "Reincearca", "Ignora"], [3, 4, 5]], [3, ["Da", "Nu", "Anulare"], [6, 7, 2]],
              [4, ["Da", "Nu"], [6, 7]], [5, ["Reincearca", "Anulare"], [4, 2]]];
for (const [set, captions, results] of sets) {
  captions.forEach((caption, i) => {
    replied(caption, () => equal(call("Mesaj", "Text", set + 64, ""), results[i]),
            "Text", { title: "Velmar", icon: "information", buttons: captions });
    call("Mesaj", "Text", set + 256 * i, "Titlu");
    equal([win("frmMsgBox").title(), win("frmMsgBox").hasFocus(`cmdBtn(${i})`)], ["Titlu", true]);
    win("frmMsgBox").click("cmdBtn(0)");
    messages();
  });
  call("Mesaj", "Text", set);
  equal(win("frmMsgBox").isVisible("imgMsg"), false);
  win("frmMsgBox").close();
  equal(isOpen("frmMsgBox"), !captions.includes("Anulare"));
  if (isOpen("frmMsgBox")) win("frmMsgBox").click("cmdBtn(0)");
  messages();
}

// Exit closes all windows.
menu("mnuFileExit");
check(!isOpen("frmMain") && !isOpen("frmSocietati"));

// Type 1: without companies, parameters, users, warehouses, upkeep.
company({ user: "ION", type: 1 });
equal(enabled(tops), [true, true, true, true, true, true, false, true, true]);
equal(enabled(["mnuCreare", "mnuFilemnuSocConf", "mnuUtilizatori", "mnuMagazii", "mnuFileExit"]),
      [false, false, false, false, true]);
equal(refused("mnuConexiuni"), "the menu entry mnuIntretinere is disabled");

// Any other type: tables, purchases and sales are disabled too.
company({ user: "ANA", type: 7 });
equal(enabled(tops), [true, true, false, false, false, true, false, true, true]);

// Hearing devices.
company({ hearing: true });
equal(visible(["mnuVanzariComanda", "mnuVanzFactura", "mnuStorno", "mnuBonConsum"]), [false, false, false, false]);
equal(visible(["mnuComenziAudio", "mnuFacturiAudio", "mnuBonReparatie", "mnuComisioane"]),
      [true, true, true, true]);
noMessage();
