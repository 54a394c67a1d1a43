// A tab of the parameters window: a card over columns of its one record, and where a fault lies.
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

  /// Shows what is stored.
  void load();
  /// Stores what stands in the controls. Throws RuleError with the column at fault, and then nothing is
  /// stored.
  void save();

  /// Whether something stands in the controls that was not saved.
  bool isChanged() const { return card_.isChanged(); }
  /// Puts the focus where the column is entered.
  void focusColumn(const QString& column);

 signals:
  void edited();

 protected:
  virtual void showStored() = 0;
  virtual void storeShown() = 0;

  Card& card() { return card_; }
  /// A box for a column of the table, as wide as the column's text.
  QLineEdit* addTextBox(const QString& name, const QString& table, const QString& column,
                        const QString& toolTip = {});
  /// A box for a number of at most `width` characters, which must be one when it is left.
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
