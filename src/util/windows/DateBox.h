// The date field: shown as dd.MM.yyyy or dd/MM/yyyy, entered by its digits only, with a calendar.
#pragma once

#include <QDateEdit>

namespace velmar {

class DateBox : public QDateEdit {
  Q_OBJECT
 public:
  explicit DateBox(QWidget* parent = nullptr);

  /// Commits the digits typed so far; missing parts are those of the previous date ("15" is the 15th of its
  /// month). Digits that are not a date remain as typed, and the box cannot be left with them.
  void takeTyped();
  /// Shows a date without a signal; digits typed so far are discarded.
  void showDate(const QDate& date);

  void stepBy(int days) override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  StepEnabled stepEnabled() const override { return StepUpEnabled | StepDownEnabled; }
  bool isTypedWrong() const;
  void padTyped();
  void showTyped();

  QString typed_;           ///< the digits of day, month and year typed so far
  bool isRefused_ = false;  ///< the digits were refused; the next digit begins a new date
};

}  // namespace velmar
