// The differences in behaviour between the document kinds: one class per kind, in the kind's source.
#pragma once

#include "documents/DocumentKind.h"
#include "documents/Notices.h"
#include "documents/Plan.h"

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
  virtual void completeLine(Row& line, const Row& article, TypedHeader& header, Notices& notices) const = 0;

  /// Recomputes the line after `changed` was typed.
  virtual void recalculate(Row& line, const QString& changed, const TypedHeader& header,
                           Notices& notices) const = 0;

  /// Whether every save of the header recalculates the lines, with applyRate().
  virtual bool linesFollowHeader() const { return false; }

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

  /// Columns whose sums are shown in the footers.
  virtual QStringList totalColumns() const = 0;

  /// Whether goods enter or leave the stock with the document.
  virtual bool movesStock(const Document& /*document*/) const { return true; }

  /// Reads the inputs that only this kind needs.
  virtual void readInputs(const Document& document, PlanInputs& inputs) const;

  /// Title of the message when the step of the articles' stock fails; empty: that of the kind's texts.
  virtual QString stockFailureTitle(const Row& /*header*/) const { return {}; }

  /// What validation does. Throws RuleError; reads nothing.
  virtual Effects effects(const Document& document, const PlanInputs& inputs) const = 0;
};

}  // namespace velmar
