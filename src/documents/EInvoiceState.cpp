#include "documents/EInvoiceState.h"

#include "store/Database.h"
#include "util/Errors.h"

namespace velmar {

QString eInvoiceState(const LedgerKey& document) {
  const Recordset found =
      OpenRs("SELECT STARE FROM G_EFACTURA WHERE DOCID = ? AND ACTUAL <> 0", {document.text()});
  return found.isEmpty() ? einvoice::kToSend : found.first().text("STARE");
}

void requireNotAccepted(const LedgerKey& document) {
  if (eInvoiceState(document) == einvoice::kAccepted)
    throw RuleError(
        QStringLiteral("Factura electronica a documentului %1 a fost acceptata. Documentul nu poate fi "
                       "sters; stornati factura.")
            .arg(document.text()));
}

void leaveEInvoice(const LedgerKey& document) {
  database().execute("UPDATE G_EFACTURA SET ACTUAL = 0 WHERE DOCID = ? AND ACTUAL <> 0", {document.text()});
}

}  // namespace velmar
