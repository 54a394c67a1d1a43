#include "Input.h"

#include <QApplication>
#include <QKeySequence>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QtTest/QtTest>

#include "Functions.h"

namespace velmar::scenario {

namespace {

QString described(const QWidget* widget) {
  return widget->objectName().isEmpty() ? QString::fromLatin1(widget->metaObject()->className())
                                        : widget->objectName();
}

QString textOfKey(int key, Qt::KeyboardModifiers modifiers) {
  if (modifiers & (Qt::ControlModifier | Qt::AltModifier)) return {};
  switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return QStringLiteral("\r");
    case Qt::Key_Tab:
      return QStringLiteral("\t");
    case Qt::Key_Backspace:
      return QStringLiteral("\b");
    case Qt::Key_Escape:
      return QStringLiteral("\x1b");
    case Qt::Key_Delete:
      return QStringLiteral("\x7f");
    case Qt::Key_Space:
      return QStringLiteral(" ");
    default:
      return {};
  }
}

QWindow* keyboardWindow() {
  QWidget* target = QApplication::activePopupWidget();
  if (!target) target = QApplication::focusWidget();
  if (!target) target = QApplication::activeModalWidget();
  if (!target) target = QApplication::activeWindow();
  if (!target) throw Failure(QStringLiteral("no window has the keyboard"));
  return target->window()->windowHandle();
}

void sendKey(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
  QWindow* window = keyboardWindow();
  const QPointer<QWindow> alive(window);
  QTest::sendKeyEvent(QTest::Press, window, static_cast<Qt::Key>(key), text, modifiers);
  if (alive && alive->isVisible())
    QTest::sendKeyEvent(QTest::Release, window, static_cast<Qt::Key>(key), text, modifiers);
}

// If a child window does not fit into the main window, that is enlarged as a user would do, then scrolled if
// it is still too small.
void showWithin(QMdiArea* area, QWidget* widget) {
  const auto place = [area, widget] {
    return QRect(widget->mapTo(area->viewport(), QPoint()), widget->size());
  };
  if (area->viewport()->rect().contains(place())) return;
  area->window()->setGeometry(area->screen()->availableGeometry());
  const auto scroll = [](QScrollBar* bar, int before, int behind) {
    if (before < 0) bar->setValue(bar->value() + before);
    if (behind > 0) bar->setValue(bar->value() + behind);
  };
  scroll(area->horizontalScrollBar(), place().left(), place().right() - area->viewport()->width());
  scroll(area->verticalScrollBar(), place().top(), place().bottom() - area->viewport()->height());
}

void scrollIntoView(QWidget* widget) {
  for (QWidget* parent = widget->parentWidget(); parent; parent = parent->parentWidget()) {
    if (auto* area = qobject_cast<QScrollArea*>(parent)) area->ensureWidgetVisible(widget);
    if (auto* area = qobject_cast<QMdiArea*>(parent)) showWithin(area, widget);
  }
}

}  // namespace

void pressKey(const QString& name) {
  if (name.size() == 1) {
    typeCharacter(name[0]);
    return;
  }
  QString known = name;
  known.replace(QRegularExpression(QStringLiteral("\\bEnter$")), QStringLiteral("Return"));
  const QKeySequence sequence = QKeySequence::fromString(known, QKeySequence::PortableText);
  if (sequence.count() != 1 || sequence[0].key() == Qt::Key_unknown)
    throw Failure(QStringLiteral("there is no key \"%1\"").arg(name));
  Qt::KeyboardModifiers modifiers = sequence[0].keyboardModifiers();
  int key = sequence[0].key();
  if (key == Qt::Key_F4 && modifiers == Qt::AltModifier) {
    if (QWidget* active = QApplication::activeWindow()) active->close();
    return;
  }
  if (key == Qt::Key_Tab && (modifiers & Qt::ShiftModifier)) key = Qt::Key_Backtab;
  sendKey(key, modifiers, textOfKey(key, modifiers));
}

