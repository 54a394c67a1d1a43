#include "documents/LineCells.h"

#include "config/Checks.h"
#include "config/Lists.h"
#include "documents/KindRules.h"
#include "documents/LineSource.h"

namespace velmar {

const LineColumn* lineColumn(const DocumentKind& kind, const QString& field) {
  for (const LineColumn& column : kind.lineColumns)
    if (column.field.compare(field, Qt::CaseInsensitive) == 0) return &column;
  return nullptr;
}

CellVerdict checkedCell(const TypedHeader& header, const Row* line, const QString& field,
                        const QString& typed, bool bySupplierCode) {
  const DocumentKind& kind = header.kind();
  const LineColumn* entry = lineColumn(kind, field);
  const QString text = typed.trimmed();
  switch (entry ? entry->entry : LineEntry::Locked) {
    case LineEntry::Locked:
      return {true, {}};
    case LineEntry::Code:
      if (text.isEmpty()) return {true, QStringLiteral("Va rugam introduceti cod articol")};
      if (bySupplierCode ? !ProdusFurnizorExista(text) : !ArticolExista(text))
        return {true,
                (bySupplierCode ? QStringLiteral("Articolul cu codul produs de la furnizor %1 nu exista ")
                                : kind.texts.unknownArticle)
                    .arg(text)};
      return {};
    case LineEntry::Name:
      return {true, text.isEmpty()
                        ? QString()
                        : QStringLiteral("Articolul %1 nu exista ! Adaugarea in grila nu se poate efectua !")
                              .arg(text)};
    case LineEntry::OptionalPositive:
      if (text.isEmpty()) return {};
      [[fallthrough]];
    case LineEntry::Number:
    case LineEntry::PositiveNumber:
      break;
  }
  const auto number = typedNumber(text);
  if (!number)
    return {true, QStringLiteral("Va rugam introduceti o valoare numerica pentru %1 !").arg(entry->caption)};
  const bool mayBeNegative = entry->entry == LineEntry::Number && !(line && sourceOf(kind, *line));
  if (!mayBeNegative && number->isNegative())
    return {
        true,
        QStringLiteral("Va rugam introduceti o valoare numerica pozitiva pentru %1 !").arg(entry->caption)};
  const CellObjection objection =
      line ? kind.rules->objection(*line, entry->field, *number, header) : CellObjection{};
  return {!objection.text.isEmpty(), objection.text, objection.setsBack};
}

Decimal lineAmount(const DocumentKind& kind, const Row& line, const QString& field) {
  const LineColumn* shown = lineColumn(kind, field);
  if (!shown || shown->product.isEmpty()) return line.decimal(field);
  Decimal product(1);
  for (const QString& factor : shown->product) product = product * line.decimal(factor);
  return product;
}

QHash<QString, Decimal> lineTotals(const DocumentKind& kind, const std::vector<Row>& lines) {
  QHash<QString, Decimal> totals;
  for (const QString& column : kind.rules->totalColumns()) {
    Decimal sum;
    for (const Row& line : lines) sum += lineAmount(kind, line, column);
    totals.insert(column, sum);
  }
  return totals;
}

}  // namespace velmar
