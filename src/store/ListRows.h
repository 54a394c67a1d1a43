// Lists as they are looked at: the keys of all rows at once, the rows themselves a page at a time. A list of
// 100,000 articles opens as fast as one of a hundred.
#pragma once

#include <optional>

#include "store/Database.h"

namespace velmar {

/// A condition on columns, with its values bound.
struct Condition {
  QString sql;  ///< empty: every row
  Values values;

  bool isEmpty() const { return sql.isEmpty(); }
};

/// Both conditions together.
Condition operator&&(const Condition& a, const Condition& b);

/// The column's text begins with `text`, in any case; found by an index on the column. An empty text gives
/// the empty condition.
Condition beginsWith(const QString& column, const QString& text);

/// `text` with what LIKE takes as a pattern escaped by "!".
QString escapedForLike(QString text);

/// What a list shows: a statement in its parts, without condition and order.
struct ListQuery {
  QString columns;  ///< as behind SELECT
  QString from;     ///< as behind FROM
  QString key;      ///< the expression that tells a row from all others
};

/// Rows found by their place in a list.
class RowSource {
 public:
  virtual ~RowSource() = default;

  virtual int size() const = 0;
  /// The row at that place, which stands until another page of the list is read. A row that was deleted
  /// meanwhile is all nulls.
  virtual const Row& row(int place) const = 0;
  /// Reads the rows of these places, so that row() asks nothing of the database.
  virtual void fetch(int first, int last) const = 0;
  /// The first place whose field has that text in any case, -1 when there is none.
  virtual int find(const QString& field, const QString& text) const = 0;
  /// Orders the list by these fields, all up or all down; without fields as it was given.
  virtual void sort(const QStringList& fields, bool descending) = 0;
};

/// The sum of each field over the rows at these places, exact; null and empty cells count 0.
std::vector<Decimal> sumsOf(const RowSource& rows, const QList<int>& places, const QStringList& fields);

/// A record set as a list.
class RecordsetRows : public RowSource {
 public:
  explicit RecordsetRows(Recordset recordset);

  int size() const override { return static_cast<int>(order_.size()); }
  const Row& row(int place) const override { return recordset_[order_[static_cast<size_t>(place)]]; }
  void fetch(int, int) const override {}
  int find(const QString& field, const QString& text) const override;
  void sort(const QStringList& fields, bool descending) override;

 private:
  Recordset recordset_;
  std::vector<int> order_;
};

/// A list of the open company, read as described above.
class ListRows : public RowSource {
 public:
  /// `order` names columns, divided by commas; rows alike in them come by their key, nulls come first.
  /// Condition and order speak of the columns that the query gives. Reads the keys.
  ListRows(const ListQuery& query, const Condition& condition, const QString& order);

  int size() const override { return static_cast<int>(keys_.size()); }
  const Row& row(int place) const override;
  void fetch(int first, int last) const override;
  int find(const QString& field, const QString& text) const override;
  void sort(const QStringList& fields, bool descending) override;

  /// The place of the row with that key, -1 when it is not in the list.
  int placeOf(const QVariant& key) const;

 private:
  void readKeys(const QStringList& fields, bool descending);
  bool isKey(const QString& field) const;
  void readPage(int page) const;

  ListQuery query_;
  Condition condition_;
  QStringList order_;
  std::vector<QVariant> keys_;
  mutable QHash<int, std::vector<Row>> pages_;
};

}  // namespace velmar
