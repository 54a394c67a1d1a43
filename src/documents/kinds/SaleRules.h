// Common rules of sales documents: price and discounts of a line, its cost, ledger entry and posting. A kind
// states the columns that it has and overrides what is truly its own.
#pragma once

#include "documents/KindRules.h"

namespace velmar {

constexpr int kCostDecimals = 4;  ///< of what the lots of a line cost

/// The columns of a sales kind's lines that not all kinds have; empty: the kind has none. Currency, exchange
/// rate, VAT, cost centre, due date, method of payment and journal are those fields of the header that have
/// the type.
struct SaleColumns {
  QString currencyPrice = {};      ///< price in the article's own currency
  QString cost = {};               ///< of the whole line
  QString openQuantity = {};       ///< not yet invoiced
  bool costsAtValidation = false;  ///< a cost that the lots did not determine is the article's at validation
  bool costsOneUnit = false;       ///< a cost that the lots did not determine is that of one unit
};

class SaleRules : public KindRules {
 public:
  explicit SaleRules(SaleColumns columns) : columns_(std::move(columns)) {}

  void completeLine(Row& line, const Row& article, TypedHeader& header, Notices& notices) const override;
  void recalculate(Row& line, const QString& changed, const TypedHeader& header,
                   Notices& notices) const override;
  void applyRate(Row& line, const TypedHeader& header) const override;
  CellObjection objection(const Row& line, const QString& field, const Decimal& number,
                          const TypedHeader& header) const override;
  bool isStale(const Row& line) const override;
  QStringList totalColumns() const override;
  Effects effects(const Document& document, const PlanInputs& inputs) const override;

 protected:
  /// What a sale states besides its lines.
  struct Terms {
    QString currency;  ///< empty: lei
    Decimal rate;
    Decimal vatPercent;
    QString vatAccount;
    QString costCentre;

    bool isForeign() const { return !currency.isEmpty(); }
    /// An amount of the document in lei.
    Decimal inLei(const Decimal& amount) const { return isForeign() ? amount * rate : amount; }
  };

  /// Sets price and cost of a line of returned goods to those of the document that the header refers to;
  /// false when it refers to none.
  virtual bool takeReturned(Row& /*line*/, const TypedHeader& /*header*/) const { return false; }

  /// The cost of a line that came from another document; empty: it is that of an issue.
  virtual std::optional<Decimal> sourcedCost(const Row& /*line*/) const { return std::nullopt; }

  /// The notes of the document; empty: nothing is posted. `terms` are those of each note.
  virtual std::vector<NoteRule> notes(const Document& document, const PlanInputs& inputs,
                                      const NoteTerms& terms) const = 0;

  // Notes used by the kinds. `cost` is that of a line.
  /// The gross amount is the debit of `account`.
  static NoteRule saleNote(const NoteTerms& terms, const Account& account, const QString& vatAccount);
  static NoteRule costOfGoods(const NoteTerms& terms, LineAmount cost, TotalledLines lines, bool byQuantity);
  static NoteRule costOfProducts(const NoteTerms& terms, LineAmount cost);
  /// The column COST, with the sign of the quantity: the cost of returned goods is posted with the opposite
  /// sign.
  static Decimal signedCost(const Row& line, const ArticleFacts& article);

 private:
  void takeQuantity(Row& line, const TypedHeader& header) const;
  static bool takeDiscounts(Row& line, const TypedHeader& header);
  void takeLots(Effects& effects, OpenLots lots) const;
  void takeCosts(Effects& effects, const ArticleTable& articles) const;
  Decimal lineCost(const Row& line, bool isFifo) const;
  LedgerLine ledgerLine(const Row& line, const Terms& terms, const PlanInputs& inputs) const;
  LedgerDocument ledgerWith(const Document& document, const std::vector<Row>& lines, const Terms& terms,
                            const PlanInputs& inputs) const;

  SaleColumns columns_;
};

}  // namespace velmar
