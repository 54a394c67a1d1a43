#include "documents/windows/frmGrilaAE.h"

namespace velmar {

frmGrilaAE::frmGrilaAE(QWidget* parent) : frmGrila(QStringLiteral("AE"), parent) {}

// A note is stored as soon as its VAT percentage changes.
void frmGrilaAE::fieldChosen(const QString& key) {
  if (key == QStringLiteral("BATVA1"))
    run("txtFields(2)", [this] {
      saveHeader();
      showDocument();
    });
}

}  // namespace velmar
