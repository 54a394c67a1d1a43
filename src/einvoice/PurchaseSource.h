// What the open company has that electronic invoices of suppliers refer to, read once for many files.
#pragma once

#include <memory>
#include <optional>

#include "einvoice/ReceivedInvoice.h"
#include "store/Row.h"

namespace velmar {

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

}  // namespace velmar
