// Conditions that a user composes over the columns of a list: field, comparison, value, and/or. Values are
// bound and columns are those that were offered, so nothing typed reaches a statement as text.
#pragma once

#include <functional>

#include "store/ListRows.h"
#include "store/Schema.h"

namespace velmar {

/// A value that a field offers to choose from.
struct FilterChoice {
  QString text;
  QVariant value;
};

struct FilterField {
  QString column;
  QString caption;
  ColumnType type = ColumnType::Text;
  /// The values to choose from; without it the value is typed.
  std::function<QList<FilterChoice>()> choices = {};
};

enum class Comparison { Equal, NotEqual, Less, More, Between, BeginsWith, Contains, Empty };

/// The comparisons in the order in which they are offered, with their texts.
const QList<std::pair<Comparison, QString>>& comparisons();

/// The columns of a table as filter fields, by caption: `captions` names those that are called otherwise than
/// their column, `without` those that are not offered.
QList<FilterField> filterFields(const Table& table, const QHash<QString, QString>& captions,
                                const QStringList& without);

/// Adds the values of a statement (value, text) to the field of that column.
void offerChoices(QList<FilterField>& fields, const QString& column, const QString& sql);
/// Offers "DA" and "NU" for a flag.
void offerYesNo(QList<FilterField>& fields, const QString& column);

/// One comparison as typed. A choice is given by its value, whose text is `first`.
struct FilterTerm {
  FilterField field;
  Comparison comparison = Comparison::Equal;
  QString first;
  QString second;  ///< of Comparison::Between
  QVariant choice = {};
};

class Filter {
 public:
  /// Adds a comparison to all that was said before. Throws RuleError, whose field is "first" or "second",
  /// when a value is missing or does not fit the column.
  void add(const FilterTerm& term, bool orElse = false);
  void clear() { *this = Filter(); }
  bool isEmpty() const { return condition_.isEmpty(); }

  const Condition& condition() const { return condition_; }
  /// The condition for people to read: (DENUMIRE incepe cu "Sca" si COD VALUTA este gol) sau COD egal cu "A".
  const QString& text() const { return text_; }

 private:
  Condition condition_;
  QString text_;
  int terms_ = 0;
  bool lastOr_ = false;  ///< how the last two terms were joined
};

}  // namespace velmar
