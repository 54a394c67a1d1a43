// The vocabulary of sales: header fields, columns and lines of text that sales documents share.
#pragma once

#include "documents/kinds/Wording.h"

namespace velmar::wording {

inline const QString kNumberTip = QStringLiteral("Introduceti maxim 20 caractere");
/// The message when the stock does not cover a sale.
inline const QString kAvailable = QStringLiteral("Articolul: %1 are disponibil in stoc numai %2");
inline const QString kChoosePayment = QStringLiteral("Selectati o modalitate de plata");

HeaderField customer(const DocumentKind& kind);
HeaderField customerRemark(const DocumentKind& kind);
HeaderField costCentre();

/// Quantity to value with VAT, with the prices and discounts of a sale. `currencyPrice` may be empty.
void describeSaleColumns(DocumentKind& kind, LineEntry entry, const QString& currencyPrice);

/// The columns of the partner's card that are printed on a sale.
QStringList printedCustomer(const QStringList& more);

}  // namespace velmar::wording
