// The stored results of formulas in an old binary workbook (.xls), which libfreexl gives as empty cells.
#pragma once

#include <QByteArray>
#include <QVariant>
#include <stdexcept>
#include <vector>

/// The file breaks its own format.
struct DamagedWorkbook : std::runtime_error {
  using std::runtime_error::runtime_error;
};

struct FormulaResult {
  int row = 0, column = 0;  ///< from 0
  QVariant value;           ///< a number, a text, or the name of an error ("#DIV/0!") as text
};

/// The results of all formulas of a sheet, counted from 0 in the order of the workbook; `file` is the whole
/// file, a container (BIFF5, BIFF8) or a bare stream of one sheet (BIFF2 to BIFF4). Throws DamagedWorkbook.
std::vector<FormulaResult> formulaResults(const QByteArray& file, int sheet);
