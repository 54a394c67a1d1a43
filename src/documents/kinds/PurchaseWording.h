// The vocabulary of purchases: header fields, columns and texts that purchase documents share.
#pragma once

#include "documents/kinds/Wording.h"

namespace velmar::wording {

inline const QString kUnknownArticle = QStringLiteral("Articolul cu codul %1 nu exista ");
inline const QString kSelectInvoice = QStringLiteral("Va rugam selectati o factura !");

HeaderField supplier(const QString& toolTip);
HeaderField supplierRemark(const QString& toolTip, int longest);
LineColumn palet();

/// Common texts of supplier and import invoices.
void setInvoiceTexts(KindTexts& texts, const QString& title, const QString& newTip, const QString& printTip);
Checks invoicePrintChecks(const DocumentKind& kind);

}  // namespace velmar::wording
