// What the list of documents needs to know of the electronic invoices that were made of them.
#pragma once

#include "stock/LedgerKey.h"

namespace velmar {

/// The states of an electronic invoice, as they are stored and shown.
namespace einvoice {
inline const QString kToSend = QStringLiteral("de trimis");
inline const QString kWritten = QStringLiteral("fisier scris");
inline const QString kSent = QStringLiteral("trimisa");
inline const QString kAccepted = QStringLiteral("acceptata");
inline const QString kRefused = QStringLiteral("respinsa");
inline const QString kNotSent = QStringLiteral("nu se trimite");
}  // namespace einvoice

/// The state of the last file of the document; kToSend without one.
QString eInvoiceState(const LedgerKey& document);

/// Throws RuleError when the electronic invoice of the document was accepted: it can only be reversed then.
void requireNotAccepted(const LedgerKey& document);

/// The files of the document stay stored but are no longer its own: it was taken back.
void leaveEInvoice(const LedgerKey& document);

}  // namespace velmar
