#include "store/ListRows.h"

#include <algorithm>
#include <iterator>
#include <numeric>

#include "util/Errors.h"

namespace velmar {

namespace {

constexpr int kPageSize = 100;
constexpr int kPagesKept = 60;
constexpr QChar kKeySeparator(0x1F);

// Compares: nulls first, numbers by value, texts ignoring case.
int compared(const QVariant& a, const QVariant& b) {
  if (a.isNull() || b.isNull()) return static_cast<int>(!a.isNull()) - static_cast<int>(!b.isNull());
  if (a.typeId() == QMetaType::QString || b.typeId() == QMetaType::QString)
    return a.toString().compare(b.toString(), Qt::CaseInsensitive);
  const double left = a.toDouble();
  const double right = b.toDouble();
  return left < right ? -1 : static_cast<int>(left > right);
}

// The name of a column in an expression such as "LD.DOCID".
QString fieldOf(const QString& column) { return column.section(QLatin1Char('.'), -1); }

// A text that sorts after every text that begins with `prefix`.
QString behindPrefix(const QString& prefix) {
  constexpr char32_t kLastCharacter = 0x10FFFF;
  return prefix + QString::fromUcs4(&kLastCharacter, 1);
}

}  // namespace

Condition operator&&(const Condition& a, const Condition& b) {
  if (a.isEmpty()) return b;
  if (b.isEmpty()) return a;
  Condition both{QStringLiteral("(%1) AND (%2)").arg(a.sql, b.sql), a.values};
  both.values.insert(both.values.end(), b.values.begin(), b.values.end());
  return both;
}

QString whereOf(const Condition& condition) {
  return condition.isEmpty() ? QString() : QStringLiteral(" WHERE ") + condition.sql;
}

Condition beginsWith(const QString& column, const QString& text) {
  if (text.isEmpty()) return {};
  return {QStringLiteral("%1 >= ? AND %1 < ?").arg(column), {text, behindPrefix(text)}};
}

QString escapedForLike(QString text) {
  for (const char16_t special : {u'!', u'%', u'_'})
    text.replace(QChar(special), QStringLiteral("!") + QChar(special));
  return text;
}

// SQLite makes inner joins of left ones when the condition is "A IS NOT NULL AND B IS NOT NULL".
ListQuery joinedList(const QString& columns, const QString& joins, const QStringList& keys,
                     const QString& key) {
  const QString missing = keys.join(QStringLiteral(" IS NULL OR "));
  return {columns, joins.arg(QStringLiteral("INNER")), key,
          QStringLiteral("%1 WHERE NOT (%2 IS NULL)").arg(joins.arg(QStringLiteral("LEFT")), missing)};
}

QString keyText(const Row& row, const QString& fields) {
  QStringList texts;
  for (const QString& field : fields.split(u',')) texts.append(row.text(field.trimmed()));
  return texts.join(kKeySeparator);
}

std::vector<Decimal> sumsOf(const RowSource& rows, const QList<int>& places,
                            const QList<TotalledField>& fields) {
  std::vector<Decimal> sums(static_cast<size_t>(fields.size()));
  for (const int place : places) {
    const Row& row = rows.row(place);
    for (qsizetype i = 0; i < fields.size(); ++i) {
      const TotalledField& total = fields[i];
      if (row.text(total.field).trimmed().isEmpty()) continue;
      const Decimal amount = row.decimal(total.field);
      sums[static_cast<size_t>(i)] += total.sign ? amount * Decimal(total.sign(row)) : amount;
    }
  }
  return sums;
}

RecordsetRows::RecordsetRows(Recordset recordset)
    : recordset_(std::move(recordset)), order_(static_cast<size_t>(recordset_.size())) {
  std::iota(order_.begin(), order_.end(), 0);
}

int RecordsetRows::find(const QString& field, const QString& text) const {
  for (int place = 0; place < size(); ++place)
    if (row(place).text(field).compare(text, Qt::CaseInsensitive) == 0) return place;
  return -1;
}

void RecordsetRows::sort(const QStringList& fields, bool descending) {
  std::iota(order_.begin(), order_.end(), 0);
  std::stable_sort(order_.begin(), order_.end(), [&](int a, int b) {
    for (const QString& field : fields) {
      const int difference = compared(recordset_[a].value(field), recordset_[b].value(field));
      if (difference != 0) return descending ? difference > 0 : difference < 0;
    }
    return false;
  });
}

qint64 countOf(Database& connection, const ListQuery& query, const Condition& condition) {
  return connection
      .query(QStringLiteral("SELECT COUNT(*) AS N FROM (SELECT %1 FROM %2) AS LIST%3")
                 .arg(query.columns, query.from, whereOf(condition)),
             condition.values)
      .first()
      .integer("N");
}

std::vector<QVariant> readKeys(Database& connection, const KeyStatement& statement,
                               const std::atomic<bool>& isStopped) {
  std::vector<QVariant> keys;
  connection.each(
      statement.sql,
      [&keys, &isStopped](std::vector<QVariant>&& cells) {
        if (isStopped) throw Cancelled();
        std::move(cells.begin(), cells.end(), std::back_inserter(keys));
      },
      statement.values);
  return keys;
}

ListRows::ListRows(const ListQuery& query, const Condition& condition, const QString& order, bool descending,
                   Read read)
    : query_(query),
      keyColumns_(query.key.split(u',', Qt::SkipEmptyParts)),
      condition_(condition),
      order_(order.split(u',', Qt::SkipEmptyParts)),
      descending_(descending) {
  for (QString& column : keyColumns_) column = column.trimmed();
  readKeys(order_, descending_, read);
}

bool ListRows::isKey(const QString& field) const {
  return std::any_of(keyColumns_.begin(), keyColumns_.end(), [&field](const QString& column) {
    return fieldOf(column).compare(field, Qt::CaseInsensitive) == 0;
  });
}

// The key columns as ROWKEY0, ROWKEY1 and so on, then the columns of the list.
QString ListRows::selected(const QString& from) const {
  QString columns;
  for (qsizetype i = 0; i < keyColumns_.size(); ++i)
    columns += QStringLiteral("%1 AS ROWKEY%2, ").arg(keyColumns_[i]).arg(i);
  return QStringLiteral("(SELECT %1%2 FROM %3) AS LIST").arg(columns, query_.columns, from);
}

KeyStatement ListRows::inOrder(const QString& columns, const QString& from) const {
  return {QStringLiteral("SELECT %1 FROM %2%3 ORDER BY %4")
              .arg(columns, selected(from), whereOf(condition_), orderText_),
          condition_.values};
}

KeyStatement ListRows::first(const QString& columns, int count) const {
  KeyStatement statement = inOrder(columns, query_.firstFrom.isEmpty() ? query_.from : query_.firstFrom);
  statement.sql += QStringLiteral(" LIMIT %1").arg(count);
  return statement;
}

// A key is never null; its index can be used for the order only without NULLS FIRST or LAST. Equal rows are
// ordered by the key columns that are not in the order yet.
void ListRows::readKeys(const QStringList& fields, bool descending, Read read) {
  QStringList order, keyNames, ordered;
  for (const QString& each : fields) {
    const QString field = each.trimmed();
    const QString nulls = descending ? QStringLiteral(" NULLS LAST") : QStringLiteral(" NULLS FIRST");
    order.append(field + (descending ? QStringLiteral(" DESC") : QString()) +
                 (isKey(field) ? QString() : nulls));
    ordered.append(field.toUpper());
  }
  for (size_t i = 0; i < width(); ++i) {
    const QString name = QStringLiteral("ROWKEY%1").arg(i);
    keyNames.append(name);
    if (!ordered.contains(fieldOf(keyColumns_[static_cast<qsizetype>(i)]).toUpper())) order.append(name);
  }
  keyNames_ = keyNames.join(QStringLiteral(", "));
  orderText_ = order.join(QStringLiteral(", "));
  statement_ = inOrder(keyNames_, query_.from);
  pages_.clear();
  isWhole_ = read == Read::Whole;
  if (read == Read::FirstPart) return readFirstPage();
  keys_ = velmar::readKeys(database(), statement_, false);
}

// One row more than a page tells whether there are others.
void ListRows::readFirstPage() {
  const KeyStatement statement = first(QStringLiteral("*"), kPageSize + 1);
  std::vector<Row> rows = OpenRs(statement.sql, statement.values).takeRows();
  isWhole_ = rows.size() <= kPageSize;
  if (!isWhole_) rows.pop_back();
  keys_.clear();
  for (const Row& row : rows)
    for (size_t i = 0; i < width(); ++i) keys_.push_back(row.at(static_cast<int>(i)));
  if (!rows.empty()) pages_.emplace(0, std::move(rows));
}

std::vector<QVariant> ListRows::firstKeys(int count) const {
  return velmar::readKeys(database(), first(keyNames_, count), false);
}

bool ListRows::isContinuedBy(const std::vector<QVariant>& keys) const {
  return keys.size() >= keys_.size() && std::equal(keys_.begin(), keys_.end(), keys.begin());
}

// The pages that were read stay; the last one may have been short.
void ListRows::complete(std::vector<QVariant>&& keys) {
  extend(std::move(keys));
  isWhole_ = true;
}

void ListRows::extend(std::vector<QVariant>&& keys) {
  if (!isContinuedBy(keys)) pages_.clear();
  if (size() % kPageSize != 0) pages_.remove(size() / kPageSize);
  keys_ = std::move(keys);
}

QString ListRows::keyAt(size_t place) const {
  QString text = keys_[place * width()].toString();
  for (size_t i = 1; i < width(); ++i) text += kKeySeparator + keys_[place * width() + i].toString();
  return text;
}

// The statement is the same for every page; a page that is not full repeats its last key. The rows of keys
// with several columns are among those that have one of the values in each column.
void ListRows::readPage(int page) const {
  const size_t first = static_cast<size_t>(page) * kPageSize;
  const size_t count = std::min<size_t>(kPageSize, static_cast<size_t>(size()) - first);
  Values values;
  QStringList conditions;
  const QString places = QStringList(kPageSize, QStringLiteral("?")).join(QStringLiteral(", "));
  for (size_t column = 0; column < width(); ++column) {
    conditions.append(QStringLiteral("ROWKEY%1 IN (%2)").arg(QString::number(column), places));
    for (size_t i = 0; i < kPageSize; ++i)
      values.push_back(Value::raw(keys_[(first + std::min(i, count - 1)) * width() + column]));
  }
  QHash<QString, size_t> wanted;
  for (size_t i = 0; i < count; ++i) wanted.insert(keyAt(first + i), i);
  Recordset found = OpenRs(QStringLiteral("SELECT * FROM %1 WHERE %2")
                               .arg(selected(query_.from), conditions.join(QStringLiteral(" AND "))),
                           values);
  const auto columns = std::make_shared<Columns>(found.columns());
  std::vector<Row> rows(count, Row(columns));
  for (Row& row : found.takeRows()) {
    QString key = row.at(0).toString();
    for (size_t i = 1; i < width(); ++i) key += kKeySeparator + row.at(static_cast<int>(i)).toString();
    const auto place = wanted.constFind(key);
    if (place != wanted.cend()) rows[*place] = std::move(row);
  }
  if (pages_.size() >= kPagesKept) pages_.clear();
  pages_.emplace(page, std::move(rows));
}

const Row& ListRows::row(int place) const {
  const int page = place / kPageSize;
  if (!pages_.contains(page)) readPage(page);
  return pages_[page][static_cast<size_t>(place % kPageSize)];
}

void ListRows::fetch(int first, int last) const {
  if (keys_.empty()) return;
  first = std::clamp(first, 0, size() - 1);
  last = std::clamp(last, first, size() - 1);
  for (int page = first / kPageSize; page <= last / kPageSize; ++page)
    if (!pages_.contains(page)) readPage(page);
}

int ListRows::placeOf(const QString& key) const {
  for (size_t place = 0; place < static_cast<size_t>(size()); ++place)
    if (keyAt(place).compare(key, Qt::CaseInsensitive) == 0) return static_cast<int>(place);
  return -1;
}

int ListRows::find(const QString& field, const QString& text) const {
  QStringList names;
  for (const QString& column : keyColumns_) names.append(fieldOf(column));
  if (names.join(u',').compare(field, Qt::CaseInsensitive) == 0) return placeOf(text);
  for (int place = 0; place < size(); ++place)
    if (row(place).text(field).compare(text, Qt::CaseInsensitive) == 0) return place;
  return -1;
}

void ListRows::sort(const QStringList& fields, bool descending) {
  if (fields.isEmpty()) return readKeys(order_, descending_, Read::Whole);
  readKeys(fields, descending, Read::Whole);
}

}  // namespace velmar
