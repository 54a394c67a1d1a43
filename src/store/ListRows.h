// Lists for display: reads the keys of all rows at once and the rows page by page. A list of 100,000 articles
// opens as fast as one of a hundred.
#pragma once

#include <atomic>
#include <functional>
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

/// " WHERE " and the condition; empty for the empty condition.
QString whereOf(const Condition& condition);

/// The column's text begins with `text`, ignoring case; uses an index on the column. An empty text returns
/// the empty condition.
Condition beginsWith(const QString& column, const QString& text);

/// `text` with the wildcards of LIKE escaped by "!".
QString escapedForLike(QString text);

/// The parts of a list's statement, without condition and order.
struct ListQuery {
  QString columns;         ///< after SELECT
  QString from;            ///< after FROM
  QString key;             ///< an expression that is unique for each row; or several, separated by commas
  QString firstFrom = {};  ///< as `from`, for the first page, if another form is faster there
};

/// A list whose rows need all of the joined tables in `joins`, "T %1 JOIN A ON ... %1 JOIN B ON ..."; `keys`
/// are columns of A, B and so on that are never null there. With inner joins the engine may begin with A and
/// then sort all rows for the first page, so that one is read by left joins whose keys are not null.
ListQuery joinedList(const QString& columns, const QString& joins, const QStringList& keys,
                     const QString& key);

/// The text of a row's key; `fields` are the key fields, separated by commas.
QString keyText(const Row& row, const QString& fields);

/// Rows accessed by their position in a list.
class RowSource {
 public:
  virtual ~RowSource() = default;

  virtual int size() const = 0;
  /// The row at that position, valid until another page of the list is read. A row that was deleted meanwhile
  /// consists of nulls.
  virtual const Row& row(int place) const = 0;
  /// Reads the rows at these positions, so that row() does not access the database.
  virtual void fetch(int first, int last) const = 0;
  /// The first position where the field has that text, ignoring case; -1 if there is none. The field may be
  /// the whole key (see keyText).
  virtual int find(const QString& field, const QString& text) const = 0;
  /// Sorts the list by these fields, all ascending or all descending; without fields, restores the original
  /// order.
  virtual void sort(const QStringList& fields, bool descending) = 0;
};

/// A field that is added up over rows.
struct TotalledField {
  QString field;
  /// The factor of a row, e.g. -1 for one that is subtracted; if not set, every row counts once.
  std::function<int(const Row&)> sign = {};
};

/// The exact sum of each field over the rows at these positions; null and empty cells count 0.
std::vector<Decimal> sumsOf(const RowSource& rows, const QList<int>& places,
                            const QList<TotalledField>& fields);

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

/// The number of rows of a query with that condition on its result columns.
qint64 countOf(Database& connection, const ListQuery& query, const Condition& condition);

/// The statement that reads the keys of a list, to be run on any connection.
struct KeyStatement {
  QString sql;
  Values values;
};

/// The key columns of all rows, one row after the other. Throws Cancelled soon after `isStopped` has become
/// true.
std::vector<QVariant> readKeys(Database& connection, const KeyStatement& statement,
                               const std::atomic<bool>& isStopped);

/// A list of the open company, read as described above.
class ListRows : public RowSource {
 public:
  enum class Read {
    Whole,
    FirstPart  ///< of a long list only the first page is read, by one statement: isWhole() is false, size()
               ///< counts the rows read
  };

  /// `order` is a list of columns, separated by commas, all ascending or all descending; equal rows are
  /// ordered by key, nulls come first, descending last. Condition and order refer to the result columns of
  /// the query. Reads the keys, or the first page.
  ListRows(const ListQuery& query, const Condition& condition, const QString& order, bool descending = false,
           Read read = Read::Whole);

  int size() const override { return static_cast<int>(keys_.size() / width()); }
  const Row& row(int place) const override;
  void fetch(int first, int last) const override;
  int find(const QString& field, const QString& text) const override;
  void sort(const QStringList& fields, bool descending) override;

  /// The position of the row with that key (its text, see keyText), -1 when it is not in the list.
  int placeOf(const QString& key) const;

  /// Number of key columns.
  size_t width() const { return static_cast<size_t>(keyColumns_.size()); }
  bool isWhole() const { return isWhole_; }
  /// The statement of all keys, in the present order.
  const KeyStatement& keyStatement() const { return statement_; }
  /// Whether the keys read so far are the first of these.
  bool isContinuedBy(const std::vector<QVariant>& keys) const;
  /// Takes these keys; the list is then whole.
  void complete(std::vector<QVariant>&& keys);
  /// The keys of the first rows, up to that number.
  std::vector<QVariant> firstKeys(int count) const;
  /// Takes the keys of more of the first rows; the list is not whole.
  void extend(std::vector<QVariant>&& keys);

 private:
  void readKeys(const QStringList& fields, bool descending, Read read);
  void readFirstPage();
  bool isKey(const QString& field) const;
  void readPage(int page) const;

  QString keyAt(size_t place) const;
  QString selected(const QString& from) const;
  KeyStatement inOrder(const QString& columns, const QString& from) const;
  KeyStatement first(const QString& columns, int count) const;

  ListQuery query_;
  QStringList keyColumns_;  ///< expressions
  Condition condition_;
  QStringList order_;
  bool descending_;
  QString keyNames_;   ///< the key columns in the result, separated by commas
  QString orderText_;  ///< after ORDER BY
  KeyStatement statement_;
  bool isWhole_ = true;
  std::vector<QVariant> keys_;  ///< the key columns of all rows, one row after the other
  mutable QHash<int, std::vector<Row>> pages_;
};

}  // namespace velmar
