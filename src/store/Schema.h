// The single description of a company's tables: types, widths, keys and indexes. The template is created from
// it.
#pragma once

#include <QStringList>
#include <vector>

#include "store/Row.h"

namespace velmar {

class Database;
class Engine;
struct StoredStatement;

enum class ColumnType { Text, Integer, AutoNumber, Real, Boolean, Date, Time, DateTime };

struct Column {
  QString name;
  ColumnType type = ColumnType::Text;
  int width = 0;             ///< maximum length of a text; 0: a whole file, also with line breaks
  bool zeroDefault = false;  ///< a number with the default 0
  bool required = false;     ///< NOT NULL, where the type does not imply it
  QString fallback = {};     ///< a constant default value, in SQL
};

struct Index {
  QStringList columns;
  QString where;  ///< condition of a partial index; empty: all rows
};

class Table {
 public:
  explicit Table(const QString& name) : name_(name) {}

  Table& text(const QString& name, int width);
  Table& texts(const QString& names, int width);  ///< names separated by spaces
  Table& integers(const QString& names);
  Table& autoNumber(const QString& name);  ///< numbered by the engine; is the key
  Table& reals(const QString& names);
  Table& zeroReals(const QString& names);  ///< default 0, never null
  Table& flags(const QString& names);      ///< -1 and 0, never null
  Table& dates(const QString& names);
  Table& times(const QString& names);
  Table& moments(const QString& names);
  Table& key(const QString& names);
  Table& index(const QString& names, const QString& where = {});
  Table& add(const Column& column);
  Table& add(const Index& index);
  Table& keyOf(const QStringList& columns);
  Table& rule(const QString& constraint);  ///< a further constraint, in SQL
  /// Indexes that find the highest number in a text key directly. The number follows a prefix of that many
  /// characters and is counted separately for each value of the column `within`, if given.
  Table& numbered(const QString& column, int prefix = 0, const QString& within = {});

  const QString& name() const { return name_; }
  const std::vector<Column>& columns() const { return columns_; }
  const QStringList& keyColumns() const { return key_; }
  const std::vector<Index>& indexes() const { return indexes_; }
  const QStringList& rules() const { return rules_; }
  /// The column of that name, ignoring case; null if there is none.
  const Column* column(const QString& name) const;

  /// Whether the column of that name can be null.
  bool isNullable(const QString& name) const;

  /// An empty row with all columns of the table.
  Row emptyRow() const;

 private:
  Table& add(const QString& names, ColumnType type, int width = 0, bool zeroDefault = false);

  QString name_;
  std::vector<Column> columns_;
  QStringList key_;
  std::vector<Index> indexes_;
  QStringList rules_;
};

/// All tables of a company file: master data, documents, ledgers and work tables.
const std::vector<Table>& companyTables();

/// The table of that name, ignoring case. Throws StoreError if there is none.
const Table& companyTable(const QString& name);

/// The stored queries of a company.
const std::vector<StoredStatement>& companyViews();

/// The name of a table for use in a statement: quoted if it contains spaces.
QString quoted(const QString& name);

/// The statements that create the table and its indexes on that engine.
QStringList createStatements(const Table& table, const Engine& engine);

/// Creates all tables, indexes, stored queries and triggers in an empty database.
void createCompanyTables(Database& database);

/// Number of digits that always fit a 64-bit integer.
inline constexpr int kPlainDigits = 15;
/// SQL: the part of a key after the prefix.
QString keyNumber(const QString& column, int prefix);
/// SQL condition: the text consists only of digits, or is empty.
QString plainNumber(const QString& text);
/// SQL condition: the part of a key after the prefix is not a plain number of at most kPlainDigits.
QString oddNumber(const QString& column, int prefix);

/// Throws RuleError with the column when a text of the row is longer than its column allows.
void requireWidths(const Table& table, const Row& row);

/// The parts of companyTables(), each in its own source file.
std::vector<Table> masterTables();
std::vector<Table> documentTables();
std::vector<Table> ledgerTables();
std::vector<Table> hearingTables();

}  // namespace velmar
