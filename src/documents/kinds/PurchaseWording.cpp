#include "documents/kinds/PurchaseWording.h"

namespace velmar::wording {

HeaderField supplier(const QString& toolTip) {
  return {HeaderFieldType::Partner, "CODFUR", "txtFields(1)", "&Furnizor", toolTip, "DataCombo1"};
}

HeaderField supplierRemark(const QString& toolTip, int longest) {
  return {HeaderFieldType::Remark, "OBS", "txtFields(3)", "&Observatii", toolTip, "", "", longest};
}

LineColumn palet() { return {"PALET", "Palet", LineEntry::Locked, -1, kAsTyped, 12}; }

void setInvoiceTexts(KindTexts& texts, const QString& title, const QString& newTip, const QString& printTip) {
  texts.title = title;
  texts.draftsCaption = "Lista facturi";
  setTips(texts, newTip, "Stergere factura selectata", printTip);
  setQuestions(texts, "factura", kSelectInvoice);
  texts.validated = "Factura a fost salvata cu succes in Articole si Documente !";
}

Checks invoicePrintChecks(const DocumentKind& kind) {
  return {nothingSelected(kind, "Nu exista factura selectata!"),
          printWithoutPartner(kind, "Nu exista furnizor selectat!"), printUnsaved(kind)};
}

}  // namespace velmar::wording
