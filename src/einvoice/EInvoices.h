// The electronic invoices of the open company: their list, their files, and the way to the state's system.
//
// A file that was written remains stored: making it again adds a version, of which the last is the
// invoice's own.
#pragma once

#include <optional>

#include "einvoice/EInvoiceSource.h"
#include "store/Row.h"
#include "util/Progress.h"

namespace velmar {

/// The invoices and stornos of the days: ID (ledger key), DOCUMENT (number with series), DATADOC, NUME, TOTAL
/// (lei with VAT, of a storno negative), STARE, INDEX_INCARCARE, INTARZIAT (not sent within the term), MESAJ
/// (of the state's system).
Recordset eInvoices(const QDate& from, const QDate& to, const QDate& today);

/// The invoices that were not sent within the term, and those that were refused past it.
int lateEInvoices(const QDate& today);

/// What keeps the file of the document from being made; empty when nothing does. Reads only.
std::vector<EFault> checkEInvoice(const QString& document);

struct WrittenInvoices {
  int written = 0;
  QStringList faulty;  ///< documents without a file
};
/// Writes the files of the documents, named by eInvoiceFileName() (with the kind before it for a second
/// document of that name), into the folder: the stored ones as they are, the others made now and stored.
/// Throws StoreError when a file cannot be written, Cancelled; the files before stay.
WrittenInvoices writeEInvoices(const QStringList& documents, const QString& folder,
                               const Progress& progress = {});

/// "FC12_20260115.xml" for the number with its series and the day.
QString eInvoiceFileName(const QString& number, const QDate& date);

/// Makes the file again and stores it as a version to be sent. Throws RuleError for an invoice that was sent
/// or accepted, and for one with faults.
void remakeEInvoice(const QString& document);

/// Stores that the file was uploaded under the index. Throws RuleError, naming "INDEX_INCARCARE", for an
/// index that is not a number or another invoice's; and for an invoice without a file or accepted, or one
/// that is not sent.
void markSent(const QString& document, const QString& index);

/// An answer of the state's system: what became of which invoice.
struct EAnswer {
  QString document;  ///< ledger key; empty: nothing was changed
  QString text;      ///< in Romanian, for the user
};
/// Reads an answer, a zip archive or XML, and stores what it says. `current` is the document that an answer
/// without an index is for; may be empty. Throws RuleError for a file that is no answer.
EAnswer readAnswer(const QByteArray& file, const QString& current);

}  // namespace velmar
