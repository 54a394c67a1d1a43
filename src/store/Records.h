// Single records of a table, written from a row that has some of its columns: widths are checked, an empty
// text is stored as null.
#pragma once

#include <optional>

#include "store/Schema.h"
#include "util/Errors.h"

namespace velmar {

/// A row of nulls with these columns, separated by blanks.
Row rowOf(const QString& columns);

/// A row with these columns and their values in `from`; null for columns that `from` does not have.
Row rowOf(const QStringList& columns, const Row& from);

/// The row, reduced to columns of the table.
Row ofTable(const Table& table, const Row& row);

/// The key and the columns whose values differ from the row as it was shown. Writing only these does not
/// overwrite changes that another workstation has stored meanwhile.
Row changesOf(const Table& table, const Row& row, const Row& shown);

/// Throws RuleError with the column for a text with a character that is not visible (PlainText.h).
void requirePlainTexts(const Table& table, const Row& row);

/// Inserts the row. Its columns are columns of the table; the others get their defaults. Throws RuleError
/// with the column for a text that is too long or not plain.
void insertRecord(const Table& table, const Row& row);

/// Inserts the row into a table that the engine numbers and returns its key. Throws as insertRecord().
qint64 insertNumbered(const Table& table, const Row& row);

/// Updates the record with the row's key; returns whether there is one. Throws as insertRecord(), but accepts
/// any text in the key.
bool updateRecord(const Table& table, const Row& row);

/// Writes one column of the record with that key, in a table with one key column; the key itself can be
/// written too. Throws as insertRecord(), and gone() when there is no such record.
void updateField(const Table& table, const Value& key, const QString& column, const Value& value);

/// Deletes the record of a table with one key column; returns whether there was one.
bool deleteRecord(const Table& table, const Value& key);

/// The record of a table with one key column; an empty row (Row::isEmpty) when there is none.
Row record(const Table& table, const Value& key);

/// Runs a SELECT for many keys: `%1` is replaced by their list, `behind` has the values after them. The keys
/// are sent in groups of some hundred, so its ORDER BY applies only within a group.
std::vector<Row> rowsOfKeys(const QString& sql, const QStringList& keys, const Values& behind = {});

/// The error for a record that another workstation has deleted meanwhile.
RuleError gone();

/// A record was changed meanwhile in columns that are being saved.
class ChangedMeanwhile : public RuleError {
 public:
  ChangedMeanwhile(const QString& text, const Row& stored, const QStringList& columns)
      : RuleError(text, columns.first()), stored_(stored), columns_(columns) {}
  const Row& stored() const { return stored_; }            ///< the record as it is now
  const QStringList& columns() const { return columns_; }  ///< those that differ from what was shown

 private:
  Row stored_;
  QStringList columns_;
};

/// Which of the columns differ between the stored record and the one that was shown.
QStringList differing(const QStringList& columns, const Row& stored, const Row& shown);

/// Converts "DA" or "NU", ignoring case, to a flag. Throws RuleError for any other text.
bool typedFlag(const QString& text);

/// The number in the column; nothing for null. Throws RuleError with `message` when the column contains
/// something other than a number.
std::optional<Decimal> numberIn(const Row& row, const QString& column, const QString& message,
                                const QString& title = {});

}  // namespace velmar
