// The cells of a document's lines: what may be typed, what they amount to.
#pragma once

#include "documents/TypedHeader.h"
#include "store/Row.h"

namespace velmar {

/// The kind's column of that name; null when there is none.
const LineColumn* lineColumn(const DocumentKind& kind, const QString& field);

/// Why a typed text is refused in a cell; `refused` without a text when the cell is left without a message.
struct CellVerdict {
  bool refused = false;
  QString text = {};
  bool setsBack = false;  ///< the cell shows its old value
};

/// Checks a text typed in a cell of the line; `line` is null for the new line.
CellVerdict checkedCell(const TypedHeader& header, const Row* line, const QString& field,
                        const QString& typed, bool bySupplierCode);

/// The value of a numeric column of a line, also of one that is not stored.
Decimal lineAmount(const DocumentKind& kind, const Row& line, const QString& field);

/// The sums of the kind's total columns over the lines.
QHash<QString, Decimal> lineTotals(const DocumentKind& kind, const std::vector<Row>& lines);

}  // namespace velmar
