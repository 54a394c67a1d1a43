#include "einvoice/windows/frmEFacturaAfisare.h"

#include <QBoxLayout>
#include <QPushButton>

#include "einvoice/PurchaseFiles.h"
#include "store/windows/TDBGrid.h"
#include "store/windows/TDBGridListare.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"
#include "util/windows/Forms.h"

namespace velmar {

frmEFacturaAfisare::frmEFacturaAfisare(qint64 id, QWidget* parent) : QDialog(parent) {
  setObjectName("frmEFacturaAfisare");
  setWindowTitle("Campurile facturii");
  auto* grid = new TDBGrid("TDBGrid1");
  grid->setColumns({{"CAMP", "Camp", CellFormat::Text, 60}, {"VALOARE", "Valoare", CellFormat::Text, 60}});
  Recordset fields(std::make_shared<Columns>(QStringList{"CAMP", "VALOARE"}));
  for (const auto& [path, value] : fieldsOfInvoice(purchaseFile(id))) fields.append({path, value});
  grid->setRecordset(std::move(fields));
  grid->setSelectionMode(QAbstractItemView::ExtendedSelection);
  grid->selectAll();
  auto* listing = new TDBGridListare("TDBGridListare");
  listing->setTDBGrid(grid);
  listing->setForm(this);
  listing->setWrapped();
  auto* cmdIesire = makeButton("cmdIesire", "Iesire", "Inchidere fereastra", "close");
  connect(cmdIesire, &QPushButton::clicked, this, &QDialog::reject);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(listing);
  buttons->addWidget(cmdIesire);
  auto* all = new QVBoxLayout(this);
  all->addWidget(grid, 1);
  all->addLayout(buttons);
  giveMnemonics(this);
  resize(fontMetrics().averageCharWidth() * 130, fontMetrics().height() * 32);
}

}  // namespace velmar
