#include "util/windows/DateBox.h"

#include <QCalendarWidget>
#include <QKeyEvent>
#include <QLineEdit>

#include "util/windows/Controls.h"

namespace velmar {

namespace {

constexpr int kDigits = 8;
constexpr int kCentury = 2000;

// The date for the digits; missing parts are those of the replaced date.
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
  connect(this, &QDateEdit::dateChanged, this, [this] { typed_.clear(); });
  checkWhenLeft(
      this, [this] { return isTypedWrong() ? QStringLiteral("Data introdusa nu exista !") : QString(); }, 0,
      {}, [this] { isRefused_ = true; });
}

bool DateBox::isTypedWrong() const { return !typed_.isEmpty() && !dateOf(typed_, date()).isValid(); }

void DateBox::showDate(const QDate& date) {
  const QSignalBlocker quiet(this);
  typed_.clear();
  setDate(date);
}

// Changes the day, wherever the cursor is.
void DateBox::stepBy(int days) {
  takeTyped();
  if (!typed_.isEmpty()) return;
  setDate(date().addDays(days));
  lineEdit()->selectAll();
}

void DateBox::keyPressEvent(QKeyEvent* event) {
  const QString text = event->text();
  const bool replaces = std::exchange(isRefused_, false);
  if (replaces && (!text.isEmpty() && text.front().isDigit())) typed_.clear();
  if (text.size() == 1 && text.front().isDigit()) {
    if (typed_.size() < kDigits) typed_ += text;
    if (typed_.size() == kDigits) return takeTyped();
    return showTyped();
  }
  if (!typed_.isEmpty()) {
    if (event->key() == Qt::Key_Backspace || event->key() == Qt::Key_Delete) {
      typed_.chop(replaces || lineEdit()->hasSelectedText() ? static_cast<int>(typed_.size()) : 1);
      return showTyped();
    }
    if (event->key() == Qt::Key_Escape) {
      typed_.clear();
      return showTyped();
    }
    if (text == QStringLiteral(".") || text == QStringLiteral("/") || text == QStringLiteral("-"))
      return padTyped();
    if (event->text().isEmpty() && event->key() != Qt::Key_Up && event->key() != Qt::Key_Down) {
      event->ignore();  // a key that neither types nor moves the day, such as Shift
      return;
    }
    takeTyped();
    if (!typed_.isEmpty()) {
      event->ignore();
      return;
    }
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
  if (typed_.isEmpty() || isTypedWrong()) return;
  setDate(dateOf(std::exchange(typed_, {}), date()));
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

// Tab leaves the field instead of moving between day, month and year.
bool DateBox::focusNextPrevChild(bool next) {
  takeTyped();
  // NOLINTNEXTLINE(bugprone-parent-virtual-call): the base walks the sections
  return QWidget::focusNextPrevChild(next);
}

}  // namespace velmar
