// The main window's menu and tool bars as tables: which command opens which window.
#pragma once

#include <QString>
#include <vector>

class QWidget;

namespace velmar {

enum class Opens {
  Menu,       ///< a menu of the bar; the entries up to the next one lie in it
  Separator,  ///< with a name where something hides it
  One,        ///< one window, brought to the front by later commands
  New,        ///< a new window each time
  Modal,      ///< a modal dialog
  Command,    ///< a function without a window
  Own,        ///< handled by the main window
  OwnCheck    ///< the same, with a check mark that is set at first
};

struct MenuEntry {
  QString name;
  QString caption;
  Opens opens;
  QString window;  ///< key of the window: its name, with the kind where it has several
  QWidget* (*make)(QWidget* parent) =
      nullptr;              ///< null while the window does not exist: the entry is disabled
  void (*run)() = nullptr;  ///< the work of Opens::Command
};

struct ToolEntry {
  int index;  ///< the indexes left out are separators
  QString caption;
  QString toolTip;
  QString menuEntry;
  QString icon;
};

/// The whole menu in order.
const std::vector<MenuEntry>& menuTable();

/// `Toolbar`: settings, tables, documents.
const std::vector<ToolEntry>& toolbarTable();

/// `ToolbarRap`: reports.
const std::vector<ToolEntry>& reportToolbarTable();

}  // namespace velmar
