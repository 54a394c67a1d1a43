#include "documents/Drafts.h"

#include <algorithm>

#include "config/Session.h"
#include "store/Database.h"
#include "store/Schema.h"
#include "util/Errors.h"
#include "util/Messages.h"

namespace velmar {

namespace {

const QString kGone = QStringLiteral(
    "Documentul a fost validat sau sters intre timp de alt utilizator ! Nu s-a modificat nimic ! Apasati F5 "
    "pentru a reciti lista.");

const QString kChanged = QStringLiteral(
    "Documentul a fost modificat intre timp de alt utilizator ! Nu s-a salvat nimic ! Se arata acum "
    "documentul "
    "asa cum este salvat: verificati si incercati din nou.");

// Whether a stored cell and a computed or typed one are equal for the column.
bool isSame(const Column& column, const Row& a, const Row& b) {
  switch (column.type) {
    case ColumnType::Real:
      return a.decimal(column.name) == b.decimal(column.name);
    case ColumnType::Integer:
    case ColumnType::AutoNumber:
      return a.integer(column.name) == b.integer(column.name);
    case ColumnType::Boolean:
      return a.flag(column.name) == b.flag(column.name);
    case ColumnType::Date:
      return a.date(column.name) == b.date(column.name);
    case ColumnType::Text:
    case ColumnType::Time:
    case ColumnType::DateTime:
      break;
  }
  return a.text(column.name) == b.text(column.name);
}

QStringList differingColumns(const Table& table, const Row& a, const Row& b) {
  QStringList columns;
  for (const Column& column : table.columns())
    if (a.has(column.name) && b.has(column.name) && !isSame(column, a, b)) columns.append(column.name);
  return columns;
}

Values valuesOf(const Row& row, const QStringList& columns) {
  Values values;
  values.reserve(static_cast<size_t>(columns.size()));
  for (const QString& column : columns) values.push_back(Value::raw(row.value(column)));
  return values;
}

QString assignments(const QStringList& columns) {
  QStringList parts;
  for (const QString& column : columns) parts.append(column + QStringLiteral(" = ?"));
  return parts.join(QStringLiteral(", "));
}

const QString kSentMeanwhile =
    QStringLiteral("Bonul a fost trimis intre timp la casa de marcat ! Nu s-a modificat nimic !");

QStringList without(QStringList columns, const QStringList& left) {
  for (const QString& column : left) columns.removeOne(column);
  return columns;
}

// Null columns of a new row are omitted so that the table's defaults apply.
QStringList filledColumns(const Row& row) {
  QStringList filled;
  for (const QString& column : row.columns())
    if (!row.isNull(column)) filled.append(column);
  return filled;
}

}  // namespace

Recordset Drafts::list() const { return listWhere(QStringLiteral("VALIDAT = 0")); }

void Drafts::insertHeader(const Row& header) const {
  requireWidths(companyTable(kind_.headerTable), header);
  const QStringList columns = filledColumns(header);
  Transaction transaction(database());
  if (load(header.text(kind_.numberColumn)))
    throw RuleError(kind_.texts.numberTaken, kind_.numberColumn, kCritical);
  database().insertRows(kind_.headerTable, columns, {valuesOf(header, columns)});
  transaction.commit();
}

void Drafts::updateHeader(const Row& header) const {
  requireWidths(companyTable(kind_.headerTable), header);
  const FiscalReceipt& receipt = kind_.receipt;
  const QStringList columns =
      without(header.columns(), {kind_.numberColumn, "Magazie", "VALIDAT", receipt.printed, receipt.sending});
  Values values = valuesOf(header, columns);
  values.push_back(Value::raw(header.value(kind_.numberColumn)));
  QString where = QStringLiteral("VALIDAT = 0");
  if (receipt.exists()) {
    QStringList same;
    for (const QString& column : receipt.frozen) {
      same.append(column + QStringLiteral(" = ?"));
      values.push_back(Value::raw(header.value(column)));
    }
    where = QStringLiteral("((%1) OR (VALIDAT = 0 AND %2))")
                .arg(whereLinesOpen(), same.join(QStringLiteral(" AND ")));
  }
  requireChanged(ExecutaSql(QStringLiteral("UPDATE %1 SET %2 WHERE %3 = ? AND %4")
                                .arg(kind_.headerTable, assignments(columns), kind_.numberColumn, where),
                            values),
                 header.text(kind_.numberColumn));
}

void Drafts::insertLine(Row& line, const Row& shownHeader) const {
  Transaction transaction(database());
  requireOpen(shownHeader);
  std::vector<Row> lines{line};
  insertLines(lines);
  transaction.commit();
  line = std::move(lines.front());
}

void Drafts::insertLines(std::vector<Row>& lines) const {
  if (lines.empty()) return;
  const Table& table = companyTable(kind_.lineTable);
  QStringList columns;
  for (const Row& line : lines) {
    requireWidths(table, line);
    for (const QString& column : line.columns())
      if (!columns.contains(column) && !line.isNull(column)) columns.append(column);
  }
  if (!columns.contains("NRLINIE")) columns.append("NRLINIE");
  const Recordset last = OpenRs(QStringLiteral("SELECT MAX(NRLINIE) AS NRLINIE FROM %1 WHERE %2 = ?")
                                    .arg(kind_.lineTable, kind_.numberColumn),
                                {lines.front().text(kind_.numberColumn)});
  qint64 number = last.first().integer("NRLINIE");
  std::vector<Values> rows;
  for (Row& line : lines) {
    line.set("NRLINIE", ++number);
    rows.push_back(valuesOf(line, columns));
  }
  database().insertRows(kind_.lineTable, columns, rows);
}

void Drafts::updateLine(const Row& line, const Row& shownHeader, const Row& shownLine) const {
  const Table& table = companyTable(kind_.lineTable);
  requireWidths(table, line);
  Transaction transaction(database());
  requireOpen(shownHeader);
  requireLine(shownLine);
  QStringList columns = differingColumns(table, line, shownLine);
  for (const QString& column : line.columns())  // a null that became 0 is written as well
    if (line.isNull(column) != shownLine.isNull(column) && !columns.contains(column)) columns.append(column);
  if (!columns.isEmpty()) updateColumns({line}, columns);
  transaction.commit();
}

void Drafts::updateLines(const std::vector<Row>& lines) const {
  const Table& table = companyTable(kind_.lineTable);
  for (const Row& line : lines) requireWidths(table, line);
  if (!lines.empty()) updateColumns(lines, without(lines.front().columns(), {kind_.numberColumn, "NRLINIE"}));
}

void Drafts::updateColumns(const std::vector<Row>& lines, const QStringList& columns) const {
  if (lines.empty()) return;
  std::vector<Values> rows;
  for (const Row& line : lines) {
    Values values = valuesOf(line, columns);
    values.push_back(Value::raw(line.value(kind_.numberColumn)));
    values.emplace_back(line.integer("NRLINIE"));
    rows.push_back(std::move(values));
  }
  database().executeEach(QStringLiteral("UPDATE %1 SET %2 WHERE %3 = ? AND NRLINIE = ?")
                             .arg(kind_.lineTable, assignments(columns), kind_.numberColumn),
                         rows);
}

void Drafts::deleteLine(const Row& shownHeader, const Row& shownLine) const {
  Transaction transaction(database());
  requireOpen(shownHeader);
  requireLine(shownLine);
  ExecutaSql(
      QStringLiteral("DELETE FROM %1 WHERE %2 = ? AND NRLINIE = ?").arg(kind_.lineTable, kind_.numberColumn),
      {shownLine.text(kind_.numberColumn), shownLine.integer("NRLINIE")});
  transaction.commit();
}

void Drafts::remove(const QString& number) const {
  Transaction transaction(database());
  requireChanged(ExecutaSql(QStringLiteral("DELETE FROM %1 WHERE %2 = ? AND %3")
                                .arg(kind_.headerTable, kind_.numberColumn, whereLinesOpen()),
                            {number}),
                 number);
  deleteLines(number);
  transaction.commit();
}

void Drafts::deleteLines(const QString& number) const {
  ExecutaSql(QStringLiteral("DELETE FROM %1 WHERE %2 = ?").arg(kind_.lineTable, kind_.numberColumn),
             {number});
}

void Drafts::setValidated(const QString& number, bool is) const {
  requireChanged(ExecutaSql(QStringLiteral("UPDATE %1 SET %4 = ? WHERE %2 = ? AND %4 %3 0")
                                .arg(kind_.headerTable, kind_.numberColumn, is ? "=" : "<>",
                                     kind_.hasDraft ? "VALIDAT" : "STORNAT"),
                            {is, number}),
                 number);
}

qint64 Drafts::beginReceipt(const QString& number, qint64 known) const {
  const FiscalReceipt& receipt = kind_.receipt;
  requireChanged(ExecutaSql(QStringLiteral("UPDATE %1 SET %2 = ? WHERE %3 = ? AND VALIDAT = 0 AND %4 = 0 "
                                           "AND COALESCE(%2, 0) = ?")
                                .arg(kind_.headerTable, receipt.sending, kind_.numberColumn, receipt.printed),
                            {known + 1, number, known}),
                 number);
  return known + 1;
}

void Drafts::endReceipt(const QString& number, qint64 attempt, bool isPrinted) const {
  const FiscalReceipt& receipt = kind_.receipt;
  const QString ended = QStringLiteral("UPDATE %1 SET %2 = 0%5 WHERE %3 = ? AND VALIDAT = 0 AND %4 = 0")
                            .arg(kind_.headerTable, receipt.sending, kind_.numberColumn, receipt.printed);
  if (isPrinted)
    ExecutaSql(ended.arg(QStringLiteral(", %1 = -1").arg(receipt.printed)), {number});
  else
    ExecutaSql(ended.arg(QString()) + QStringLiteral(" AND %1 = ?").arg(receipt.sending), {number, attempt});
}

// Condition on the header of a draft: its fiscal receipt is neither printed nor being sent.
QString Drafts::whereLinesOpen() const {
  const FiscalReceipt& receipt = kind_.receipt;
  const QString draft = QStringLiteral("VALIDAT = 0");
  return receipt.exists()
             ? draft +
                   QStringLiteral(" AND %1 = 0 AND COALESCE(%2, 0) = 0").arg(receipt.printed, receipt.sending)
             : draft;
}

// Requires that lines can be changed and that the header is the one shown, since lines depend on it.
void Drafts::requireOpen(const Row& shownHeader) const {
  const QString number = shownHeader.text(kind_.numberColumn);
  const Recordset found = OpenRs(QStringLiteral("SELECT * FROM %1 WHERE %2 = ? AND %3")
                                     .arg(kind_.headerTable, kind_.numberColumn, whereLinesOpen()),
                                 {number});
  requireChanged(found.size(), number);
  requireSameHeader(found.first(), shownHeader);
}

void Drafts::requireSameHeader(const Row& stored, const Row& shown) const {
  const QStringList changed = without(differingColumns(companyTable(kind_.headerTable), stored, shown),
                                      {kind_.receipt.printed, kind_.receipt.sending});
  if (!changed.isEmpty()) throw RuleError(kChanged);
}

void Drafts::requireLine(const Row& shownLine) const {
  const Recordset found = OpenRs(QStringLiteral("SELECT * FROM %1 WHERE %2 = ? AND NRLINIE = ?")
                                     .arg(kind_.lineTable, kind_.numberColumn),
                                 {shownLine.text(kind_.numberColumn), shownLine.integer("NRLINIE")});
  if (found.isEmpty() || !differingColumns(companyTable(kind_.lineTable), found.first(), shownLine).isEmpty())
    throw RuleError(kChanged);
}

Document Drafts::requireAsShown(const ShownDraft& shown) const {
  const auto document = load(shown.header.text(kind_.numberColumn));
  if (!document || !isOpen(document->header)) throw RuleError(kGone);
  requireSameHeader(document->header, shown.header);
  const Table& table = companyTable(kind_.lineTable);
  const bool isSame = std::equal(document->lines.begin(), document->lines.end(), shown.lines.begin(),
                                 shown.lines.end(), [&table](const Row& stored, const Row& line) {
                                   return stored == line || differingColumns(table, stored, line).isEmpty();
                                 });
  if (!isSame) throw RuleError(kChanged);
  return *document;
}

void Drafts::requireChanged(int rows, const QString& number) const {
  if (rows > 0) return;
  const bool isDraft =
      kind_.receipt.exists() && !OpenRs(QStringLiteral("SELECT %2 FROM %1 WHERE %2 = ? AND VALIDAT = 0")
                                            .arg(kind_.headerTable, kind_.numberColumn),
                                        {number})
                                     .isEmpty();
  throw RuleError(isDraft ? kSentMeanwhile : kGone);
}

}  // namespace velmar
