#include "documents/windows/frmReceptieXLS.h"

#include <QFormLayout>
#include <QLineEdit>

#include "documents/SheetImport.h"
#include "util/Messages.h"
#include "util/windows/Controls.h"
#include "util/windows/Forms.h"

namespace velmar {

frmReceptieXLS::frmReceptieXLS(const QString& note, bool ofSurpluses, QWidget* parent)
    : SheetDialog("frmReceptieXLS", "Receptie din fisier EXCEL", parent,
                  "Selectati fisierul EXCEL de importat cu structura:COD,DENUMIRE,PRET,CANTITATE"),
      note_(note),
      ofSurpluses_(ofSurpluses),
      TextLot_(makeTextBox("TextLot", 35, "Inceputul observatiilor facturilor de import ale lotului")) {
  rows()->insertRow(0, "Nr. Lot", TextLot_);
  finish();
  TextLot_->setFocus();
}

QWidget* frmReceptieXLS::controlOf(const QString& field) { return field == "LOT" ? TextLot_ : nullptr; }

void frmReceptieXLS::import() {
  LotResult result;
  {
    const Hourglass wait;
    result = importLot({note_, TextLot_->text(), ofSurpluses_}, path());
  }
  if (!result.leftOut.isEmpty()) Mesaj(leftOutText(result.leftOut));
  if (!result.isCompared) {
    Mesaj("Nu exista diferente");
    Mesaj("Verificarea facturilor din lot nu s-a putut realiza");
    return;
  }
  Mesaj("Verificarea facturilor din lot s-a realizat cu succes");
  accept();
}

}  // namespace velmar
