// Conditions that a user builds on the columns of a list: field, comparison, value, and/or. Values are bound
// and columns come from the given list, so no user input becomes part of a statement's text.
#pragma once

#include <functional>

#include "store/ListRows.h"
#include "store/Schema.h"

namespace velmar {

/// One of the values that can be chosen for a field.
struct FilterChoice {
  QString text;
  QVariant value;
};

struct FilterField {
  QString column;
  QString caption;
  ColumnType type = ColumnType::Text;
  /// Returns the values to choose from; if not set, the value is typed.
  std::function<QList<FilterChoice>()> choices = {};
  /// Whether they are so many that a window should read them only when they are needed; if not set, no.
  std::function<bool()> hasManyChoices = {};
};

enum class Comparison { Equal, NotEqual, Less, More, Between, BeginsWith, Contains, Empty };

/// The comparisons in display order, with their texts.
const QList<std::pair<Comparison, QString>>& comparisons();

/// The columns of a table as filter fields, by caption: `captions` has the captions that differ from the
/// column name, `without` the columns to leave out.
QList<FilterField> filterFields(const Table& table, const QHash<QString, QString>& captions,
                                const QStringList& without);

/// Lets the field of that column offer the results of a statement (value, text).
void offerChoices(QList<FilterField>& fields, const QString& column, const QString& sql);
/// Lets a flag field offer two texts, for true and false.
void offerFlag(QList<FilterField>& fields, const QString& column, const QString& yes, const QString& no);
/// Lets a flag field offer "DA" and "NU".
void offerYesNo(QList<FilterField>& fields, const QString& column);

/// One comparison as typed. A choice is identified by its value; `first` is its text.
struct FilterTerm {
  FilterField field;
  Comparison comparison = Comparison::Equal;
  QString first;
  QString second;  ///< of Comparison::Between
  QVariant choice = {};
};

class Filter {
 public:
  /// Joins a comparison to the existing condition. Throws RuleError with the field "first" or "second" when a
  /// value is missing or does not fit the column.
  void add(const FilterTerm& term, bool orElse = false);
  void clear() { *this = Filter(); }
  bool isEmpty() const { return condition_.isEmpty(); }

  const Condition& condition() const { return condition_; }
  /// The condition as a text for the user: (DENUMIRE incepe cu "Sca" si COD VALUTA este gol) sau COD egal cu
  /// "A".
  const QString& text() const { return text_; }

 private:
  Condition condition_;
  QString text_;
  int terms_ = 0;
  bool lastOr_ = false;  ///< how the last two terms were joined
};

}  // namespace velmar
