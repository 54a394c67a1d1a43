// The electronic invoices of suppliers: what they lack, and the drafts made of them.
#pragma once

#include "einvoice/PurchaseSource.h"

namespace velmar {

/// The states of a file, as they are stored and shown.
namespace received {
inline const QString kToTake = QStringLiteral("de preluat");
inline const QString kIncomplete = QStringLiteral("incompleta");
inline const QString kTaken = QStringLiteral("preluata");
inline const QString kRefused = QStringLiteral("refuzata");
}  // namespace received

/// A file and what the user chose for it.
struct Purchase {
  qint64 id = 0;  ///< in G_EFACTURAPRIM
  ReceivedInvoice invoice;
  qint64 supplier = 0;   ///< partner; 0: not known
  QString number;        ///< of the first draft
  QString turned;        ///< ledger key of the invoice whose goods go back
  QStringList articles;  ///< codes, by line; "": not chosen
  QStringList found;     ///< those of them that were known before
};

/// A draft of a supplier invoice, in lei.
struct PurchaseDraft {
  struct Line {
    PurchaseSource::Article article;
    Decimal quantity, value, vat;
    Decimal statedPrice;
  };
  QString number;
  qint64 rate = 0;
  std::vector<Line> lines;
};

/// The invoice with its supplier and the articles that are known. Throws RuleError when the buyer is another
/// company.
Purchase purchaseOf(ReceivedInvoice invoice, PurchaseSource& source);
/// That the supplier's invoice was taken over or entered by hand, with the numbers of its drafts; empty when
/// it was not.
QString existsText(const Purchase& purchase);
/// Those of the numbers of drafts, one a line, that exist.
QStringList existingDrafts(const QString& numbers);
/// The text without diacritics and hidden characters, at most as long as the column.
QString fittedText(const QString& text, const char* table, const char* column);

/// What keeps the file from being taken over, in Romanian; empty when nothing does.
QStringList missingIn(const Purchase& purchase, PurchaseSource& source);
/// The drafts, one for each rate, of the lines that have an article. Lines of one article and price are one.
std::vector<PurchaseDraft> draftsOf(const Purchase& purchase, PurchaseSource& source);
/// Lei with VAT that the file has and the drafts do not.
Decimal differenceOf(const Purchase& purchase, PurchaseSource& source);
/// Units of the file that differ from those of the articles, each difference once, lines without a value, and
/// the exchange rate used, in Romanian.
QStringList remarksOn(const Purchase& purchase, PurchaseSource& source);

/// Adds the supplier of the file, or makes its partner, a customer until now, a supplier too; its key.
qint64 addSupplierOf(const ReceivedInvoice& invoice, const PurchaseSource& source);
/// Adds an article for a line, in the family; its code.
QString addArticleFor(const ReceivedLine& line, qint64 supplier, qint64 family, const PurchaseSource& source);

/// Stores the articles that the user chose, for this file and later ones; nothing while the supplier is not
/// known.
void keepChoices(const Purchase& purchase, PurchaseSource& source);
/// Makes the drafts, stores the choices and the state of the file, in one transaction; the numbers of the
/// drafts. Throws RuleError when something is missing or the invoice was taken over meanwhile.
QStringList takeOver(const Purchase& purchase, PurchaseSource& source);

}  // namespace velmar
