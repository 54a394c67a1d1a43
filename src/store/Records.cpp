#include "store/Records.h"

#include <cmath>
#include <limits>

#include "store/Database.h"
#include "util/NumberText.h"
#include "util/PlainText.h"

namespace velmar {

namespace {

// A cell converted to the type of its column.
Value stored(const QVariant& cell, const Column& column) {
  if (cell.isNull() || cell.toString().isEmpty()) return {};
  const bool isNumber = column.type == ColumnType::Integer || column.type == ColumnType::Real;
  if (!isNumber) return Value::raw(cell);
  std::optional<Decimal> number = parseNumber(cell.toString());
  if (cell.typeId() != QMetaType::QString) number = Decimal::fromDouble(cell.toDouble());
  if (!number) throw RuleError(QStringLiteral("Valoarea trebuie sa fie numerica"), column.name);
  if (column.type != ColumnType::Integer) return *number;
  const double whole = std::round(number->toDouble());
  if (std::abs(whole) > std::numeric_limits<qint32>::max())
    throw RuleError(QStringLiteral("Numarul din campul %1 este prea mare !").arg(column.name), column.name);
  return static_cast<qint64>(whole);
}

// The values to store, in the order of the row's columns.
Values checkedValues(const Table& table, const Row& row) {
  requireWidths(table, row);
  Values values;
  for (const QString& name : row.columns()) {
    const Column* column = table.column(name);
    if (!column) throw StoreError(0, QStringLiteral("Tabela %1 nu are coloana %2").arg(table.name(), name));
    values.push_back(stored(row.value(name), *column));
  }
  return values;
}

const QString& keyOf(const Table& table) { return table.keyColumns().first(); }

void requirePlainText(const Column& column, const QVariant& cell) {
  if (column.type != ColumnType::Text || column.width == 0) return;
  const QString objection = hiddenObjection(cell.toString());
  if (!objection.isEmpty()) throw RuleError(objection, column.name);
}

}  // namespace

void requirePlainTexts(const Table& table, const Row& row) {
  for (const QString& name : row.columns())
    if (const Column* column = table.column(name)) requirePlainText(*column, row.value(name));
}

Row rowOf(const QString& columns) {
  return Row(std::make_shared<Columns>(columns.split(QLatin1Char(' '), Qt::SkipEmptyParts)));
}

Row rowOf(const QStringList& columns, const Row& from) {
  Row row(std::make_shared<Columns>(columns));
  for (const QString& name : columns)
    if (from.has(name)) row.set(name, Value::raw(from.value(name)));
  return row;
}

Row ofTable(const Table& table, const Row& row) {
  QStringList columns;
  for (const QString& name : row.columns())
    if (table.column(name)) columns.append(name);
  return rowOf(columns, row);
}

Row changesOf(const Table& table, const Row& row, const Row& shown) {
  QStringList columns;
  for (const QString& name : row.columns()) {
    const bool isKey = table.keyColumns().contains(name, Qt::CaseInsensitive);
    const bool same = shown.has(name) && shown.value(name).toString() == row.value(name).toString();
    if (isKey || !same) columns.append(name);
  }
  return rowOf(columns, row);
}

void insertRecord(const Table& table, const Row& row) {
  requirePlainTexts(table, row);
  database().insertRows(quoted(table.name()), row.columns(), {checkedValues(table, row)});
}

qint64 insertNumbered(const Table& table, const Row& row) {
  requirePlainTexts(table, row);
  QStringList columns;
  Values values;
  const Values checked = checkedValues(table, row);
  for (qsizetype i = 0; i < row.columns().size(); ++i) {
    if (row.columns()[i].compare(keyOf(table), Qt::CaseInsensitive) == 0) continue;
    columns.append(row.columns()[i]);
    values.push_back(checked[static_cast<size_t>(i)]);
  }
  const QString marks = QStringList(columns.size(), QStringLiteral("?")).join(QStringLiteral(", "));
  Transaction transaction(database());
  const Recordset key = database().query(
      QStringLiteral("INSERT INTO %1 (%2) VALUES (%3) RETURNING %4")
          .arg(quoted(table.name()), columns.join(QStringLiteral(", ")), marks, keyOf(table)),
      values);
  transaction.commit();
  return key.first().integer(keyOf(table));
}

bool updateRecord(const Table& table, const Row& row) {
  const Values values = checkedValues(table, row);
  QStringList sets, conditions;
  Values bound, keys;
  for (qsizetype i = 0; i < row.columns().size(); ++i) {
    const QString& name = row.columns()[i];
    const bool isKey = table.keyColumns().contains(name, Qt::CaseInsensitive);
    if (!isKey) requirePlainText(*table.column(name), row.value(name));
    (isKey ? conditions : sets).append(name + QStringLiteral(" = ?"));
    (isKey ? keys : bound).push_back(values[static_cast<size_t>(i)]);
  }
  bound.insert(bound.end(), keys.begin(), keys.end());
  return ExecutaSql(QStringLiteral("UPDATE %1 SET %2 WHERE %3")
                        .arg(quoted(table.name()), sets.join(QStringLiteral(", ")),
                             conditions.join(QStringLiteral(" AND "))),
                    bound) > 0;
}

void updateField(const Table& table, const Value& key, const QString& column, const Value& value) {
  Row row = rowOf(column);
  row.set(column, value);
  requirePlainTexts(table, row);
  const Value stored = checkedValues(table, row).front();
  if (ExecutaSql(
          QStringLiteral("UPDATE %1 SET %2 = ? WHERE %3 = ?").arg(quoted(table.name()), column, keyOf(table)),
          {stored, key}) == 0)
    throw gone();
}

bool deleteRecord(const Table& table, const Value& key) {
  return ExecutaSql(QStringLiteral("DELETE FROM %1 WHERE %2 = ?").arg(quoted(table.name()), keyOf(table)),
                    {key}) > 0;
}

Row record(const Table& table, const Value& key) {
  const Recordset found = OpenRs(
      QStringLiteral("SELECT * FROM %1 WHERE %2 = ? ORDER BY %2").arg(quoted(table.name()), keyOf(table)),
      {key});
  return found.isEmpty() ? Row() : found.first();
}

std::vector<Row> rowsOfKeys(const QString& sql, const QStringList& keys, const Values& behind) {
  constexpr qsizetype kMost = 500;
  std::vector<Row> rows;
  for (qsizetype from = 0; from < keys.size(); from += kMost) {
    const QStringList part = keys.mid(from, kMost);
    Values values;
    for (const QString& key : part) values.emplace_back(key);
    values.insert(values.end(), behind.begin(), behind.end());
    const QString marks = QStringList(part.size(), QStringLiteral("?")).join(QStringLiteral(", "));
    for (Row& row : database().query(sql.arg(marks), values).takeRows()) rows.push_back(std::move(row));
  }
  return rows;
}

QStringList differing(const QStringList& columns, const Row& stored, const Row& shown) {
  QStringList changed;
  for (const QString& name : columns)
    if (stored.has(name) && shown.has(name) && stored.value(name).toString() != shown.value(name).toString())
      changed.append(name);
  return changed;
}

RuleError gone() {
  return RuleError(QStringLiteral("Inregistrarea a fost stearsa intre timp de alt utilizator !"));
}

bool typedFlag(const QString& text) {
  for (const bool flag : {true, false})
    if (text.trimmed().compare(flag ? QStringLiteral("DA") : QStringLiteral("NU"), Qt::CaseInsensitive) == 0)
      return flag;
  throw RuleError(QStringLiteral("Introduceti DA sau NU !"));
}

std::optional<Decimal> numberIn(const Row& row, const QString& column, const QString& message,
                                const QString& title) {
  const QVariant& cell = row.value(column);
  if (cell.isNull()) return std::nullopt;
  if (cell.typeId() == QMetaType::QString) {
    const QString text = cell.toString();
    if (text.trimmed().isEmpty()) return std::nullopt;
    const auto number = parseNumber(text);
    if (!number) throw RuleError(message, column, 0, title);
    return number;
  }
  return row.decimal(column);
}

}  // namespace velmar
