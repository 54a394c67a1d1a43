#include "util/windows/DateBox.h"

#include <QCalendarWidget>
#include <QKeyEvent>
#include <QLineEdit>

namespace velmar {

namespace {

constexpr int kDigits = 8;
constexpr int kCentury = 2000;

// The date that the digits mean, beside the date they replace.
QDate dateOf(const QString& digits, const QDate& before) {
  const int day = digits.left(2).toInt();
  const int month = digits.size() > 2 ? digits.mid(2, 2).toInt() : before.month();
  int year = digits.size() > 4 ? digits.mid(4).toInt() : before.year();
  if (digits.size() > 4 && digits.size() <= 6) year += kCentury;
  return QDate(year, month, day);
}

}  // namespace

DateBox::DateBox(QWidget* parent) : QDateEdit(parent) {
  setDisplayFormat(QStringLiteral("dd.MM.yyyy"));
  setCalendarPopup(true);
  calendarWidget()->setLocale(QLocale(QLocale::Romanian, QLocale::Romania));
  calendarWidget()->setHorizontalHeaderFormat(QCalendarWidget::SingleLetterDayNames);
  calendarWidget()->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
}

void DateBox::keyPressEvent(QKeyEvent* event) {
  const QString text = event->text();
  if (text.size() == 1 && text.front().isDigit()) {
    if (typed_.size() < kDigits) typed_ += text;
    if (typed_.size() == kDigits) return takeTyped();
    return showTyped();
  }
  if (!typed_.isEmpty()) {
    if (event->key() == Qt::Key_Backspace) {
      typed_.chop(1);
      return showTyped();
    }
    if (event->key() == Qt::Key_Escape) {
      typed_.clear();
      return showTyped();
    }
    if (text == QStringLiteral(".") || text == QStringLiteral("/") || text == QStringLiteral("-"))
      return padTyped();
    takeTyped();
  }
  QDateEdit::keyPressEvent(event);
}

// A separator ends a day or month typed with one digit.
void DateBox::padTyped() {
  if (typed_.size() % 2 == 1 && typed_.size() < 4) typed_.insert(typed_.size() - 1, QLatin1Char('0'));
  showTyped();
}

void DateBox::showTyped() {
  if (typed_.isEmpty()) {
    lineEdit()->setText(date().toString(displayFormat()));
    lineEdit()->selectAll();
    return;
  }
  QString shown = typed_;
  const QChar separator = displayFormat()[2];
  if (shown.size() > 4) shown.insert(4, separator);
  if (shown.size() > 2) shown.insert(2, separator);
  const QSignalBlocker quiet(lineEdit());
  lineEdit()->setText(shown);
}

void DateBox::takeTyped() {
  const QString digits = std::exchange(typed_, {});
  if (digits.isEmpty()) return;
  const QDate meant = dateOf(digits, date());
  if (meant.isValid()) setDate(meant);
  showTyped();
}

void DateBox::focusInEvent(QFocusEvent* event) {
  QDateEdit::focusInEvent(event);
  lineEdit()->selectAll();
}

void DateBox::focusOutEvent(QFocusEvent* event) {
  takeTyped();
  QDateEdit::focusOutEvent(event);
}

// Tab leaves the field; day, month and year are one thing to type.
bool DateBox::focusNextPrevChild(bool next) {
  takeTyped();
  return QWidget::focusNextPrevChild(
      next);  // NOLINT(bugprone-parent-virtual-call): the base walks the sections
}

}  // namespace velmar
