#include "store/windows/ListExport.h"

#include <QApplication>
#include <QDir>
#include <QShortcut>

#include "store/windows/TDBGrid.h"
#include "util/Decimal.h"
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
QWidget* formOf(TDBGrid& grid) {
  QWidget* form = &grid;
  while (!form->isWindow() && form->parentWidget() && !form->parentWidget()->inherits("QMdiSubWindow"))
    form = form->parentWidget();
  return form;
}

// Empty when the user cancelled. A name without an ending is a spreadsheet's.
QString askedFile(TDBGrid& grid, QWidget* parent) {
  const QString name = formOf(grid)->windowTitle().trimmed().replace(u'/', u'-') + QStringLiteral(".xlsx");
  return askSaveName(parent, QStringLiteral("Export"), QDir::home().filePath(name), kSheetFilter,
                     [](const QString& path, const QString& filter) {
                       const bool isText = filter.contains(QStringLiteral("csv"));
                       return withEnding(path, isText ? QStringLiteral(".csv") : QStringLiteral(".xlsx"));
                     });
}

// Numbers and dates as they are shown, "1.234,50" and "31.12.2026".
QVariant shownValue(QString text, CellFormat format) {
  if (format == CellFormat::Number || format == CellFormat::Integer) {
    const auto number = Decimal::parse(text.remove(u'.').replace(u',', u'.'));
    return number ? QVariant(number->toDouble()) : QVariant();
  }
  if (format != CellFormat::Date) return text;
  const QDate date = QDate::fromString(text, QStringLiteral("dd.MM.yyyy"));
  return date.isValid() ? QVariant(date) : QVariant();
}

// Without the empty row in which a new line is typed.
int rowCountOf(const TDBGrid& grid) {
  const QAbstractItemModel& model = *grid.model();
  const int rows = model.rowCount();
  if (grid.isList() || rows == 0) return rows;
  for (const int column : grid.visibleColumns())
    if (!model.index(rows - 1, column).data().toString().isEmpty()) return rows;
  return rows - 1;
}

QVariant exportedValue(const TDBGrid& grid, int row, int column) {
  const GridColumn& facts = grid.columns()[column];
  if (!grid.isList()) return shownValue(grid.model()->index(row, column).data().toString(), facts.format);
  const QVariant value = grid.rows().row(row).value(facts.field);
  return facts.format == CellFormat::Flag ? QVariant(cellText(value, facts)) : value;
}

TDBGrid* exportedGrid(const QWidget& form) {
  for (QWidget* each = QApplication::focusWidget(); each && each != &form; each = each->parentWidget())
    if (auto* grid = qobject_cast<TDBGrid*>(each)) return grid;
  TDBGrid* largest = nullptr;
  const auto area = [](const TDBGrid* grid) { return grid->width() * grid->height(); };
  for (TDBGrid* grid : form.findChildren<TDBGrid*>())
    if (grid->isVisible() && grid->isExported() && (!largest || area(grid) > area(largest))) largest = grid;
  return largest;
}

}  // namespace

void offerExport(TDBGrid& grid) {
  QWidget* form = formOf(grid);
  const QString name = QStringLiteral("exportKey");
  if (form->findChild<QShortcut*>(name, Qt::FindDirectChildrenOnly)) return;
  auto* key = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_E), form);
  key->setObjectName(name);
  key->setContext(Qt::WidgetWithChildrenShortcut);
  QObject::connect(key, &QShortcut::activated, form, [form] {
    if (TDBGrid* list = exportedGrid(*form)) exportGuarded(*list);
  });
}

void exportList(TDBGrid& grid, QWidget* parent) {
  emit grid.allRowsNeeded();
  const int rows = rowCountOf(grid);
  if (rows == 0) throw RuleError(QStringLiteral("Nu exista inregistrari"));
  const QString path = askedFile(grid, parent);
  if (path.isEmpty()) return;
  QList<int> shown = grid.visibleColumns();
  shown.removeIf([&grid](int column) { return grid.columns()[column].secret; });
  QList<SheetColumn> columns;
  for (const int column : shown) columns.append(sheetColumn(grid.columns()[column]));
  const Hourglass wait;
  WorkProgress progress(QStringLiteral("Export"), parent);
  writeSheet(
      path, columns, rows, [&](int row, int column) { return exportedValue(grid, row, shown[column]); },
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
