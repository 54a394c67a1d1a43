#include "documents/windows/frmGrilaFC.h"

namespace velmar {

frmGrilaFC::frmGrilaFC(QWidget* parent) : frmGrila(QStringLiteral("FC"), parent) {}

// The date of a stored invoice is stored as soon as it changes.
void frmGrilaFC::fieldChosen(const QString& key) {
  if (key == editor().kind().dateColumn && !editor().isNew()) run("dtpDataFactura", [this] { saveHeader(); });
}

}  // namespace velmar
