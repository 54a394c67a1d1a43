// Writes all rows of a list to a file that the user names.
#pragma once

class QWidget;

namespace velmar {

class TDBGrid;

/// Asks for the file, .xlsx or .csv, and writes the visible columns of all rows, with progress; of a grid
/// with a model of its own what it shows. Throws RuleError for a list without rows and for a wrong name,
/// StoreError when the file cannot be written. Secret columns are left out.
void exportList(TDBGrid& grid, QWidget* parent);
/// As above; shows a RuleError and reports other errors.
void exportGuarded(TDBGrid& grid);
/// Lets Ctrl+E export a list of the grid's form: the one with the focus, else the largest.
void offerExport(TDBGrid& grid);

}  // namespace velmar
