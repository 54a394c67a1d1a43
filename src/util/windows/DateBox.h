// The date field: shown as dd.MM.yyyy or dd/MM/yyyy, typed by its digits alone, with a calendar to pick from.
#pragma once

#include <QDateEdit>

namespace velmar {

class DateBox : public QDateEdit {
  Q_OBJECT
 public:
  explicit DateBox(QWidget* parent = nullptr);

  /// Takes over the digits typed so far; what is missing comes from the date before ("15" is the 15th of its
  /// month). Digits that make no date stay as they are typed, and the user cannot leave the box with them.
  void takeTyped();
  /// Shows a date without a signal; digits typed so far are dropped.
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

  QString typed_;           ///< digits of day, month and year, as far as they were typed
  bool isRefused_ = false;  ///< the digits were refused; the next one begins another date
};

}  // namespace velmar
