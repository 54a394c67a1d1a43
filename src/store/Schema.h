// The one description of a company's tables: it makes the template, tells a column's type, width and key, and
// makes the indexes.
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
  int width = 0;             ///< characters a text may have; 0 is without limit
  bool zeroDefault = false;  ///< a number that is 0 until written
  bool required = false;     ///< never null, for what the type alone does not tell
  QString fallback = {};     ///< a constant that stands until something is written, as statements take it
};

struct Index {
  QStringList columns;
  QString where;  ///< condition of a partial index, empty for all rows
};

class Table {
 public:
  explicit Table(const QString& name) : name_(name) {}

  Table& text(const QString& name, int width);
  Table& texts(const QString& names, int width);  ///< names separated by blanks
  Table& integers(const QString& names);
  Table& autoNumber(const QString& name);  ///< numbered by the engine; is the key
  Table& reals(const QString& names);
  Table& zeroReals(const QString& names);  ///< 0 until written, never null
  Table& flags(const QString& names);      ///< -1 and 0, never null
  Table& dates(const QString& names);
  Table& times(const QString& names);
  Table& moments(const QString& names);
  Table& key(const QString& names);
  Table& index(const QString& names, const QString& where = {});
  Table& add(const Column& column);
  Table& add(const Index& index);
  Table& keyOf(const QStringList& columns);
  Table& rule(const QString& constraint);  ///< what else its rows must meet, as a table is declared with it
  /// Indexes by which the highest number in a text key is found at once. The number stands behind a prefix of
  /// that many characters and is counted apart for each value of the column `within`, if there is one.
  Table& numbered(const QString& column, int prefix = 0, const QString& within = {});

  const QString& name() const { return name_; }
  const std::vector<Column>& columns() const { return columns_; }
  const QStringList& keyColumns() const { return key_; }
  const std::vector<Index>& indexes() const { return indexes_; }
  const QStringList& rules() const { return rules_; }
  /// The column of that name in any case, null when there is none.
  const Column* column(const QString& name) const;

  /// Whether the column of that name takes nulls.
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

/// The table of that name in any case. Throws StoreError when there is none.
const Table& companyTable(const QString& name);

/// The stored queries of a company.
const std::vector<StoredStatement>& companyViews();

/// The name of a table as a statement takes it: one with blanks stands in double quotes.
QString quoted(const QString& name);

/// The statements that make the table and its indexes on that engine.
QStringList createStatements(const Table& table, const Engine& engine);

/// Makes all tables, indexes and stored queries in an empty file.
void createCompanyTables(Database& database);

/// Digits of a plain number that always fits a whole number.
inline constexpr int kPlainDigits = 15;
/// What stands behind the prefix of a key.
QString keyNumber(const QString& column, int prefix);
/// The condition that a text is made of digits alone, or of nothing.
QString plainNumber(const QString& text);
/// The condition on a key column that what stands behind the prefix is no plain number of at most
/// kPlainDigits.
QString oddNumber(const QString& column, int prefix);

/// Throws RuleError, naming the column, when a text of the row is longer than its column allows.
void requireWidths(const Table& table, const Row& row);

/// The parts of companyTables(), each in a source of its own.
std::vector<Table> masterTables();
std::vector<Table> documentTables();
std::vector<Table> ledgerTables();

}  // namespace velmar
