#include "Menus.h"

#include <QAction>
#include <QApplication>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include "Input.h"

namespace velmar::scenario {

namespace {

QMainWindow* mainWindow() {
  const QWidgetList windows = QApplication::topLevelWidgets();
  for (QWidget* window : windows)
    if (auto* main = qobject_cast<QMainWindow*>(window); main && main->isVisible()) return main;
  throw Failure(QStringLiteral("the main window is not open"));
}

QString nameOf(const QAction* entry) {
  return entry->objectName().isEmpty() && entry->menu() ? entry->menu()->objectName() : entry->objectName();
}

// The path of entries from the menu bar to the one of that name; empty if there is none.
QList<QAction*> pathTo(const QList<QAction*>& entries, const QString& name) {
  for (QAction* entry : entries) {
    if (nameOf(entry) == name || (entry->menu() && entry->menu()->objectName() == name)) return {entry};
    if (!entry->menu()) continue;
    const QList<QAction*> below = pathTo(entry->menu()->actions(), name);
    if (!below.isEmpty()) return QList<QAction*>{entry} + below;
  }
  return {};
}

QList<QAction*> requirePath(const QString& name) {
  const QList<QAction*> path = pathTo(mainWindow()->menuBar()->actions(), name);
  if (path.isEmpty()) throw Failure(QStringLiteral("the menu has no entry %1").arg(name));
  return path;
}

void trigger(const QString& name) {
  const QList<QAction*> path = requirePath(name);
  for (const QAction* entry : path) {
    if (!entry->isVisible()) throw Failure(QStringLiteral("the menu entry %1 is hidden").arg(nameOf(entry)));
    if (!entry->isEnabled())
      throw Failure(QStringLiteral("the menu entry %1 is disabled").arg(nameOf(entry)));
  }
  bringToFront(mainWindow()->menuBar());
  path.last()->activate(QAction::Trigger);
}

// The button of a main tool bar with that number, which also counts separators that may be missing.
QAction* buttonAt(const QToolBar* bar, int index) {
  const QList<QAction*> actions = bar->actions();
  for (QAction* action : actions)
    if (action->property("index").toInt() == index) return action;
  return nullptr;
}

void pressToolButton(const QString& name, int index) {
  auto* bar = mainWindow()->findChild<QToolBar*>(name);
  if (!bar) throw Failure(QStringLiteral("there is no tool bar %1").arg(name));
  requireUsable(bar);
  QAction* action = buttonAt(bar, index);
  if (!action) throw Failure(QStringLiteral("%1 has no button %2").arg(name).arg(index));
  QWidget* button = bar->widgetForAction(action);
  requireReachable(bar);
  if (!action->isEnabled()) throw Failure(QStringLiteral("button %1 of %2 is disabled").arg(index).arg(name));
  if (button && button->isVisible())
    clickAt(button, button->rect().center());
  else
    action->trigger();  // in the bar's extension menu on a low screen
}

}  // namespace

void addMenuFunctions(Functions& functions) {
  functions["menu"] = [](const Arguments& a) {
    trigger(a[0].toString());
    return QVariant();
  };
  functions["menuState"] = [](const Arguments& a) {
    const QAction* entry = requirePath(a[0].toString()).last();
    return QVariantMap{{"enabled", entry->isEnabled()},
                       {"visible", entry->isVisible()},
                       {"checked", entry->isChecked()},
                       {"caption", entry->text()}};
  };
  functions["toolbar"] = [](const Arguments& a) {
    pressToolButton(a[0].toString(), a[1].toInt());
    return QVariant();
  };
}

}  // namespace velmar::scenario
