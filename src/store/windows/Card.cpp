#include "store/windows/Card.h"

#include <algorithm>
#include <QAbstractButton>
#include <QLabel>

#include "util/Clock.h"
#include "util/NumberText.h"
#include "util/windows/Controls.h"
#include "util/windows/DateBox.h"
#include "util/windows/SearchCombo.h"

namespace velmar {

namespace {

QString shownText(const QVariant& value) {
  return value.typeId() == QMetaType::Double ? editNumber(Decimal::fromDouble(value.toDouble()))
                                             : value.toString();
}

int itemOf(const QComboBox* list, const QVariant& value) {
  for (int i = 0; i < list->count(); ++i)
    if (list->itemData(i).toString().compare(value.toString(), Qt::CaseInsensitive) == 0) return i;
  return -1;
}

void setValue(QWidget* control, const QVariant& value) {
  if (auto* number = qobject_cast<NumberBox*>(control)) {
    number->setTyped(shownText(value));
  } else if (auto* box = qobject_cast<QLineEdit*>(control)) {
    box->setText(shownText(value));
    box->setCursorPosition(0);
  } else if (auto* search = qobject_cast<SearchCombo*>(control)) {
    search->showData(value);
  } else if (auto* list = qobject_cast<QComboBox*>(control)) {
    const QSignalBlocker quiet(list);
    list->setCurrentIndex(value.isNull() ? -1 : itemOf(list, value));
  } else if (auto* check = qobject_cast<QAbstractButton*>(control)) {
    const QSignalBlocker quiet(check);
    check->setChecked(value.toLongLong() != 0);
  } else if (auto* date = qobject_cast<DateBox*>(control)) {
    const QDate day = QDate::fromString(value.toString().left(10), Qt::ISODate);
    date->showDate(day.isValid() ? day : clock::today());
  } else if (auto* label = qobject_cast<QLabel*>(control)) {
    label->setText(shownText(value));
  }
}

Value textOrNull(const QString& text) { return text.isEmpty() ? Value() : Value(text); }

Value valueOf(const QWidget* control) {
  if (const auto* number = qobject_cast<const NumberBox*>(control)) {
    const auto value = number->number();
    return value ? Value(*value) : textOrNull(number->typed().trimmed());
  }
  if (const auto* box = qobject_cast<const QLineEdit*>(control)) return textOrNull(box->text().trimmed());
  if (const auto* search = qobject_cast<const SearchCombo*>(control)) return Value::raw(search->choice());
  if (const auto* list = qobject_cast<const QComboBox*>(control)) return Value::raw(list->currentData());
  if (const auto* check = qobject_cast<const QAbstractButton*>(control)) return check->isChecked();
  if (const auto* date = qobject_cast<const DateBox*>(control)) return date->date();
  if (const auto* label = qobject_cast<const QLabel*>(control)) return textOrNull(label->text());
  return {};
}

}  // namespace

// A box truncates longer texts, and saving would shorten the stored text.
void Card::put(const Bound& bound, const QVariant& value) {
  if (auto* box = qobject_cast<QLineEdit*>(bound.control))
    box->setMaxLength(std::max(bound.length, static_cast<int>(value.toString().size())));
  setValue(bound.control, value);
}

void Card::bind(const QString& column, QWidget* control) {
  auto* box = qobject_cast<QLineEdit*>(control);
  bound_.append({column, control, box ? box->maxLength() : 0});
  if (box) connect(box, &QLineEdit::textEdited, this, &Card::edited);
  if (auto* search = qobject_cast<SearchCombo*>(control)) {
    connect(search, &SearchCombo::settled, this, &Card::edited);
    requireChoiceWhenLeft(search);
  } else if (auto* list = qobject_cast<QComboBox*>(control)) {
    connect(list, &QComboBox::currentIndexChanged, this, &Card::edited);
  }
  if (auto* check = qobject_cast<QAbstractButton*>(control))
    connect(check, &QAbstractButton::toggled, this, &Card::edited);
  if (auto* date = qobject_cast<DateBox*>(control))
    connect(date, &QDateEdit::dateChanged, this, &Card::edited);
}

void Card::setDefault(const QString& column, const Value& value) {
  defaults_[column] = value;
  if (!isCleared_) return;
  for (qsizetype i = 0; i < bound_.size(); ++i)
    if (bound_[i].column == column) settled_[i] = value.data().toString();
}

void Card::show(const Row& row) {
  isCleared_ = false;
  for (const Bound& bound : bound_) put(bound, row.has(bound.column) ? row.value(bound.column) : QVariant());
  settle();
}

void Card::clear() {
  isCleared_ = true;
  for (const Bound& bound : bound_) put(bound, defaults_.value(bound.column).data());
  settle();
}

void Card::settle() {
  settled_ = state();
  emit edited();
}

void Card::showStored(const QString& column, const QVariant& value) {
  for (qsizetype i = 0; i < bound_.size(); ++i) {
    if (bound_[i].column.compare(column, Qt::CaseInsensitive) != 0) continue;
    put(bound_[i], value);
    if (i < settled_.size()) settled_[i] = state()[i];
  }
  emit edited();
}

Row Card::typed() const {
  QStringList columns;
  for (const Bound& bound : bound_) columns.append(bound.column);
  Row row(std::make_shared<Columns>(columns));
  for (const Bound& bound : bound_) row.set(bound.column, valueOf(bound.control));
  return row;
}

QStringList Card::state() const {
  QStringList texts;
  for (const Bound& bound : bound_) texts.append(valueOf(bound.control).data().toString());
  return texts;
}

bool Card::isChanged() const { return state() != settled_; }

QWidget* Card::control(const QString& column) const {
  for (const Bound& bound : bound_)
    if (bound.column.compare(column, Qt::CaseInsensitive) == 0) return bound.control;
  return nullptr;
}

QList<QWidget*> Card::controls() const {
  QList<QWidget*> all;
  for (const Bound& bound : bound_) all.append(bound.control);
  return all;
}

}  // namespace velmar
