#include "store/ListRows.h"

#include <algorithm>
#include <numeric>

namespace velmar {

namespace {

constexpr int kPageSize = 100;
constexpr int kPagesKept = 60;

// Compares: nulls first, numbers by value, texts ignoring case.
int compared(const QVariant& a, const QVariant& b) {
  if (a.isNull() || b.isNull()) return static_cast<int>(!a.isNull()) - static_cast<int>(!b.isNull());
  if (a.typeId() == QMetaType::QString || b.typeId() == QMetaType::QString)
    return a.toString().compare(b.toString(), Qt::CaseInsensitive);
  const double left = a.toDouble();
  const double right = b.toDouble();
  return left < right ? -1 : static_cast<int>(left > right);
}

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

Condition beginsWith(const QString& column, const QString& text) {
  if (text.isEmpty()) return {};
  return {QStringLiteral("%1 >= ? AND %1 < ?").arg(column), {text, behindPrefix(text)}};
}

QString escapedForLike(QString text) {
  for (const char16_t special : {u'!', u'%', u'_'})
    text.replace(QChar(special), QStringLiteral("!") + QChar(special));
  return text;
}

std::vector<Decimal> sumsOf(const RowSource& rows, const QList<int>& places, const QStringList& fields) {
  std::vector<Decimal> sums(static_cast<size_t>(fields.size()));
  for (const int place : places) {
    const Row& row = rows.row(place);
    for (qsizetype i = 0; i < fields.size(); ++i)
      if (!row.text(fields[i]).trimmed().isEmpty()) sums[static_cast<size_t>(i)] += row.decimal(fields[i]);
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

ListRows::ListRows(const ListQuery& query, const Condition& condition, const QString& order)
    : query_(query), condition_(condition), order_(order.split(u',', Qt::SkipEmptyParts)) {
  readKeys(order_, false);
}

bool ListRows::isKey(const QString& field) const {
  return query_.key.section(QLatin1Char('.'), -1).compare(field, Qt::CaseInsensitive) == 0;
}

// The key is never null; its index can be used for the order only without NULLS FIRST or LAST.
void ListRows::readKeys(const QStringList& fields, bool descending) {
  QString order;
  for (const QString& each : fields) {
    const QString field = each.trimmed();
    const QString nulls = descending ? QStringLiteral(" NULLS LAST") : QStringLiteral(" NULLS FIRST");
    order += field + (descending ? QStringLiteral(" DESC") : QString()) + (isKey(field) ? QString() : nulls) +
             QStringLiteral(", ");
  }
  const QString where = condition_.isEmpty() ? QString() : QStringLiteral(" WHERE ") + condition_.sql;
  std::vector<QVariant> keys;
  database().each(
      QStringLiteral("SELECT ROWKEY FROM (SELECT %1 AS ROWKEY, %2 FROM %3) AS LIST%4 ORDER BY %5ROWKEY")
          .arg(query_.key, query_.columns, query_.from, where, order),
      [&keys](std::vector<QVariant>&& cells) { keys.push_back(std::move(cells[0])); }, condition_.values);
  keys_ = std::move(keys);
  pages_.clear();
}

// The statement is the same for every page; a page that is not full repeats its last key.
void ListRows::readPage(int page) const {
  const size_t first = static_cast<size_t>(page) * kPageSize;
  const size_t count = std::min<size_t>(kPageSize, keys_.size() - first);
  Values values;
  QHash<QString, size_t> places;
  for (size_t i = 0; i < kPageSize; ++i) {
    const QVariant& key = keys_[first + std::min(i, count - 1)];
    values.push_back(Value::raw(key));
    if (i < count) places.insert(key.toString(), i);
  }
  Recordset found =
      OpenRs(QStringLiteral("SELECT * FROM (SELECT %1 AS ROWKEY, %2 FROM %3) AS LIST WHERE ROWKEY IN (%4)")
                 .arg(query_.key, query_.columns, query_.from,
                      QStringList(kPageSize, QStringLiteral("?")).join(QStringLiteral(", "))),
             values);
  const auto columns = std::make_shared<Columns>(found.columns());
  std::vector<Row> rows(count, Row(columns));
  for (Row& row : found.takeRows()) {
    const auto place = places.constFind(row.at(0).toString());
    if (place != places.cend()) rows[*place] = std::move(row);
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

int ListRows::placeOf(const QVariant& key) const {
  const QString wanted = key.toString();
  const auto found = std::find_if(keys_.begin(), keys_.end(), [&wanted](const QVariant& each) {
    return each.toString().compare(wanted, Qt::CaseInsensitive) == 0;
  });
  return found == keys_.end() ? -1 : static_cast<int>(found - keys_.begin());
}

int ListRows::find(const QString& field, const QString& text) const {
  if (isKey(field)) return placeOf(text);
  for (int place = 0; place < size(); ++place)
    if (row(place).text(field).compare(text, Qt::CaseInsensitive) == 0) return place;
  return -1;
}

void ListRows::sort(const QStringList& fields, bool descending) {
  if (fields.isEmpty()) return readKeys(order_, false);
  readKeys(fields, descending);
}

}  // namespace velmar
