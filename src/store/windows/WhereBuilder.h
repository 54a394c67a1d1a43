// The filter of a list, composed with the keyboard: field, comparison, value, and/or. The condition is shown
// below in words.
#pragma once

#include <QWidget>

#include "store/Filter.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace velmar {

class SearchCombo;

class WhereBuilder : public QWidget {
  Q_OBJECT
 public:
  explicit WhereBuilder(QWidget* parent = nullptr);

  /// The fields to choose from; the one of the column `first` is selected at first.
  void setFields(const QList<FilterField>& fields, const QString& first);

  /// The condition, including the values still in the boxes. Throws RuleError, with the focus on the fault,
  /// when a value is invalid.
  Condition condition();

  /// Replaces the condition: the field of that column has that value, as it is stored.
  void setCondition(const QString& column, const QString& value, const QString& last = {});

  void clear();

 signals:
  /// Enter in the value asks to search.
  void searchAsked();

 private:
  QLineEdit* valueBox(const QString& name);
  QPushButton* button(const QString& name, const QString& caption, const QString& toolTip,
                      void (WhereBuilder::*action)());
  const FilterField* field() const;
  Comparison comparison() const;
  bool hasValue() const;
  void fieldChosen();
  void offerChoices();
  bool eventFilter(QObject* watched, QEvent* event) override;
  void showBoxes();
  void addTo(Filter& filter);
  /// Adds the values of the boxes to the condition and clears them.
  void take();
  void takeGuarded(bool orElse);
  void joinAnd() { takeGuarded(false); }
  void joinOr() { takeGuarded(true); }

  QList<FilterField> fields_;
  int first_ = 0;
  Filter filter_;
  bool orElse_ = false;  ///< the boxes are joined to the condition with "or"
  QComboBox* cboCamp_;
  QComboBox* cboComparatie_;
  QLineEdit* txtValoare_;
  QLineEdit* txtValoare2_;
  SearchCombo* cboValoare_;
  bool isOffered_ = true;  ///< the list has the choices of the field
  QLabel* lblConditie_;
};

}  // namespace velmar
