#include "reports/windows/frmEcran.h"

#include <numeric>
#include <QBoxLayout>
#include <QPushButton>
#include <QShortcut>

#include "config/Session.h"
#include "store/windows/BrowserForm.h"
#include "store/windows/ListExport.h"
#include "store/windows/TDBGrid.h"
#include "util/NumberText.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"
#include "util/windows/Forms.h"
#include "util/windows/WindowHost.h"

namespace velmar {

namespace {

constexpr int kQuantityShown = 3;  // decimals

GridColumn gridColumn(const ReportColumn& column) {
  using Shown = ReportColumn::Kind;
  const CellFormat formats[] = {CellFormat::Text,   CellFormat::Integer, CellFormat::Number,
                                CellFormat::Number, CellFormat::Number,  CellFormat::Date};
  const int decimals = column.kind == Shown::Quantity ? kQuantityShown
                       : column.kind == Shown::Price  ? session().NrZec
                                                      : 2;
  return {column.field, column.caption, formats[static_cast<int>(column.kind)], column.width, decimals};
}

}  // namespace

frmEcran::frmEcran(const StockReport& report, Recordset rows, QWidget* parent)
    : QWidget(parent), links_(report.links), columns_(report.columns), grid_(new TDBGrid("TDBGrid1")) {
  setObjectName("frmEcran");
  setWindowTitle(report.caption);
  if (rows.columns().contains(QStringLiteral("ANTERIOR")))
    columns_.push_back(
        {"ANTERIOR", "Anul trecut", ReportColumn::Kind::Amount, 14, report.comparison.listsMissing});
  QList<GridColumn> columns;
  for (const ReportColumn& column : columns_) columns.append(gridColumn(column));
  constexpr int kName = 14;  // characters
  QStringList names;
  for (const ReportColumn& column : columns_)
    if (column.kind == ReportColumn::Kind::Text && column.width >= kName) names.append(column.field);
  grid_->setLook(report.window);
  grid_->setKeptInView(columns.last().field, names);
  grid_->setColumns(columns);
  grid_->setSortable();
  grid_->setRecordset(std::move(rows));
  showTotals();
  connect(grid_, &QAbstractItemView::doubleClicked, this, &frmEcran::openSource);
  for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
    auto* shortcut = new QShortcut(QKeySequence(key), grid_);
    shortcut->setContext(Qt::WidgetShortcut);
    connect(shortcut, &QShortcut::activated, this, &frmEcran::openSource);
  }
  QPushButton* cmdExport =
      makeButton("cmdExport", "Export", "Scrie randurile intr-un fisier .xlsx sau .csv (Ctrl+E)");
  connect(cmdExport, &QPushButton::clicked, this, [this] { exportGuarded(*grid_); });
  QPushButton* cmdIesire = makeButton("cmdIesire", "Iesire", {}, "close");
  setUpExitButton(cmdIesire, this);
  auto* commands = new QHBoxLayout;
  commands->addStretch();
  for (QPushButton* button : {cmdExport, cmdIesire}) {
    button->setAutoDefault(false);
    commands->addWidget(button);
  }
  auto* all = new QVBoxLayout(this);
  all->addWidget(grid_);
  all->addLayout(commands);
  giveMnemonics(this);
  setUpKeys(this, nullptr, cmdIesire);
  grid_->setFocus();
}

void frmEcran::showTotals() {
  QList<int> places(grid_->rows().size());
  std::iota(places.begin(), places.end(), 0);
  QList<TotalledField> fields;
  for (const ReportColumn& column : columns_)
    if (column.isTotal) fields.append({column.field});
  const std::vector<Decimal> sums = sumsOf(grid_->rows(), places, fields);
  for (qsizetype i = 0; i < fields.size(); ++i) {
    const GridColumn& column = grid_->columns()[grid_->columnOf(fields[i].field)];
    grid_->setFooter(column.field, formatNumber(sums[static_cast<size_t>(i)], column.decimals));
  }
}

// An order whose number others have as well is found by its key.
void frmEcran::openDeviceOrder(const Row& row) {
  auto* orders = qobject_cast<BrowserForm*>(windowHost()->showOffered(QStringLiteral("frmComandaAudio")));
  if (!orders) return;
  orders->showOnly("Nr", row.text(links_.document));
  orders->openRecord(row.text(links_.deviceOrder), QStringLiteral("txtNrComanda"));
}

void frmEcran::openSource() {
  guarded(objectName(), "TDBGrid1_DblClick", [this] {
    const Row* row = grid_->currentRecord();
    if (!row || !windowHost()) return;
    if (row->has(links_.deviceOrder)) return openDeviceOrder(*row);
    const auto open = [](const QString& window, const QString& column, const QString& value) {
      if (auto* browser = qobject_cast<BrowserForm*>(windowHost()->showOffered(window)))
        browser->showOnly(column, value);
    };
    const auto valueOf = [row](const QString& field) {
      return field.isEmpty() ? QString() : row->text(field);
    };
    if (const QString id = valueOf(links_.document); !id.isEmpty())
      return open("frmLDoc", "ID", links_.prefix + id);
    if (const QString article = valueOf(links_.article); !article.isEmpty())
      return open("frmMiscariStoc", "CODARTICOL", article);
    if (const QString partner = valueOf(links_.partner); !partner.isEmpty()) open("frmLDoc", "NUME", partner);
  });
}

}  // namespace velmar
