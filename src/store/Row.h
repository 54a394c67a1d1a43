// Rows and record sets: completely read results whose columns are accessed by name, ignoring case. Code
// outside the store does not use Qt's query classes.
#pragma once

#include <functional>
#include <memory>
#include <QDateTime>
#include <QHash>
#include <QStringList>
#include <QVariant>
#include <vector>

#include "util/Decimal.h"

namespace velmar {

/// A value to bind to a statement. There is no constructor from double: amounts are Decimal.
class Value {
 public:
  Value() = default;                                           // null
  Value(std::nullptr_t) {}                                     // NOLINT(google-explicit-constructor)
  Value(const QString& text) : data_(text) {}                  // NOLINT(google-explicit-constructor)
  Value(const char* text) : data_(QString::fromUtf8(text)) {}  // NOLINT(google-explicit-constructor)
  Value(int number) : data_(qlonglong(number)) {}              // NOLINT(google-explicit-constructor)
  Value(qint64 number) : data_(qlonglong(number)) {}           // NOLINT(google-explicit-constructor)
  Value(bool flag) : data_(qlonglong(flag ? -1 : 0)) {}        // NOLINT(google-explicit-constructor)
  Value(const Decimal& number) : data_(number.toDouble()) {}   // NOLINT(google-explicit-constructor)
  Value(const QDate& date);                                    // NOLINT(google-explicit-constructor)
  Value(const QTime& time);                                    // NOLINT(google-explicit-constructor)
  Value(const QDateTime& moment);                              // NOLINT(google-explicit-constructor)
  Value(double) = delete;

  /// A value as read from a record set.
  static Value raw(const QVariant& data);
  const QVariant& data() const { return data_; }

 private:
  QVariant data_;
};

using Values = std::vector<Value>;

/// The upper bound of a period whose last day is whole, for `<=` and BETWEEN. A date that another program
/// wrote to a file may have a time of day; those of a server have none, and there the bound is the day
/// itself.
Value endOf(const QDate& day);

/// The column names of a record set, shared by its rows.
class Columns {
 public:
  explicit Columns(const QStringList& names);
  const QStringList& names() const { return names_; }
  /// Position of the name, ignoring case; -1 if there is none.
  int indexOf(const QString& name) const;

 private:
  QStringList names_;
  QHash<QString, int> positions_;
};

class Row {
 public:
  Row() = default;
  Row(std::shared_ptr<const Columns> columns, std::vector<QVariant> cells);
  /// A row of nulls.
  explicit Row(std::shared_ptr<const Columns> columns);

  bool isEmpty() const { return !columns_; }
  bool has(const QString& column) const;
  /// The raw value. Throws StoreError when the row has no such column.
  const QVariant& value(const QString& column) const;
  const QVariant& at(int position) const { return cells_[static_cast<size_t>(position)]; }
  void set(const QString& column, const Value& value);

  bool isNull(const QString& column) const { return value(column).isNull(); }
  QString text(const QString& column) const;    ///< "" for null
  qint64 integer(const QString& column) const;  ///< null gives 0
  Decimal decimal(
      const QString& column) const;         ///< null gives 0; throws StoreError for text that is not a number
  bool flag(const QString& column) const;   ///< true for anything except 0 and null
  QDate date(const QString& column) const;  ///< an invalid date for null

  const QStringList& columns() const { return columns_->names(); }

  /// The same columns in the same order, and the same raw values.
  bool operator==(const Row& other) const;

 private:
  std::shared_ptr<const Columns> columns_;
  std::vector<QVariant> cells_;
};

/// All rows of a result, in memory.
class Recordset {
 public:
  Recordset() : columns_(std::make_shared<Columns>(QStringList())) {}
  explicit Recordset(std::shared_ptr<const Columns> columns) : columns_(std::move(columns)) {}

  bool isEmpty() const { return rows_.empty(); }
  int size() const { return static_cast<int>(rows_.size()); }
  const Row& operator[](int row) const { return rows_[static_cast<size_t>(row)]; }
  const Row& first() const { return rows_.front(); }
  auto begin() const { return rows_.begin(); }
  auto end() const { return rows_.end(); }
  const QStringList& columns() const { return columns_->names(); }

  /// Replaces each cell of the column by the result of `change`.
  void transform(const QString& column, const std::function<QVariant(const QVariant&)>& change);
  void append(std::vector<QVariant> cells) { rows_.emplace_back(columns_, std::move(cells)); }
  std::vector<Row> takeRows() { return std::move(rows_); }

 private:
  std::shared_ptr<const Columns> columns_;
  std::vector<Row> rows_;
};

/// Converts the text of a stored date to a date; null remains null.
QVariant asDate(const QVariant& cell);

/// The value, or the default if it is null.
QVariant Nz(const QVariant& value, const QVariant& defaultValue = 0);

}  // namespace velmar
