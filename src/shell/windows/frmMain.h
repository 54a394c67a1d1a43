// The main window: menu, tool bars, status bar, and the child windows in which all work happens.
#pragma once

#include <QHash>
#include <QMainWindow>
#include <vector>

#include "util/windows/WindowHost.h"

class QLabel;
class QMdiArea;
class QMdiSubWindow;

namespace velmar {

struct MenuEntry;
struct ToolEntry;

class frmMain : public QMainWindow, public WindowHost {
  Q_OBJECT
 public:
  /// Expects a company, a user and a warehouse in the session.
  frmMain();
  ~frmMain() override;

  void showChild(QWidget* window) override;
  QWidget* showOne(const QString& key, const std::function<QWidget*()>& make) override;
  QWidget* showOffered(const QString& window) override;

  /// The menu entry of that control name, also for a whole menu; null when there is none.
  QAction* menuEntry(const QString& name) const { return actions_.value(name); }

 signals:
  /// The window has closed, and its child windows with it: the process is to end.
  void closed();

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void buildMenu();
  QAction* addEntry(QMenu* menu, const MenuEntry& entry);
  /// Returns the child window that was opened or activated.
  QWidget* runEntry(const MenuEntry& entry);
  void runOwn(const QString& name);
  void runModal(const MenuEntry& entry);
  QToolBar* buildToolBar(const QString& name, const QString& title, Qt::ToolBarArea area,
                         const std::vector<ToolEntry>& entries);
  void buildStatusBar();
  void showDateAndTime();
  void placeWindow();
  void storePlace() const;
  void showHearingEntries();
  void reopenCatalogues();
  static QString tradeEntry(const QString& entry);
  void showDenomination();
  void applyRights();
  bool isAllowed(const QString& entry) const;
  void applyRightsToBars();
  void hideToolBars();
  void listChildWindows();
  void tile(Qt::Orientation orientation);
  void cascade();
  void showHelp();
  void activateChild(QMdiSubWindow* child);
  void whenNothingIsAsked(const std::function<void()>& work);
  void offerCopy();
  void offerRestoring();

  QMdiArea* area_;
  bool wasHearing_ = false;  ///< in the hearing-device trade
  QHash<QString, QAction*> actions_;
  QToolBar* toolbar_ = nullptr;
  QToolBar* toolbarRap_ = nullptr;
  QLabel* datePanel_ = nullptr;
  QLabel* timePanel_ = nullptr;
  QList<QAction*> windowList_;
  bool isOfferingCopy_ = false;
};

}  // namespace velmar
