// The electronic invoices of suppliers: files that were read, what they lack, and the drafts made of them.
#pragma once

#include <memory>
#include <optional>

#include "einvoice/ReceivedInvoice.h"
#include "store/Row.h"
#include "util/Progress.h"

namespace velmar {

/// The states of a file, as they are stored and shown.
namespace received {
inline const QString kToTake = QStringLiteral("de preluat");
inline const QString kIncomplete = QStringLiteral("incompleta");
inline const QString kTaken = QStringLiteral("preluata");
inline const QString kRefused = QStringLiteral("refuzata");
}  // namespace received

/// The suppliers, articles, rates and units of the open company that files refer to.
class PurchaseSource {
 public:
  PurchaseSource();
  ~PurchaseSource();
  PurchaseSource(PurchaseSource&&) noexcept;
  PurchaseSource& operator=(PurchaseSource&&) noexcept;

  struct Article {
    QString code, name, unit;
    Decimal salePrice;
  };

  /// The company's own fiscal code, comparable; and its journal of supplier invoices, "" without one.
  const QString& ownCode() const;
  const QString& journal() const;
  /// The header of a new draft with the kind's defaults.
  const Row& newHeader() const;
  /// 0: none. The key of a partner that is only a customer in `customer`, if given.
  qint64 supplierOf(const QString& fiscalCode, qint64* customer = nullptr) const;
  /// The articles of the lines: by the supplier's code, or the last choice for code or name; "" for none.
  QStringList articlesOf(qint64 supplier, const ReceivedInvoice& invoice);
  /// Stores the choice of an article for lines like this one. The caller has a transaction.
  void choose(qint64 supplier, const ReceivedLine& line, const QString& article);
  /// Reads the articles for article().
  void readArticles(const QStringList& codes);
  std::optional<Article> article(const QString& code) const;
  /// Code in kt_cote of a rate on the VAT account of purchases; 0: none.
  qint64 rateOf(const ReceivedRate& rate) const;
  /// Code of recommendation 20 of a unit; "".
  QString unitCode(const QString& unit) const;
  /// A unit with that code; "Buc" without one.
  QString unitOf(const QString& code) const;

 private:
  struct Data;
  std::unique_ptr<Data> data_;
};

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

/// Reads files and the files in zip archives, and stores them with their states in place of what was read
/// before. Nothing is written into the books. Files that cannot be read are "refuzata" with the reason.
void readPurchases(const QStringList& paths, const Progress& progress = {});
/// The files of a folder that are read: XML and zip, by name, without links and special files.
QStringList filesOf(const QString& folder);

/// What was read last: ID, FISIER, FURNIZOR, NUMAR, DATA, TOTAL, STARE, LIPSESTE.
Recordset lastPurchases();

/// The stored file with the articles that are known. Throws RuleError when its content was refused.
Purchase storedPurchase(qint64 id, PurchaseSource& source);
/// The content of the file. Throws RuleError when it was not stored.
QByteArray purchaseFile(qint64 id);

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
/// Makes the drafts and stores the choices, in one transaction; the numbers of the drafts. Throws RuleError
/// when something is missing or the invoice was taken over meanwhile.
QStringList takeOver(const Purchase& purchase, PurchaseSource& source);
/// Stores the state of the file as it is now.
void judgeAgain(qint64 id, PurchaseSource& source);

}  // namespace velmar
