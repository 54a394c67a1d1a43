// What truly differs between the kinds of documents in behaviour: one small class a kind, one source each.
#pragma once

#include <memory>

#include "documents/Document.h"
#include "documents/DocumentKind.h"
#include "documents/TypedHeader.h"

namespace velmar {

/// How a line stands out in the grid.
enum class LineMark {
  None,
  Dearer,  ///< bought dearer than the last time, beyond the margin
  First    ///< bought for the first time
};

class KindRules {
 public:
  virtual ~KindRules() = default;

  /// Puts into fields what the kind begins with: those of a new document, and those that no table stores of
  /// one that is opened.
  virtual void begin(TypedHeader& header, bool isNew) const;

  /// Completes a line with the article's data and the kind's price (what the line has of a quantity is kept).
  /// `article` is a row of G_ARTMAG. Number, code and name are already set.
  virtual void completeLine(Row& line, const Row& article, TypedHeader& header) const = 0;

  /// Recomputes the line after `changed` was typed.
  virtual void recalculate(Row& line, const QString& changed, const TypedHeader& header) const = 0;

  /// Why the number cannot stand in the cell of the line, as a message; "" when it can.
  virtual QString refusal(const Row& line, const QString& field, const Decimal& number,
                          const TypedHeader& header) const;

  /// Puts into other fields what follows from a choice in the field `changed`.
  virtual void follow(const QString& changed, TypedHeader& header) const;

  /// How each line stands out.
  virtual std::vector<LineMark> marks(const std::vector<Row>& lines, const TypedHeader& header) const;

  /// Whether the line's amounts no longer fit what they were made of, and are to be worked out anew.
  virtual bool isStale(const Row& line) const;

  /// Why the lines cannot move the stock that the ledger shows now, as a message; "" when they can. Asked
  /// before validation and once more under its lock.
  virtual QString stockRefusal(const Document& document) const;

  /// Why the document may not be validated even so, as a message; "" when it may. Asked as stockRefusal(), and
  /// after it.
  virtual QString validationRefusal(const Document& document) const;

  /// Columns whose sums stand in the footers.
  virtual QStringList totalColumns() const = 0;

  /// What validation writes. Costs that the lots decide are put into the document's lines.
  virtual Plan plan(Document& document) const = 0;
};

/// The rules of a kind, null for a kind that cannot be kept yet.
const KindRules* kindRules(const QString& prefix);

std::unique_ptr<KindRules> makeInputVoucherRules();
std::unique_ptr<KindRules> makeSupplierInvoiceRules();
std::unique_ptr<KindRules> makeConsumptionVoucherRules();
std::unique_ptr<KindRules> makeCustomerInvoiceRules();
std::unique_ptr<KindRules> makeCashSaleRules();

}  // namespace velmar
