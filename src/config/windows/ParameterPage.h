// A tab of the parameters window: a card for columns of the single record, and the focus on a column at
// fault.
#pragma once

#include <QWidget>

#include "store/windows/Card.h"

class QGridLayout;
class QLineEdit;

namespace velmar {

class ParameterPage : public QWidget {
  Q_OBJECT
 public:
  explicit ParameterPage(QWidget* parent);

  /// Shows the stored values.
  void load();
  /// Stores the values of the controls. Throws RuleError with the column at fault; nothing is then stored.
  void save();

  /// Whether the controls have unsaved changes.
  bool isChanged() const { return card_.isChanged(); }
  /// Sets the focus on the control of the column.
  void focusColumn(const QString& column);

 signals:
  void edited();

 protected:
  virtual void showStored() = 0;
  virtual void storeShown() = 0;

  Card& card() { return card_; }
  /// A box for a column of the table, wide enough for the column's maximum length.
  QLineEdit* addTextBox(const QString& name, const QString& table, const QString& column,
                        const QString& toolTip = {});
  /// A box for a number of at most `width` characters, checked when it is left.
  QLineEdit* addNumberBox(const QString& name, const QString& column, int width, const QString& message,
                          const QString& toolTip = {});

 private:
  Card card_;
};

/// Makes the box wide enough for as many digits as it takes.
void makeRoomForDigits(QLineEdit* box);

/// A control with its caption to the left of it.
void addField(QGridLayout* grid, int row, int column, const QString& caption, QWidget* control, int span = 1);

}  // namespace velmar
