#include "Windows.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QEvent>
#include <QMdiArea>
#include <QMdiSubWindow>

#include "Input.h"

namespace velmar::scenario {

namespace {

bool isWindow(const QWidget* widget) {
  return widget->isWindow() || qobject_cast<QMdiSubWindow*>(widget->parentWidget());
}

// Tool buttons are found by the name of their action.
QWidget* buttonOfAction(const QWidget* window, const QString& name) {
  const QList<QAction*> actions = window->findChildren<QAction*>(name);
  for (const QAction* action : actions) {
    const QList<QObject*> places = action->associatedObjects();
    for (QObject* place : places)
      if (auto* bar = qobject_cast<QWidget*>(place); bar && !bar->inherits("QMenu"))
        for (QWidget* child : bar->findChildren<QWidget*>())
          if (child->actions().contains(const_cast<QAction*>(action))) return child;
  }
  return nullptr;
}

}  // namespace

Windows::Windows() { qApp->installEventFilter(this); }

bool Windows::eventFilter(QObject* watched, QEvent* event) {
  if (watched->isWidgetType() && (event->type() == QEvent::Show || event->type() == QEvent::WindowActivate) &&
      watched->objectName().startsWith(QStringLiteral("frm"))) {
    // Every child window of the main window receives the activation event; only the one in front is active.
    const auto* sub = qobject_cast<QMdiSubWindow*>(static_cast<QWidget*>(watched)->parentWidget());
    if (event->type() == QEvent::Show || !sub || (sub->mdiArea() && sub->mdiArea()->activeSubWindow() == sub))
      shown_[watched] = ++lastShown_;
  }
  if (event->type() == QEvent::Destroy) shown_.remove(watched);
  return false;
}

QWidgetList Windows::open(const QString& name) const {
  QWidgetList found;
  const QWidgetList all = QApplication::allWidgets();
  for (QWidget* widget : all)
    if (widget->objectName() == name && widget->isVisible() && isWindow(widget)) found.append(widget);
  const auto place = [this](const QWidget* widget) {
    const auto* sub = qobject_cast<QMdiSubWindow*>(widget->parentWidget());
    const bool front = widget == QApplication::activeModalWidget() ||
                       (sub && sub->mdiArea() && sub->mdiArea()->activeSubWindow() == sub);
    return std::pair(front, shown_.value(widget));
  };
  std::sort(found.begin(), found.end(),
            [&place](const QWidget* a, const QWidget* b) { return place(a) < place(b); });
  return found;
}

int Windows::topmost(const QString& name) {
  const QWidgetList found = open(name);
  if (found.isEmpty()) return 0;
  held_.append({name, found.last()});
  return static_cast<int>(held_.size());
}

QWidget* Windows::window(int number) {
  if (number < 1 || number > held_.size()) throw Failure(QStringLiteral("no such window handle"));
  Held& held = held_[number - 1];
  if (held.window && held.window->isVisible()) return held.window;
  const QWidgetList others = open(held.name);
  if (others.isEmpty()) throw Failure(held.name + QStringLiteral(" is not open"));
  held.window = others.last();
  return held.window;
}

QWidget* Windows::control(const QVariant& number, const QVariant& name) {
  QWidget* form = window(number.toInt());
  const QString wanted = name.toString();
  QWidget* hidden = nullptr;
  const QWidgetList named = form->findChildren<QWidget*>(wanted);
  for (QWidget* widget : named) {
    // An open drop-down list is a separate window, but a control for the user.
    if (widget->window() != form->window() && widget->windowType() != Qt::Popup) continue;
    if (widget->isVisible()) return widget;
    if (!hidden) hidden = widget;
  }
  if (hidden) return hidden;
  if (QWidget* button = buttonOfAction(form, wanted)) return button;
  throw Failure(QStringLiteral("%1 has no control %2").arg(form->objectName(), wanted));
}

QString saveScreenshot(QWidget* window, const QString& folder, const QString& name) {
  QDir().mkpath(folder);
  const QString path = QDir(folder).filePath(name + QStringLiteral(".png"));
  if (!window || !window->grab().save(path))
    throw Failure(QStringLiteral("no screenshot could be saved as %1").arg(path));
  return path;
}

void Windows::addFunctions(Functions& functions) {
  functions["topmost"] = [this](const Arguments& a) { return topmost(a[0].toString()); };
  functions["openCount"] = [this](const Arguments& a) { return int(open(a[0].toString()).size()); };
  functions["openNames"] = [](const Arguments&) {
    QStringList names;
    const QWidgetList all = QApplication::allWidgets();
    for (const QWidget* widget : all)
      if (widget->isVisible() && isWindow(widget) && !widget->objectName().isEmpty())
        names.append(widget->objectName());
    return names.join(QStringLiteral(", "));
  };
  functions["title"] = [this](const Arguments& a) {
    return window(a[0].toInt())->windowTitle().remove(QStringLiteral("[*]"));
  };
  functions["close"] = [this](const Arguments& a) {
    QWidget* form = window(a[0].toInt());
    bringToFront(form);
    auto* sub = qobject_cast<QMdiSubWindow*>(form->parentWidget());
    (sub ? static_cast<QWidget*>(sub) : form)->close();
    return QVariant();
  };
  // Identifies the current modal window.
  functions["front"] = [](const Arguments&) {
    return QString::number(reinterpret_cast<quintptr>(QApplication::activeModalWidget()));
  };
}

}  // namespace velmar::scenario
