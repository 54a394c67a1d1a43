#include "documents/windows/frmGrilaFC.h"

#include <QGroupBox>
#include <QVBoxLayout>

#include "config/Session.h"
#include "documents/OpenOrders.h"
#include "store/windows/TDBGrid.h"
#include "util/windows/Controls.h"

namespace velmar {

frmGrilaFC::frmGrilaFC(QWidget* parent)
    : frmGrila(QStringLiteral("FC"), parent),
      notes_(new TDBGrid("TDBGrid3")),
      orders_(new TDBGrid("TDBGrid4")),
      fraAvize_(source("fraAvize", "Lista avize nefacturate", notes_, "NUMAE", "DATAAE",
                       "Nu exista avize de facturat.")),
      fraComenzi_(source("fraComenzi", "Lista comenzi nefacturate", orders_, "NUMCOM", "DATACOM",
                         "Nu exista comenzi de facturat.")) {
  repairDeliveredQuantities();
  setIsComanda(false);
  showSource();
}

QGroupBox* frmGrilaFC::source(const QString& name, const QString& caption, TDBGrid* list,
                              const QString& numberColumn, const QString& dateColumn,
                              const QString& emptyText) {
  auto* frame = named(new QGroupBox(caption, this), name);
  list->setColumns({{numberColumn, "Numar", CellFormat::Text, 12},
                    {dateColumn, "Data", CellFormat::Date, 11},
                    {"NUME", "Client", CellFormat::Text, 30}});
  list->setEmptyText(emptyText);
  auto* inside = new QVBoxLayout(frame);
  inside->addWidget(list);
  addBelowDrafts(frame, list);
  return frame;
}

void frmGrilaFC::setIsComanda(bool is) {
  IsComanda_ = is;
  orders_->setEnabled(is);
}

void frmGrilaFC::showSource() {
  const bool fromNotes = session().gModFactura == kFromNotes;
  fraAvize_->setVisible(fromNotes);
  fraComenzi_->setVisible(!fromNotes);
}

void frmGrilaFC::refreshLists() {
  frmGrila::refreshLists();
  showSource();
}

// The date of a stored invoice is stored as soon as it changes.
void frmGrilaFC::fieldChosen(const QString& key) {
  if (key == editor().kind().dateColumn && !editor().isNew()) run("dtpDataFactura", [this] { saveHeader(); });
}

}  // namespace velmar
