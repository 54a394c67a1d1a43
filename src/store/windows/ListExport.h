// Writes all rows of a list to a file that the user names.
#pragma once

class QWidget;

namespace velmar {

class TDBGrid;

/// Asks for the file, .xlsx or .csv, and writes the visible columns of all rows, with progress. Throws
/// RuleError for a list without rows and for a wrong name, StoreError when the file cannot be written. Secret
/// columns are left out.
void exportList(TDBGrid& grid, QWidget* parent);
/// As above; shows a RuleError and reports other errors.
void exportGuarded(TDBGrid& grid);

}  // namespace velmar
