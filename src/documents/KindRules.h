// What truly differs between the kinds of documents in behaviour: one small class a kind, one source each.
#pragma once

#include <memory>

#include "documents/Document.h"
#include "documents/DocumentKind.h"

namespace velmar {

class KindRules {
 public:
  virtual ~KindRules() = default;

  /// Completes a line with the article's data and the kind's price (what the line has of a quantity is kept).
  /// `article` is a row of G_ARTMAG. Number, line and name are already set.
  virtual void completeLine(Row& line, const Row& article) const = 0;

  /// Recomputes the line after `changed` was typed.
  virtual void recalculate(Row& line, const QString& changed) const = 0;

  /// Columns whose sums stand in the footers.
  virtual QStringList totalColumns() const = 0;

  virtual Plan plan(const Document& document) const = 0;
};

/// The rules of a kind, null for a kind that cannot be kept yet.
const KindRules* kindRules(const QString& prefix);

std::unique_ptr<KindRules> makeInputVoucherRules();

}  // namespace velmar
