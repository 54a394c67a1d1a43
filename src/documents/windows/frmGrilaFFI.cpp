#include "documents/windows/frmGrilaFFI.h"

#include <QPushButton>

#include "util/windows/Controls.h"

namespace velmar {

frmGrilaFFI::frmGrilaFFI(QWidget* parent) : frmGrila(QStringLiteral("FI"), parent) {
  auto* import =
      makeButton("cmdImport", "Import",
                 "Import detalii din fisier EXCEL cu structura: COD,DENUMIRE,PRET,CANTITATE,ADAOS");
  import->setEnabled(false);
  addCommand(import);
}

// Another currency recalculates the lines of a stored invoice.
void frmGrilaFFI::fieldChosen(const QString& key) {
  if (key != QStringLiteral("CODVALUTA") || editor().isNew() || editor().lines().empty()) return;
  run("cboCodDevizaDenumire", [this] {
    saveHeader();
    showDocument();
  });
}

}  // namespace velmar
