// The rows of the reports of StockReports: compared with the year before, on paper and on the screen.
#include <QSet>

#include "reports/ReportStatements.h"
#include "reports/StockReports.h"
#include "util/Errors.h"

namespace velmar {

namespace {

using Shown = ReportColumn::Kind;

const QString kBefore = QStringLiteral("ANTERIOR");

bool isCompared(const StockReport& report, const ReportChoice& choice) {
  return !report.comparison.value.isEmpty() && choice.has(kComparesYears);
}

std::vector<QVariant> cellsOf(const Row& row) {
  std::vector<QVariant> cells;
  cells.reserve(static_cast<size_t>(row.columns().size()));
  for (int i = 0; i < row.columns().size(); ++i) cells.push_back(row.at(i));
  return cells;
}

// A row for a key that only the year before has.
std::vector<QVariant> missingCells(const ReportComparison& comparison, const Row& before) {
  std::vector<QVariant> cells;
  for (const QString& column : before.columns()) {
    const bool isKey = comparison.keyFields.contains(column, Qt::CaseInsensitive);
    const bool isNumber = before.value(column).typeId() == QMetaType::Double;
    cells.push_back(isKey ? before.value(column) : isNumber ? QVariant(0.0) : QVariant());
  }
  return cells;
}

Recordset compared(const StockReport& report, const ReportChoice& choice, const Recordset& rows) {
  const ReportComparison& comparison = report.comparison;
  ReportChoice earlier = choice;
  for (QDate& date : earlier.dates) date = date.addYears(-1);
  if (report.losesFirstDay) {
    earlier.dates[report.from] = firstDay(choice, report.from).addYears(-1);
    earlier.ticked.insert(kTakesFirstDay);
  }
  const Recordset before = report.rows(earlier);
  QHash<QString, Decimal> sums;
  Decimal total;
  for (const Row& row : before) {
    const Decimal value = row.decimal(comparison.value);
    sums[comparison.key(row, choice, true)] += value;
    total += value;
  }
  Recordset all(std::make_shared<Columns>((rows.isEmpty() ? before : rows).columns() +
                                          QStringList{kBefore, "TOTALANTERIOR"}));
  QSet<QString> shown;
  const auto add = [&](std::vector<QVariant> cells, const QString& key) {
    cells.emplace_back(Round(sums.value(key), 6).toDouble());
    cells.emplace_back(Round(total, 6).toDouble());
    all.append(std::move(cells));
    shown.insert(key);
  };
  for (const Row& row : rows) add(cellsOf(row), comparison.key(row, choice, false));
  if (comparison.listsMissing)
    for (const Row& row : before)
      if (const QString key = comparison.key(row, choice, true); !shown.contains(key))
        add(missingCells(comparison, row), key);
  return all;
}

}  // namespace

Recordset reportRows(const StockReport& report, const ReportChoice& choice, const Progress& progress) {
  Recordset rows = report.rowsInParts ? report.rowsInParts(choice, progress) : report.rows(choice);
  if (isCompared(report, choice)) rows = compared(report, choice, rows);
  if (rows.isEmpty()) throw RuleError(QStringLiteral("Nu exista inregistrari"));
  return rows;
}

Recordset screenRows(const StockReport& report, const ReportChoice& choice, const Progress& progress) {
  const Recordset rows = reportRows(report, choice, progress);
  const ReportComparison& comparison = report.comparison;
  const bool isOncePerKey = isCompared(report, choice) && !comparison.listsMissing;
  const qsizetype before = rows.columns().indexOf(kBefore);
  QSet<QString> keys;
  Recordset shown(std::make_shared<Columns>(rows.columns()));
  for (const Row& row : rows) {
    std::vector<QVariant> cells = cellsOf(row);
    for (const ReportColumn& column : report.columns) {
      QVariant& cell = cells[static_cast<size_t>(rows.columns().indexOf(column.field))];
      if (!column.from.isEmpty()) cell = row.value(column.from);
      // What is added up at the foot is what is shown.
      if (column.kind == Shown::Amount && column.isTotal && !cell.isNull())
        cell = Round(row.decimal(column.from.isEmpty() ? column.field : column.from), 2).toDouble();
    }
    if (isOncePerKey) {
      const QString key = comparison.key(row, choice, false);
      if (keys.contains(key)) cells[static_cast<size_t>(before)] = QVariant();
      keys.insert(key);
    }
    shown.append(std::move(cells));
  }
  return shown;
}

ReportData reportData(const StockReport& report, const ReportChoice& choice, const Progress& progress) {
  Recordset rows = reportRows(report, choice, progress);
  ReportData data;
  if (report.isLabels) {
    data.variables = std::move(rows);
    data.hasVariables = true;
    return data;
  }
  data.fieldNames = rows.columns();
  data.fields = std::make_shared<RecordsetRows>(std::move(rows));
  Variables variables(data);
  report.variables(choice, variables);
  if (!report.comparison.value.isEmpty()) variables.add("ParamComparatie", isCompared(report, choice));
  variables.addCompany();
  return data;
}

}  // namespace velmar
