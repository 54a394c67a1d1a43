// A tab of the parameters window: boxes over columns of one table, what was changed in them, where a fault
// lies.
#pragma once

#include <QHash>
#include <QWidget>

#include "store/Row.h"

class QGridLayout;
class QLineEdit;

namespace velmar {

class ParameterPage : public QWidget {
  Q_OBJECT
 public:
  using QWidget::QWidget;

  /// Shows what is stored.
  void load();
  /// Stores what stands in the controls. Throws RuleError with the column at fault, and then nothing is
  /// stored.
  void save();

  /// Whether something stands in the controls that was not saved.
  bool isChanged() const { return state() != saved_; }
  /// Puts the focus where the column is entered.
  void focusColumn(const QString& column);

 signals:
  void edited();

 protected:
  virtual void showStored() = 0;
  virtual void storeShown() = 0;

  /// A box for a column of the table, as wide as the column's text.
  QLineEdit* addTextBox(const QString& name, const QString& table, const QString& column,
                        const QString& toolTip = {});
  /// A box for a number of at most `width` characters, which must be one when it is left.
  QLineEdit* addNumberBox(const QString& name, const QString& column, int width, const QString& message,
                          const QString& toolTip = {});
  /// Says where the column is entered.
  void setControl(const QString& column, QWidget* control) { controls_.insert(column.toUpper(), control); }

  /// Puts columns of the row, separated by blanks, into their boxes.
  void showBoxes(const Row& row, const QString& columns);
  /// Takes the columns that the row has from their boxes.
  void takeBoxes(Row& row) const;

  /// Heeds all changes in the controls; to be called once they all stand.
  void watchControls();

 private:
  QStringList state() const;

  QHash<QString, QWidget*> controls_;  // by column in upper case
  QStringList saved_;
};

/// Makes the box wide enough for as many digits as it takes.
void makeRoomForDigits(QLineEdit* box);

/// A control with its caption to the left of it.
void addField(QGridLayout* grid, int row, int column, const QString& caption, QWidget* control, int span = 1);

}  // namespace velmar