void typeCharacter(QChar character) {
  if (character == QChar(u'\n')) {
    sendKey(Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
    return;
  }
  const QChar upper = character.toUpper();
  const bool shifted = character.isUpper() && character != character.toLower();
  sendKey(upper.unicode(), shifted ? Qt::ShiftModifier : Qt::NoModifier, QString(character));
}

void clickAt(QWidget* widget, const QPoint& place, Qt::KeyboardModifiers modifiers) {
  // An open drop-down list receives the first click.
  QWidget* popup = QApplication::activePopupWidget();
  if (popup && popup != widget->window()) popup->close();
  bringToFront(widget);
  scrollIntoView(widget);
  QWidget* window = widget->window();
  const QPoint inWindow = widget->mapTo(window, place);
  const QWidget* hit = window->childAt(inWindow);
  // A label on a button is transparent for the mouse; any other widget in front receives the click.
  const bool reached = hit == widget || (hit && widget->isAncestorOf(hit)) || (!hit && widget == window) ||
                       (hit && hit->testAttribute(Qt::WA_TransparentForMouseEvents));
  if (!reached)
    throw Failure(QStringLiteral("%1 cannot be reached with the mouse%2")
                      .arg(described(widget),
                           hit ? QStringLiteral(", %1 is in front of it").arg(described(hit)) : QString()));
  QTest::mouseClick(window->windowHandle(), Qt::LeftButton, modifiers, inWindow);
}

void pressMouse(QWidget* widget, const QPoint& place, Qt::KeyboardModifiers modifiers) {
  requireUsable(widget);
  bringToFront(widget);
  QTest::mousePress(widget->window()->windowHandle(), Qt::LeftButton, modifiers,
                    widget->mapTo(widget->window(), place));
}

void moveMouse(QWidget* widget, const QPoint& place) {
  QTest::mouseMove(widget->window()->windowHandle(), widget->mapTo(widget->window(), place));
}

void releaseMouse(QWidget* widget, const QPoint& place, Qt::KeyboardModifiers modifiers) {
  QTest::mouseRelease(widget->window()->windowHandle(), Qt::LeftButton, modifiers,
                      widget->mapTo(widget->window(), place));
}

QWidget* modalBefore(const QWidget* widget) {
  QWidget* modal = QApplication::activeModalWidget();
  if (!modal || modal == widget->window() || modal->isAncestorOf(widget)) return nullptr;
  for (const QWidget* parent = widget->window(); parent; parent = parent->parentWidget())
    if (parent == modal) return nullptr;
  return modal;
}

void requireReachable(const QWidget* widget) {
  const QWidget* modal = modalBefore(widget);
  if (!modal) return;
  const auto* text = modal->findChild<QLabel*>(QStringLiteral("lblMsg"));
  throw Failure(
      text ? QStringLiteral("the message box \"%1\" is in front of %2").arg(text->text(), described(widget))
           : QStringLiteral("%1 is in front of %2").arg(described(modal), described(widget)));
}

void bringToFront(QWidget* widget) {
  requireReachable(widget);
  QWidget* window = widget->window();
  if (QApplication::activeWindow() != window && !QApplication::activePopupWidget()) {
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    QApplication::setActiveWindow(window);
    QT_WARNING_POP
  }
  for (QWidget* parent = widget; parent; parent = parent->parentWidget()) {
    auto* sub = qobject_cast<QMdiSubWindow*>(parent);
    if (sub && sub->mdiArea() && sub->mdiArea()->activeSubWindow() != sub)
      sub->mdiArea()->setActiveSubWindow(sub);
  }
}

void requireUsable(const QWidget* widget) {
  if (!widget->isVisible()) throw Failure(QStringLiteral("%1 is hidden").arg(described(widget)));
  if (!widget->isEnabled()) throw Failure(QStringLiteral("%1 is disabled").arg(described(widget)));
}

void focus(QWidget* widget) {
  requireUsable(widget);
  bringToFront(widget);
  scrollIntoView(widget);
  if (!focusIsIn(widget)) widget->setFocus(Qt::TabFocusReason);
}

bool focusIsIn(const QWidget* widget) {
  const QWidget* focused = QApplication::focusWidget();
  return focused && (focused == widget || widget->isAncestorOf(focused));
}

void giveFocusBack() {
  if (QApplication::activePopupWidget()) return;
  QWidget* waiting = QApplication::activeModalWidget();
  QWidget* active = QApplication::activeWindow();
  if (waiting ? (active == waiting || (active && modalBefore(active) == nullptr)) : active != nullptr) return;
  if (!waiting) {
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows)
      if (window->isVisible() && window->windowType() != Qt::ToolTip &&
          (!waiting || window->objectName() == QStringLiteral("frmMain")))
        waiting = window;
  }
  if (!waiting) return;
  QT_WARNING_PUSH
  QT_WARNING_DISABLE_DEPRECATED
  QApplication::setActiveWindow(waiting);
  QT_WARNING_POP
}

}  // namespace velmar::scenario
