// Takes validated documents of the trade back, and cancels invoices.
#pragma once

#include <QDate>
#include <QStringList>

#include "stock/LedgerKey.h"

namespace velmar {

/// Throws RuleError when the document must stay: a later issue of its first article exists, a voucher is on
/// an invoice, an invoice was cancelled, or (a storno) an order or voucher of the cancelled invoice is on
/// another one or an order has another client, device or price.
void requireRemovableHearing(const LedgerKey& key);

/// Takes the document back in one transaction, with all checks under the write lock; returns whether it had
/// notes. An invoice or voucher becomes a draft again; the goods of the invoice's vouchers leave with them
/// again. A storno is removed and its invoice is valid again: its goods leave once more.
bool takeBackHearing(const LedgerKey& key);

/// Cancels the invoice by a storno with that number and date, in one transaction: copies of header, lines,
/// ledger and notes (turned round); neither moves stock any more, and its orders and vouchers are free.
/// Throws RuleError when the invoice is cancelled already, the number is taken, or the date is before the
/// invoice's or the entry period.
void cancelHearingInvoice(const LedgerKey& invoice, const QString& number, const QDate& date);

/// Key of the storno that cancelled the invoice; "" when there is none.
QString stornoOfHearing(const QString& invoiceNumber);

}  // namespace velmar
