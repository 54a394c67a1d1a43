#include "config/NumberRanges.h"

#include <algorithm>

#include "util/Errors.h"

namespace velmar {

namespace {

struct RangeKind {
  QString title;
  QString startColumn, endColumn, seriesColumn;
};

const RangeKind kRanges[] = {{"Facturi Client--Atentie !", "FCSTART", "FCEND", "SERIEFC"},
                             {"Avize de Expeditie--Atentie !", "AESTART", "AEEND", "SERIEAE"}};

bool isDigit(QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); }

bool isAllDigits(const QString& text) { return std::all_of(text.begin(), text.end(), isDigit); }

Decimal numberOf(const QString& digits) { return Decimal::parse(digits).value(); }

void requireRange(const RangeKind& kind, const Row& row) {
  const QStringList columns = {kind.startColumn, kind.endColumn, kind.seriesColumn};
  const auto isEmpty = [&row](const QString& column) { return row.text(column).isEmpty(); };
  const auto empty = std::find_if(columns.begin(), columns.end(), isEmpty);
  if (std::all_of(columns.begin(), columns.end(), isEmpty)) return;
  const auto refuse = [&kind](const QString& text, const QString& column) {
    throw RuleError(text, column, 0, kind.title);
  };
  if (empty != columns.end())
    refuse(QStringLiteral("Verificati plaja de numere si seria introduse!"), *empty);
  const QString series = row.text(kind.seriesColumn);
  if (std::any_of(series.begin(), series.end(), [](QChar c) { return c.isDigit(); }))
    refuse(QStringLiteral("Introduceti numai litere pentru Serie !"), kind.seriesColumn);
  for (const QString& column : {kind.startColumn, kind.endColumn})
    if (!isAllDigits(row.text(column)))
      refuse(QStringLiteral("Introduceti numai cifre pentru plaja de numere !"), column);
  if (numberOf(row.text(kind.startColumn)) >= numberOf(row.text(kind.endColumn)))
    refuse(QStringLiteral("Introduceti limite in ordine crescatoare pentru plaja de numere !"),
           kind.startColumn);
}

}  // namespace

Row checkedRanges(const Row& row) {
  Row trimmed = row;
  for (const RangeKind& kind : kRanges) {
    for (const QString& column : {kind.startColumn, kind.endColumn, kind.seriesColumn})
      trimmed.set(column, row.text(column).trimmed());
    requireRange(kind, trimmed);
  }
  return trimmed;
}

}  // namespace velmar
