#include "store/PostgresValues.h"

#include <libpq-fe.h>
#include <charconv>
#include <cmath>
#include <cstring>
#include <optional>
#include <QDateTime>
#include <QRegularExpression>

#include "store/Schema.h"

namespace velmar::postgres {

namespace {

// PostgreSQL's OIDs of the types in results.
enum TypeNumber {
  kBool = 16,
  kInt8 = 20,
  kInt2 = 21,
  kInt4 = 23,
  kFloat4 = 700,
  kFloat8 = 701,
  kTimestamp = 1114,
  kNumeric = 1700
};

// A value as text for libpq; none for null.
std::optional<QByteArray> bound(const QVariant& value) {
  if (value.isNull()) return std::nullopt;
  if (value.typeId() == QMetaType::Double) {
    char digits[40];
    // The shortest text of 1000000 is 1e+06, which is no text of a whole number to the server.
    constexpr double kLargestFixed = 1e15;
    const double number = value.toDouble();
    const auto end = std::abs(number) < kLargestFixed && number == std::floor(number)
                         ? std::to_chars(digits, digits + sizeof digits, number, std::chars_format::fixed).ptr
                         : std::to_chars(digits, digits + sizeof digits, number).ptr;
    return QByteArray(digits, end - digits);
  }
  if (value.typeId() == QMetaType::Bool) return QByteArray(value.toBool() ? "-1" : "0");
  // PostgreSQL texts cannot contain NUL; cut there.
  QString string = value.toString();
  if (string.isNull()) return std::nullopt;
  return string.remove(QChar(0)).toUtf8();
}

QVariant cell(const PGresult* result, int row, int column) {
  if (PQgetisnull(result, row, column)) return {};
  const char* value = PQgetvalue(result, row, column);
  switch (PQftype(result, column)) {
    case kInt8:
    case kInt4:
    case kInt2:
      return QVariant(static_cast<qlonglong>(std::strtoll(value, nullptr, 10)));
    case kBool:
      return QVariant(*value == 't' ? -1LL : 0LL);
    case kNumeric:
      // A sum of integers.
      if (!std::strchr(value, '.')) return QVariant(static_cast<qlonglong>(std::strtoll(value, nullptr, 10)));
      return QVariant(QByteArray(value).toDouble());
    case kFloat4:
    case kFloat8:
      return QVariant(QByteArray(value).toDouble());
    case kTimestamp: {
      const QDateTime moment =
          QDateTime::fromString(QString::fromLatin1(value).replace(u' ', u'T'), Qt::ISODateWithMs);
      return Value(moment).data();
    }
    default:
      return QVariant(QString::fromUtf8(value, PQgetlength(result, row, column)));
  }
}

}  // namespace

Bounds::Bounds(const Values& values) {
  bounds_.reserve(values.size());
  for (const Value& value : values) {
    const std::optional<QByteArray> text = bound(value.data());
    bounds_.push_back(text.value_or(QByteArray()));
    texts_.push_back(text ? bounds_.back().constData() : nullptr);
  }
}

std::vector<QVariant> cellsOf(const pg_result* result, int row) {
  const int width = PQnfields(result);
  std::vector<QVariant> cells;
  cells.reserve(static_cast<size_t>(width));
  for (int i = 0; i < width; ++i) cells.push_back(cell(result, row, i));
  return cells;
}

Spelling spellingOf(const QString& sql) {
  Spelling spelling;
  const auto addColumns = [&spelling](const Table& table) {
    for (const Column& column : table.columns()) spelling.insert(column.name.toLower(), column.name);
  };
  const auto named = [&sql](const Table& table) { return sql.contains(table.name(), Qt::CaseInsensitive); };
  for (const Table& table : companyTables())
    if (!named(table)) addColumns(table);
  for (const Table& table : companyTables())
    if (named(table)) addColumns(table);
  static const QRegularExpression kAlias(QStringLiteral("\\bAS\\s+(\\w+)"),
                                         QRegularExpression::CaseInsensitiveOption);
  for (auto found = kAlias.globalMatch(sql); found.hasNext();) {
    const QString alias = found.next().captured(1);
    spelling.insert(alias.toLower(), alias);
  }
  return spelling;
}

Recordset recordsetOf(const Result& result, const Spelling& spelling) {
  QStringList names;
  const int width = PQnfields(result.get());
  for (int i = 0; i < width; ++i) {
    const QString name = QString::fromUtf8(PQfname(result.get(), i));
    names.append(spelling.value(name, name));
  }
  Recordset rows(std::make_shared<Columns>(names));
  for (int row = 0; row < PQntuples(result.get()); ++row) rows.append(cellsOf(result.get(), row));
  return rows;
}

int changedBy(const Result& result) { return QByteArray(PQcmdTuples(result.get())).toInt(); }

QString withNumberedMarks(const QString& sql) {
  QString numbered;
  int mark = 0;
  QChar quote;
  for (const QChar c : sql) {
    if (!quote.isNull()) {
      if (c == quote) quote = QChar();
    } else if (c == u'\'' || c == u'"') {
      quote = c;
    } else if (c == u'?') {
      numbered += u'$' + QString::number(++mark);
      continue;
    }
    numbered += c;
  }
  return numbered;
}

}  // namespace velmar::postgres
