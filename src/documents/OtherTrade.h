// Validated documents that are none of the 13 kinds: a trade that keeps them in tables of its own (the
// hearing-device trade). It registers itself here, so that the list of documents, the reprint and the check
// reach its documents like all others.
#pragma once

#include "documents/Invariants.h"
#include "documents/Listing.h"

namespace velmar {

/// A rule of the check: a statement that finds what violates it, as PLACE; and TARGET, the key of the place,
/// if that differs.
struct CheckRule {
  QString what;
  Place place = Place::Document;
  QString sql;
};

class OtherTrade {
 public:
  virtual ~OtherTrade() = default;

  /// The document of that prefix and number as it is printed again; nothing if the trade does not have it.
  virtual std::optional<Printout> printoutOf(const QString& prefix, const QString& number) const = 0;
  /// As checkRemoval() and takeBack() of Undo.h.
  virtual QStringList checkRemoval(const LedgerKey& key) const = 0;
  virtual bool takeBack(const LedgerKey& key) const = 0;
  /// Cancels the invoice by a storno with that number and date, in one transaction. Throws RuleError.
  virtual void cancelInvoice(const LedgerKey& invoice, const QString& number, const QDate& date) const = 0;
  virtual std::vector<CheckRule> checkRules() const = 0;
};

/// The trade of this process; null without one.
const OtherTrade* otherTrade();
void setOtherTrade(const OtherTrade* trade);

}  // namespace velmar
