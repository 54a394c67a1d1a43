// The differences in behaviour between the document kinds: one class per kind, each in its own source.
#pragma once

#include <memory>

#include "documents/Document.h"
#include "documents/DocumentKind.h"
#include "documents/TypedHeader.h"

namespace velmar {

/// How a line is highlighted in the grid.
enum class LineMark {
  None,
  Dearer,  ///< more expensive than the last purchase, beyond the margin
  First    ///< bought for the first time
};

/// Why a typed number is refused; an empty text: it is accepted.
struct CellObjection {
  QString text;
  bool setsBack = false;  ///< the cell shows its old value; else the number remains for correction
};

class KindRules {
 public:
  virtual ~KindRules() = default;

  /// Sets the kind's defaults: all of a new document, only those of fields that are not stored of an opened
  /// one.
  virtual void begin(TypedHeader& header, bool isNew) const;

  /// Completes a line with the article's data and the kind's price (an existing quantity is kept).
  /// `article` is a row of G_ARTMAG. Number, code and name are already set.
  virtual void completeLine(Row& line, const Row& article, TypedHeader& header) const = 0;

  /// Recomputes the line after `changed` was typed.
  virtual void recalculate(Row& line, const QString& changed, const TypedHeader& header) const = 0;

  /// Recalculates the line after the document's VAT rate has changed.
  virtual void applyRate(Row& line, const TypedHeader& header) const;

  /// Why the number is refused in the cell of the line.
  virtual CellObjection objection(const Row& line, const QString& field, const Decimal& number,
                                  const TypedHeader& header) const;

  /// Sets the fields that depend on a choice in the field `changed`.
  virtual void follow(const QString& changed, TypedHeader& header) const;

  /// How each line is highlighted.
  virtual std::vector<LineMark> marks(const std::vector<Row>& lines, const TypedHeader& header) const;

  /// Whether the line's amounts no longer match their inputs and must be recalculated.
  virtual bool isStale(const Row& line) const;

  /// Throws RuleError naming the field at fault when the current stock does not allow the lines. Called
  /// before validation and again under its lock.
  virtual void requireStock(const Document& document) const;

  /// Throws RuleError when the document has to be printed first. Called after requireStock().
  virtual void requireReceipt(const Document& document) const;

  /// Columns whose sums are shown in the footers.
  virtual QStringList totalColumns() const = 0;

  /// The plan of the validation. Costs determined by the lots are set in the document's lines.
  virtual Plan plan(Document& document) const = 0;
};

/// The rules of a kind; null for a kind that is not supported yet.
const KindRules* kindRules(const QString& prefix);

std::unique_ptr<KindRules> makeInputVoucherRules();
std::unique_ptr<KindRules> makeSupplierInvoiceRules();
std::unique_ptr<KindRules> makeConsumptionVoucherRules();
std::unique_ptr<KindRules> makeCustomerInvoiceRules();
std::unique_ptr<KindRules> makeCashSaleRules();

}  // namespace velmar
