// Writes a table to a spreadsheet file or to a text file with separators.
#pragma once

#include <functional>
#include <QList>
#include <QString>
#include <QVariant>

#include "util/Progress.h"

namespace velmar {

struct SheetColumn {
  enum class Kind { Text, Number, Date };
  QString caption;
  Kind kind = Kind::Text;
  int decimals = 0;  ///< shown of a Number
  int width = 10;    ///< characters
};

/// The value of a cell: a number for Kind::Number, an ISO date for Kind::Date, else a text; null: empty.
using SheetCell = std::function<QVariant(int row, int column)>;

/// Endings of the file names that writeSheet() knows, for a file dialog.
extern const QString kSheetFilter;

/// Writes a heading line and the rows, by the ending of the name: .xlsx with real numbers and dates, or .csv
/// with ";", decimal comma, no digit groups, UTF-8 with its mark. An existing file is replaced when the new
/// one is whole. Throws RuleError for another ending and for more rows than a sheet has, StoreError when the
/// file cannot be written.
void writeSheet(const QString& path, const QList<SheetColumn>& columns, int rows, const SheetCell& cell,
                const Progress& progress = {});

}  // namespace velmar
