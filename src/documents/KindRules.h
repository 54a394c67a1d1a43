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

/// What stands against a typed number; an empty text: nothing.
struct CellObjection {
  QString text;
  bool setsBack = false;  ///< the cell shows again what it held; else the number stays to be mended
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

  /// Recomputes what follows from the document's VAT rate, which has changed.
  virtual void applyRate(Row& line, const TypedHeader& header) const;

  /// Why the number cannot stand in the cell of the line.
  virtual CellObjection objection(const Row& line, const QString& field, const Decimal& number,
                                  const TypedHeader& header) const;

  /// Puts into other fields what follows from a choice in the field `changed`.
  virtual void follow(const QString& changed, TypedHeader& header) const;

  /// How each line stands out.
  virtual std::vector<LineMark> marks(const std::vector<Row>& lines, const TypedHeader& header) const;

  /// Whether the line's amounts no longer fit what they were made of, and are to be worked out anew.
  virtual bool isStale(const Row& line) const;

  /// Throws RuleError naming the field at fault when the lines cannot move the stock that the ledger shows
  /// now. Asked before validation and once more under its lock.
  virtual void requireStock(const Document& document) const;

  /// Throws RuleError when the document has to be printed first. Asked as requireStock(), and after it.
  virtual void requireReceipt(const Document& document) const;

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
