#include "Controls.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QDropEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QStatusBar>
#include <QTabBar>
#include <QTextEdit>
#include <QtTest/QtTest>

#include "Input.h"

namespace velmar::scenario {

namespace {

// A caption as displayed: "&&" is an ampersand, a single "&" is the mnemonic mark.
QString withoutMnemonic(QString caption) {
  return caption.replace(QStringLiteral("&&"), QStringLiteral("\x01"))
      .remove(QChar(u'&'))
      .replace(QChar(u'\x01'), QChar(u'&'));
}

QString statusText(const QStatusBar* bar) {
  QStringList texts;
  if (!bar->currentMessage().isEmpty()) texts.append(bar->currentMessage());
  const QList<QLabel*> labels = bar->findChildren<QLabel*>();
  for (const QLabel* label : labels)
    if (label->isVisible() && !label->text().isEmpty()) texts.append(label->text());
  return texts.join(QChar(u' '));
}

QVariant shownValue(const QWidget* widget) {
  if (const auto* button = qobject_cast<const QAbstractButton*>(widget); button && button->isCheckable())
    return button->isChecked();
  if (const auto* group = qobject_cast<const QGroupBox*>(widget); group && group->isCheckable())
    return group->isChecked();
  if (const auto* spin = qobject_cast<const QSpinBox*>(widget)) return spin->value();
  if (const auto* spin = qobject_cast<const QDoubleSpinBox*>(widget)) return spin->value();
  return shownText(widget);
}

QString itemText(const QAbstractItemModel* model, int row, int column, const QModelIndex& root) {
  return model->index(row, column, root).data(Qt::DisplayRole).toString();
}

int rowOfText(const QAbstractItemModel* model, int column, const QModelIndex& root, const QString& text) {
  for (const auto how : {Qt::CaseSensitive, Qt::CaseInsensitive})
    for (int row = 0; row < model->rowCount(root); ++row)
      if (itemText(model, row, column, root).compare(text, how) == 0) return row;
  return -1;
}

QStringList itemsOf(const QWidget* widget) {
  QStringList texts;
  if (const auto* combo = qobject_cast<const QComboBox*>(widget)) {
    for (int i = 0; i < combo->count(); ++i) texts.append(combo->itemText(i));
    return texts;
  }
  const auto* view = qobject_cast<const QAbstractItemView*>(widget);
  if (!view) throw Failure(widget->objectName() + QStringLiteral(" is no combo and no list"));
  for (int i = 0; view->model() && i < view->model()->rowCount(view->rootIndex()); ++i)
    texts.append(itemText(view->model(), i, 0, view->rootIndex()));
  return texts;
}

// Returns false if the text must be typed, because the list is filled while typing.
bool pick(QWidget* widget, const QString& text) {
  focus(widget);
  if (auto* combo = qobject_cast<QComboBox*>(widget)) {
    if (chooseInCombo(combo, text)) return true;
    if (combo->isEditable()) return false;
  } else if (auto* view = qobject_cast<QAbstractItemView*>(widget)) {
    for (int column = 0; column < view->model()->columnCount(view->rootIndex()); ++column) {
      const int row = rowOfText(view->model(), column, view->rootIndex(), text);
      if (row < 0) continue;
      const QModelIndex index = view->model()->index(row, column, view->rootIndex());
      view->scrollTo(index);
      clickAt(view->viewport(), view->visualRect(index).center());
      return true;
    }
  } else if (qobject_cast<QLineEdit*>(widget)) {
    return false;
  }
  throw Failure(QStringLiteral("%1 has no item \"%2\"; it has: %3")
                    .arg(widget->objectName(), text, itemsOf(widget).mid(0, 30).join(QStringLiteral(", "))));
}

// Check boxes and option buttons are clickable only in a part of their rectangle.
QPoint clickPlace(const QWidget* widget) {
  const bool hasIndicator = widget->inherits("QCheckBox") || widget->inherits("QRadioButton");
  return hasIndicator ? QPoint(8, widget->height() / 2) : widget->rect().center();
}

void click(QWidget* widget) {
  requireUsable(widget);
  clickAt(widget, clickPlace(widget));
}

// Returns the text to type if the value must be typed, true if the control must lose the focus to apply the
// value, otherwise null.
QVariant set(QWidget* widget, const QVariant& value) {
  requireUsable(widget);
  if (auto* picker = qobject_cast<QDateTimeEdit*>(widget)) {
    const QDate date = QDate::fromString(value.toString().left(10), Qt::ISODate);
    if (!date.isValid()) throw Failure(QStringLiteral("\"%1\" is no ISO date").arg(value.toString()));
    focus(picker);
    if (!picker->isReadOnly()) picker->setDate(date);
    return true;
  }
  if (auto* button = qobject_cast<QAbstractButton*>(widget); button && button->isCheckable()) {
    if (button->isChecked() != value.toBool()) click(button);
    return QVariant();
  }
  if (auto* group = qobject_cast<QGroupBox*>(widget); group && group->isCheckable()) {
    focus(group);
    if (group->isChecked() != value.toBool()) pressKey(QStringLiteral("Space"));
    return QVariant();
  }
  return value.toString();
}

QList<QTabBar*> tabBars(const QWidget* form) {
  QList<QTabBar*> bars;
  const QList<QTabBar*> all = form->findChildren<QTabBar*>();
  for (QTabBar* bar : all)
    if (bar->isVisible() && bar->window() == form->window()) bars.append(bar);
  return bars;
}

QStringList tabs(const QWidget* form) {
  QStringList captions;
  const QList<QTabBar*> bars = tabBars(form);
  for (const QTabBar* bar : bars)
    for (int i = 0; i < bar->count(); ++i)
      if (bar->isTabVisible(i)) captions.append(withoutMnemonic(bar->tabText(i)));
  return captions;
}

void bringTab(QWidget* form, const QString& caption) {
  const QList<QTabBar*> bars = tabBars(form);
  for (QTabBar* bar : bars)
    for (int i = 0; i < bar->count(); ++i) {
      if (!bar->isTabVisible(i) ||
          withoutMnemonic(bar->tabText(i)).compare(withoutMnemonic(caption), Qt::CaseInsensitive) != 0)
        continue;
      if (!bar->isTabEnabled(i)) throw Failure(QStringLiteral("the tab %1 is disabled").arg(caption));
      clickAt(bar, bar->tabRect(i).center());
      return;
    }
  throw Failure(QStringLiteral("%1 has no tab \"%2\"; it has: %3")
                    .arg(form->objectName(), caption, tabs(form).join(QStringLiteral(", "))));
}

bool isReadOnly(const QWidget* widget) {
  if (!widget->isEnabled()) return true;
  if (const auto* view = qobject_cast<const QAbstractItemView*>(widget))
    return view->editTriggers() == QAbstractItemView::NoEditTriggers;
  const QVariant flag = widget->property("readOnly");
  return flag.isValid() && flag.toBool();
}

void leaveByTab(QWidget* widget) {
  if (!focusIsIn(widget)) return;
  const bool takesTabs = (qobject_cast<QTextEdit*>(widget) || qobject_cast<QPlainTextEdit*>(widget)) &&
                         !widget->property("tabChangesFocus").toBool();
  if (!takesTabs) {
    // In a date, Tab first moves through day, month and year.
    const int presses = widget->inherits("QDateTimeEdit") ? 6 : 1;
    for (int i = 0; i < presses && focusIsIn(widget); ++i) pressKey(QStringLiteral("Tab"));
    return;
  }
  QWidget* next = widget->nextInFocusChain();
  while (next != widget && !(next->focusPolicy() & Qt::TabFocus && next->isVisible() && next->isEnabled()))
    next = next->nextInFocusChain();
  next->setFocus(Qt::TabFocusReason);
}

}  // namespace

void clearByKeyboard(QWidget* editor) {
  if (!focusIsIn(editor)) return;
  if (auto* picker = qobject_cast<QDateTimeEdit*>(editor)) {
    // A date is never empty; typing replaces it part by part.
    picker->setSelectedSection(picker->sectionAt(0));
    return;
  }
  pressKey(QStringLiteral("Ctrl+A"));
  if (!shownText(editor).isEmpty() && focusIsIn(editor)) pressKey(QStringLiteral("Delete"));
}

QString shownText(const QWidget* widget) {
  if (const auto* edit = qobject_cast<const QLineEdit*>(widget)) return edit->displayText();
  if (const auto* label = qobject_cast<const QLabel*>(widget)) {
    if (label->textFormat() == Qt::RichText) {
      QTextDocument document;
      document.setHtml(label->text());
      return document.toPlainText();
    }
    return label->buddy() ? withoutMnemonic(label->text()) : label->text();
  }
  if (const auto* combo = qobject_cast<const QComboBox*>(widget)) return combo->currentText();
  if (const auto* picker = qobject_cast<const QDateTimeEdit*>(widget)) {
    const bool empty = !picker->specialValueText().isEmpty() && picker->date() == picker->minimumDate();
    return empty ? QString() : picker->date().toString(Qt::ISODate);
  }
  if (const auto* spin = qobject_cast<const QAbstractSpinBox*>(widget)) return spin->text();
  if (const auto* edit = qobject_cast<const QPlainTextEdit*>(widget)) return edit->toPlainText();
  if (const auto* edit = qobject_cast<const QTextEdit*>(widget)) return edit->toPlainText();
  if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
    return withoutMnemonic(button->text());
  if (const auto* group = qobject_cast<const QGroupBox*>(widget)) return withoutMnemonic(group->title());
  if (const auto* bar = qobject_cast<const QStatusBar*>(widget)) return statusText(bar);
  if (const auto* view = qobject_cast<const QAbstractItemView*>(widget))
    return view->currentIndex().data(Qt::DisplayRole).toString();
  return widget->property("text").toString();
}

namespace {

QWidget* mouseTarget(QWidget* widget) {
  auto* area = qobject_cast<QAbstractScrollArea*>(widget);
  return area ? area->viewport() : widget;
}

// Two numbers are a position in the control's own unit, if it has one, or in pixels.
QPoint mousePlace(QWidget* widget, const QVariant& where) {
  const QVariantList numbers = where.toList();
  const QPointF given(numbers.value(0).toDouble(), numbers.value(1).toDouble());
  QPointF place = given;
  if (widget->metaObject()->indexOfMethod("toScreen(QPointF)") >= 0)
    QMetaObject::invokeMethod(widget, "toScreen", Q_RETURN_ARG(QPointF, place), Q_ARG(QPointF, given));
  return place.toPoint();
}

// The offscreen platform has no drag and drop: this sends the events that a platform would send to the two
// controls.
void carry(QAbstractItemView* from, const QString& item, QWidget* onto, const QVariant& to) {
  requireUsable(from);
  requireUsable(onto);
  bringToFront(onto);
  const int row = rowOfText(from->model(), 0, from->rootIndex(), item);
  if (row < 0 || !from->dragEnabled())
    throw Failure(QStringLiteral("%1 has no item \"%2\" to carry").arg(from->objectName(), item));
  const std::unique_ptr<QMimeData> data(
      from->model()->mimeData({from->model()->index(row, 0, from->rootIndex())}));
  QWidget* target = mouseTarget(onto);
  const QPoint place = mousePlace(onto, to);
  QDragEnterEvent enter(place, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(target, &enter);
  if (!enter.isAccepted()) throw Failure(onto->objectName() + QStringLiteral(" does not take it"));
  QDragMoveEvent move(place, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(target, &move);
  QDropEvent drop(place, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(target, &drop);
}

void addMouseFunctions(Functions& functions, Windows& windows) {
  const auto on = [&functions, &windows](const QString& name, auto&& work) {
    functions[name] = [&windows, work](const Arguments& a) {
      QWidget* widget = windows.control(a[0], a[1]);
      const bool control = a.value(3).toString() == QStringLiteral("Ctrl");
      work(mouseTarget(widget), mousePlace(widget, a.value(2)),
           control ? Qt::ControlModifier : Qt::NoModifier);
      return QVariant();
    };
  };
  on("mousePress",
     [](QWidget* widget, const QPoint& place, Qt::KeyboardModifier key) { pressMouse(widget, place, key); });
  on("mouseMove",
     [](QWidget* widget, const QPoint& place, Qt::KeyboardModifier) { moveMouse(widget, place); });
  on("mouseRelease", [](QWidget* widget, const QPoint& place, Qt::KeyboardModifier key) {
    releaseMouse(widget, place, key);
  });
  functions["carry"] = [&windows](const Arguments& a) {
    auto* from = qobject_cast<QAbstractItemView*>(windows.control(a[0], a[1]));
    if (!from) throw Failure(a[1].toString() + QStringLiteral(" is not a list"));
    carry(from, a[2].toString(), windows.control(a[0], a[3]), a[4]);
    return QVariant();
  };
}

}  // namespace

bool chooseInCombo(QComboBox* combo, const QString& text) {
  const int row = rowOfText(combo->model(), combo->modelColumn(), combo->rootModelIndex(), text);
  if (row < 0) return false;
  combo->showPopup();
  QAbstractItemView* list = combo->view();
  list->setCurrentIndex(combo->model()->index(row, combo->modelColumn(), combo->rootModelIndex()));
  QTest::keyClick(list, Qt::Key_Return);
  return true;
}

bool chooseInPopup(const QString& text) {
  auto* list = qobject_cast<QAbstractItemView*>(QApplication::activePopupWidget());
  if (!list) return false;
  for (int column = 0; column < list->model()->columnCount(); ++column) {
    const int row = rowOfText(list->model(), column, list->rootIndex(), text);
    if (row < 0) continue;
    list->setCurrentIndex(list->model()->index(row, column, list->rootIndex()));
    pressKey(QStringLiteral("Enter"));
    return true;
  }
  return false;
}

void addControlFunctions(Functions& functions, Windows& windows) {
  const auto on = [&functions, &windows](const QString& name, auto&& work) {
    functions[name] = [&windows, work](const Arguments& a) {
      QWidget* widget = windows.control(a[0], a[1]);
      return QVariant(work(widget, a.value(2)));
    };
  };
  const auto act = [&on](const QString& name, auto&& work) {
    on(name, [work](QWidget* widget, const QVariant& value) {
      work(widget, value);
      return QVariant();
    });
  };
  act("click", [](QWidget* w, const QVariant&) { click(w); });
  act("focus", [](QWidget* w, const QVariant&) { focus(w); });
  act("clear", [](QWidget* w, const QVariant&) { clearByKeyboard(w); });
  act("leave", [](QWidget* w, const QVariant&) { leaveByTab(w); });
  on("pick", [](QWidget* w, const QVariant& v) { return pick(w, v.toString()); });
  on("set", [](QWidget* w, const QVariant& v) { return set(w, v); });
  on("items", [](QWidget* w, const QVariant&) { return itemsOf(w); });
  on("text", [](QWidget* w, const QVariant&) { return shownText(w); });
  on("value", [](QWidget* w, const QVariant&) { return shownValue(w); });
  on("isEnabled", [](QWidget* w, const QVariant&) { return w->isEnabled(); });
  on("isVisible", [](QWidget* w, const QVariant&) { return w->isVisible(); });
  on("isReadOnly", [](QWidget* w, const QVariant&) { return isReadOnly(w); });
  on("hasFocus", [](QWidget* w, const QVariant&) { return focusIsIn(w); });
  on("tooltip", [](QWidget* w, const QVariant&) { return w->toolTip(); });
  on("isDate", [](QWidget* w, const QVariant&) { return w->inherits("QDateTimeEdit"); });
  on("isCombo", [](QWidget* w, const QVariant&) { return w->inherits("QComboBox"); });
  addMouseFunctions(functions, windows);
  functions["tab"] = [&windows](const Arguments& a) {
    bringTab(windows.window(a[0].toInt()), a[1].toString());
    return QVariant();
  };
  functions["tabs"] = [&windows](const Arguments& a) { return tabs(windows.window(a[0].toInt())); };
  functions["choosePopup"] = [](const Arguments& a) { return chooseInPopup(a[0].toString()); };
  functions["paste"] = [](const Arguments& a) {
    QApplication::clipboard()->setText(a.value(0).toString());
    pressKey(QStringLiteral("Ctrl+V"));
    return QVariant();
  };
  functions["key"] = [](const Arguments& a) {
    pressKey(a[0].toString());
    return QVariant();
  };
  // Types only if the same modal window is still in front; returns whether it did.
  functions["typeCharacter"] = [](const Arguments& a) {
    const auto front = reinterpret_cast<quintptr>(QApplication::activeModalWidget());
    if (QString::number(front) != a[0].toString()) return false;
    typeCharacter(a[1].toString().at(0));
    return true;
  };
}

}  // namespace velmar::scenario
