// The globals and handles for scripts. Each step is a call to `bridge`, which returns when the program waits for
// the user; operations of several steps are implemented here, so that the program is idle between them.
(function (bridge, global) {
  const N = (name, ...args) => bridge.call(new Error().stack, name, args);

  function show(value) {
    return value === undefined ? "undefined" : JSON.stringify(value);
  }

  function fail(what, expected, actual) {
    const error = new Error(what);
    error.expected = expected;
    error.actual = actual;
    throw error;
  }

  function same(a, b) {
    if (typeof a === "number" && typeof b === "number") return a === b || Math.abs(a - b) <= 1e-9;
    if (a === null || b === null || typeof a !== "object" || typeof b !== "object") return a === b;
    if (Array.isArray(a) !== Array.isArray(b)) return false;
    const keys = Object.keys(a);
    if (keys.length !== Object.keys(b).length) return false;
    return keys.every((key) => Object.prototype.hasOwnProperty.call(b, key) && same(a[key], b[key]));
  }

  // Types into the focused control; returns whether the same window was in front until the end.
  function typeText(text) {
    const front = N("front");
    for (const character of String(text))
      if (!N("typeCharacter", front, character)) return false;
    return N("front") === front;
  }

  // The digits of a date in typing order: day, month, year.
  function dayFirst(date) {
    return String(date).replace(/^(\d{4})-(\d\d)-(\d\d)$/, "$3$2$1").replace(/[^0-9]/g, "");
  }

  class Grid {
    constructor(window, name) { this.window = window; this.name = name; this.N("gridCheck"); }
    N(step, ...args) { return N(step, this.window, this.name, ...args); }
    rows() { return this.N("rows"); }
    cell(row, column) { return this.N("cell", row, column); }
    column(column) { return this.N("column", column); }
    columns() { return this.N("columns"); }
    captions() { return this.N("captions"); }
    select(row) { this.N("select", row); }
    selectMany(rows) { this.N("selectMany", rows); }
    isLocked(row, column) { return this.N("isLocked", row, column); }
    colour(row, column) { return this.N("colour", row, column); }
    footer(column) { return this.N("footer", column); }

    enter(row, column, text) {
      const before = this.N("cellState", row, column);
      if (before.locked) return false;
      text = String(text);
      const at = before.row;
      const front = N("front");
      let state = before;
      const look = () => { state = this.N("cellState", at, column); };
      if (!state.editing) {
        this.N("cellReach", at, column);
        if (N("front") !== front) return false;
        look();
        if (!state.current) return false;
      }
      if (!state.editing && !before.checkable) {
        N("key", "F2");
        // After a click the grid opens its editor only when the double-click interval has passed.
        for (let waited = 0; waited < 1000 && N("front") === front; waited += 50) {
          look();
          if (state.editing) break;
          bridge.sleep(50);
        }
        if (N("front") !== front) return false;
      }
      if (state.editing) {
        const taken = this.N("editorTake", at, column, text);
        if (taken === false) { N("key", "Esc"); return false; }
        if (taken === undefined && !typeText(text)) return false;
        if (N("front") !== front) return false;
        if (this.N("cellState", at, column).editing) N("key", "Enter");
      } else if (before.checkable) {
        if (state.text !== text.toUpperCase() && state.text === before.text) N("key", "Space");
      } else {
        return false;
      }
      if (N("front") !== front) return false;
      return this.N("entryTaken", at, column, text, before.rows, before.editing ? text + "\0" : before.text);
    }

    addLine(code, quantity) {
      const row = this.rows();
      const field = this.columns().includes("CODART") ? "CODART" : "ID_Articol";
      if (!this.enter(-1, field, code)) return -1;
      if (quantity !== undefined && !this.enter(row, "CANT", quantity)) return -1;
      return row;
    }

    deleteRow(row) {
      this.N("select", row);
      this.N("gridKeys");
      N("key", "Delete");
    }
  }

  class Tree {
    constructor(window, name) { this.window = window; this.name = name; }
    nodes() { return N("treeNodes", this.window, this.name); }
    select(text) { N("treeSelect", this.window, this.name, text); }
  }

  class Window {
    constructor(number) { this.number = number; }
    N(step, ...args) { return N(step, this.number, ...args); }
    click(name) { this.N("click", name); }
    type(name, text) {
      this.N("focus", name);
      this.N("clear", name);
      // A date editor moves from part to part by itself; separators would skip one.
      if (this.N("isDate", name)) text = dayFirst(text);
      if (typeText(text)) this.N("leave", name);
    }
    press(name, key) {
      this.N("focus", name);
      N("key", key);
    }
    pick(name, text) {
      if (this.N("pick", name, String(text))) return;
      this.N("clear", name);
      if (!typeText(text) || N("choosePopup", String(text))) return;
      if (this.N("items", name).includes(String(text)) && this.N("pick", name, String(text))) return;
      this.N("leave", name);
    }
    // Drags with the mouse from one position in a control to another.
    drag(name, from, to, keys) {
      this.N("mousePress", name, from, keys);
      this.N("mouseMove", name, to);
      this.N("mouseMove", name, to);
      this.N("mouseRelease", name, to, keys);
    }
    // Drags an item of a list to a position in another control.
    carry(name, item, onto, to) { this.N("carry", name, item, onto, to); }
    items(name) { return this.N("items", name); }
    set(name, value) {
      const typed = this.N("set", name, value);
      if (typed === undefined || typed === null) return;
      if (typed === true) this.N("leave", name);
      else if (this.N("isCombo", name)) this.pick(name, typed);
      else this.type(name, typed);
    }
    tab(caption) { this.N("tab", caption); }
    tabs() { return this.N("tabs"); }
    text(name) { return this.N("text", name); }
    value(name) { return this.N("value", name); }
    isEnabled(name) { return this.N("isEnabled", name); }
    isVisible(name) { return this.N("isVisible", name); }
    isReadOnly(name) { return this.N("isReadOnly", name); }
    hasFocus(name) { return this.N("hasFocus", name); }
    tooltip(name) { return this.N("tooltip", name); }
    grid(name) { return new Grid(this.number, name); }
    tree(name) { return new Tree(this.number, name); }
    title() { return this.N("title"); }
    close() { this.N("close"); }
    shot(name) { return this.N("shotOf", name); }
  }

  function report(found, what) {
    bridge.count();
    if (found) fail(what, found.expected, found.actual);
  }

  // All windows must be closed before another company is opened.
  function closeAll() {
    while (!N("closeAll")) bridge.sleep(50);
    N("front");
  }

  Object.assign(global, {
    company(options) {
      closeAll();
      return N("company", options || {});
    },
    start(folder) {
      closeAll();
      N("start", folder);
    },
    menu(name, window) {
      N("menu", name);
      return window ? global.win(window) : undefined;
    },
    menuState: (name) => N("menuState", name),
    toolbar: (name, index) => { N("toolbar", name, index); },
    win(name) {
      for (let waited = 0; ; waited += 20) {
        const number = N("topmost", name);
        if (number) return new Window(number);
        if (waited >= 5000) fail(name + " is not open", name, "open: " + N("openNames"));
        bridge.sleep(20);
      }
    },
    isOpen: (name) => N("openCount", name) > 0,
    openCount: (name) => N("openCount", name),
    answer: (button) => { N("answer", button); },
    messages: () => N("messages"),
    expectMessage: (text, more) => report(N("expectMessage", text, more || {}), "the message differs"),
    // Answers the message box that a step shows, and compares its text.
    replied(button, step, text, more) {
      N("answer", button);
      const result = step();
      report(N("expectMessage", text, more || {}), "the message differs");
      return result;
    },
    // The two steps of most scenarios on the window that `of` returns: a command with the answers to its message
    // boxes, and a command that shows one box with that text.
    steps(of) {
      const press = (button, ...answers) => {
        answers.forEach((caption) => N("answer", caption));
        of().click(button);
      };
      return { press, refused: (button, text, more) => global.replied("OK", () => press(button), text, more) };
    },
    // The program started once more on its companies, with that user in the first warehouse.
    restart(user = "admin", password = "admin") {
      global.start(global.paths().databases);
      const login = global.win("frmLogin");
      login.type("txtUserName", user);
      login.type("txtPassword", password);
      login.press("txtPassword", "Enter");
      const warehouse = global.win("frmSelMagazie");
      warehouse.pick("DataCombo1", "Magazie 1");
      warehouse.click("cmdOK");
    },
    noMessage() {
      const text = N("unreadMessage");
      report(text === undefined || text === null ? null : { expected: "no message", actual: text },
             "a message was not read");
    },
    file: (path) => { N("file", path); },
    server: (...words) => N("server", words),
    sql: (text, ...values) => N("sql", text, values),
    equal(actual, expected, what) {
      bridge.count();
      if (!same(actual, expected)) fail(what || "the values differ", show(expected), show(actual));
    },
    check(condition, what) {
      bridge.count();
      if (!condition) fail(what || "the condition is false", "true", show(condition));
    },
    call: (name, ...values) => N("shared", name, values),
    key: (name) => { N("key", name); },
    /** Pastes the text where the focus is. */
    paste: (text) => { N("paste", text); },
    shot: (name) => N("shot", name),
    printed: () => N("printed"),
    keepPreview: (keep) => { N("keepPreview", keep); },
    pdfText: (path) => N("pdfText", path),
    paths: () => N("paths"),
    readFile: (path) => N("readFile", path),
    writeFile: (path, text, executable) => { N("writeFile", path, String(text), !!executable); },
    removeFile: (path) => { N("removeFile", path); },
    exists: (path) => N("exists", path),
    wait(ms) {
      bridge.sleep(ms);
      N("front");
    },
    today: () => N("today"),
    setToday: (date) => { N("setToday", date); },
  });
})
