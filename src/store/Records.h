// Single records of a table, written from a row that holds some of its columns: widths are checked, an empty
// text goes in as null.
#pragma once

#include <optional>

#include "store/Schema.h"
#include "util/Errors.h"

namespace velmar {

/// A row of nulls with these columns, separated by blanks.
Row rowOf(const QString& columns);

/// A row with these columns and their values in `from`; null where that has no such column.
Row rowOf(const QStringList& columns, const Row& from);

/// The row's columns that the table has.
Row ofTable(const Table& table, const Row& row);

/// The key, and what differs between the row as it was shown and as it stands now: written alone, it takes
/// nothing back that another workstation has stored meanwhile.
Row changesOf(const Table& table, const Row& row, const Row& shown);

/// Inserts the row. Its columns are columns of the table; the others take their defaults. Throws RuleError,
/// naming the column, for a text that is too long.
void insertRecord(const Table& table, const Row& row);

/// Writes the row's columns over the record that has the row's key; gives whether there is one. Throws as
/// insertRecord().
bool updateRecord(const Table& table, const Row& row);

/// Writes one column of the record with that key, in a table with one key column; the key itself can be
/// written too. Throws as insertRecord(), and gone() when there is no such record.
void updateField(const Table& table, const Value& key, const QString& column, const Value& value);

/// Deletes the record of a table with one key column; gives whether there was one.
bool deleteRecord(const Table& table, const Value& key);

/// The record of a table with one key column; an empty row (Row::isEmpty) when there is none.
Row record(const Table& table, const Value& key);

/// Reads a SELECT for many keys: `%1` in it stands for their list, `behind` holds the values that follow
/// them. Some hundred keys go into a statement, and its order holds among their rows alone.
std::vector<Row> rowsOfKeys(const QString& sql, const QStringList& keys, const Values& behind = {});

/// The error for a record that another workstation has deleted meanwhile.
RuleError gone();

/// The flag that "DA" or "NU", in any case, stands for. Throws RuleError for any other text.
bool typedFlag(const QString& text);

/// The number in the column; null gives nothing. Throws RuleError with `message` when the column holds
/// something that is no number.
std::optional<Decimal> numberIn(const Row& row, const QString& column, const QString& message,
                                const QString& title = {});

}  // namespace velmar
