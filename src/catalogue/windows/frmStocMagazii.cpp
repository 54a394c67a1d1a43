#include "catalogue/windows/frmStocMagazii.h"

#include <QHBoxLayout>
#include <QPushButton>

#include "stock/Availability.h"
#include "store/windows/TDBGrid.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"

namespace velmar {

frmStocMagazii::frmStocMagazii(const QString& article, const QString& name, QWidget* parent)
    : QDialog(parent) {
  setObjectName("frmStocMagazii");
  setWindowTitle("Stoc articol");
  auto* grid = new TDBGrid("grdDataGrid");
  grid->setColumns(
      {{"DENUMIRE", "Denumire magazie", CellFormat::Text, 35}, {"STOC", "Stoc", CellFormat::Number, 14, 3}});
  grid->setEmptyText("Nu exista magazii.");
  grid->setRecordset(stockByWarehouse(article));
  auto* leave = makeButton("cmdIesire", "Iesire", {}, "close");
  connect(leave, &QPushButton::clicked, this, &QDialog::reject);
  auto* title = new ElidedLabel;
  title->setText(article + QStringLiteral(" - ") + name);
  auto* all = new QVBoxLayout(this);
  all->addWidget(title);
  all->addWidget(grid, 1);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(leave);
  all->addLayout(buttons);
  giveMnemonics(this);
  resize(grid->fontMetrics().averageCharWidth() * 64, grid->fontMetrics().height() * 18);
  grid->setFocus();
}

}  // namespace velmar
