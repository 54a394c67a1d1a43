#include "documents/windows/frmGrilaFFI.h"

#include <QPushButton>

#include "documents/windows/frmImportXLS.h"
#include "util/windows/Controls.h"

namespace velmar {

frmGrilaFFI::frmGrilaFFI(QWidget* parent) : frmGrila(QStringLiteral("FI"), parent) {
  auto* import =
      makeButton("cmdImport", "Import",
                 "Import detalii din fisier EXCEL cu structura: COD,DENUMIRE,PRET,CANTITATE,ADAOS");
  connect(import, &QPushButton::clicked, this, [this] { run("cmdImport_Click", [this] { importLines(); }); });
  addCommand(import);
}

void frmGrilaFFI::importLines() {
  LineImport invoice;
  invoice.kind = KindId::ImportInvoice;
  invoice.number = numberForImport(kNoInvoice, kHasLines);
  const Row& stored = editor().header();
  invoice.supplier = stored.integer("CODFUR");
  invoice.isForeign = true;
  invoice.currency = stored.text("CODVALUTA");
  if (!stored.decimal("CURSVALUTA").isZero()) invoice.rate = stored.decimal("CURSVALUTA");
  frmImportXLS(invoice, stored.date("DATAFAC"), this).exec();
  showImported();
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
