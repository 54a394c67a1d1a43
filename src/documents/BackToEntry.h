// Drafts of invoices made from validated documents: from a proforma, and from an invoice that was turned
// round.
#pragma once

#include "stock/LedgerKey.h"

namespace velmar {

/// Makes a draft invoice of today, with that number, from the proforma, which counts as invoiced from then
/// on; all in one transaction. Throws RuleError when it is invoiced already, the number is taken (column
/// NUMFAC) or no sales rate has the proforma's VAT percentage.
void invoiceProforma(const LedgerKey& proforma, const QString& number);

/// Copies the invoice that the storno turned round into a draft with that number, in one transaction. Lines
/// do not refer to delivery notes any more. Throws RuleError when there is no such invoice or the number is
/// taken.
void copyTurnedInvoice(const LedgerKey& storno, const QString& number);

}  // namespace velmar
