#include "store/windows/ListExport.h"

#include <QDir>

#include "store/windows/TDBGrid.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/SheetFile.h"
#include "util/windows/Forms.h"
#include "util/windows/SaveName.h"
#include "util/windows/WorkProgress.h"

namespace velmar {

namespace {

SheetColumn sheetColumn(const GridColumn& column) {
  using Kind = SheetColumn::Kind;
  const bool isNumber = column.format == CellFormat::Number || column.format == CellFormat::Integer;
  return {column.caption.trimmed(),
          isNumber                            ? Kind::Number
          : column.format == CellFormat::Date ? Kind::Date
                                              : Kind::Text,
          column.format == CellFormat::Number ? column.decimals : 0, column.width};
}

// The form that shows the grid, which may be a child of the main window.
const QWidget* formOf(const TDBGrid& grid) {
  const QWidget* form = &grid;
  while (!form->isWindow() && form->parentWidget() && !form->parentWidget()->inherits("QMdiSubWindow"))
    form = form->parentWidget();
  return form;
}

// Empty when the user cancelled. A name without an ending is a spreadsheet's.
QString askedFile(const TDBGrid& grid, QWidget* parent) {
  const QString name = formOf(grid)->windowTitle().trimmed().replace(u'/', u'-') + QStringLiteral(".xlsx");
  return askSaveName(parent, QStringLiteral("Export"), QDir::home().filePath(name), kSheetFilter,
                     [](const QString& path, const QString& filter) {
                       const bool isText = filter.contains(QStringLiteral("csv"));
                       return withEnding(path, isText ? QStringLiteral(".csv") : QStringLiteral(".xlsx"));
                     });
}

}  // namespace

void exportList(TDBGrid& grid, QWidget* parent) {
  emit grid.allRowsNeeded();
  const RowSource& rows = grid.rows();
  if (rows.size() == 0) throw RuleError(QStringLiteral("Nu exista inregistrari"));
  const QString path = askedFile(grid, parent);
  if (path.isEmpty()) return;
  QList<GridColumn> shown;
  for (const int column : grid.visibleColumns())
    if (!grid.columns()[column].secret) shown.append(grid.columns()[column]);
  QList<SheetColumn> columns;
  for (const GridColumn& column : shown) columns.append(sheetColumn(column));
  const Hourglass wait;
  WorkProgress progress(QStringLiteral("Export"), parent);
  writeSheet(
      path, columns, rows.size(),
      [&](int row, int column) {
        const GridColumn& each = shown[column];
        const QVariant value = rows.row(row).value(each.field);
        return each.format == CellFormat::Flag ? QVariant(cellText(value, each)) : value;
      },
      [&progress](int done, int of) { progress.show(done, of); });
}

void exportGuarded(TDBGrid& grid) {
  guarded(formOf(grid)->objectName(), "Export", [&grid] {
    try {
      exportList(grid, grid.window());
    } catch (const RuleError& rule) {
      Mesaj(rule.text());
    }
  });
}

}  // namespace velmar
