// The date field: shown as dd.MM.yyyy or dd/MM/yyyy, typed by its digits alone, with a calendar to pick from.
#pragma once

#include <QDateEdit>

namespace velmar {

class DateBox : public QDateEdit {
  Q_OBJECT
 public:
  explicit DateBox(QWidget* parent = nullptr);

  /// Takes over digits that stand typed; what is missing comes from the date before ("15" is the 15th of its
  /// month). Digits that make no date bring the date before back.
  void takeTyped();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  void padTyped();
  void showTyped();

  QString typed_;  ///< digits of day, month and year, as far as they were typed
};

}  // namespace velmar
