// Common rules of sales documents: price and discounts of a line, its cost, ledger entry and posting. The
// kinds override the differences.
#pragma once

#include "documents/KindRules.h"

namespace velmar {

class SaleRules : public KindRules {
 public:
  void completeLine(Row& line, const Row& article, TypedHeader& header) const override;
  void recalculate(Row& line, const QString& changed, const TypedHeader& header) const override;
  void applyRate(Row& line, const TypedHeader& header) const override;
  CellObjection objection(const Row& line, const QString& field, const Decimal& number,
                          const TypedHeader& header) const override;
  bool isStale(const Row& line) const override;
  void requireStock(const Document& document) const override;
  QStringList totalColumns() const override { return {"VALOAREFT", "VALOARETVA", "VALOARETTI", "COST"}; }
  Plan plan(Document& document) const override;

 protected:
  /// Sets price and cost of a line of returned goods to those of the document that the header refers to;
  /// false when it refers to none.
  virtual bool takeReturned(Row& /*line*/, const TypedHeader& /*header*/) const { return false; }

  /// Whether `COST` of a line, if not determined by lots, is the cost of one unit instead of the line.
  virtual bool costsOneUnit() const { return false; }

  /// The notes of the document; the first is that of the sale.
  virtual std::vector<NoteRule> notes(bool isFifo) const = 0;

  /// Adds the data for the kind's notes besides the document's currency, partner and VAT.
  virtual void complete(Posting& posting, const Document& document) const = 0;

  // Notes used by the kinds; `totals` are keys of TotaluriConturi. The gross amount is the debit of
  // `account`.
  static NoteRule saleNote(const char* totals, const char* journalParameter, AccountSource source,
                           const char* account);
  static NoteRule costOfGoods(const char* totals);
  static NoteRule costOfProducts(const char* totals);

 private:
  struct Terms;

  void takeQuantity(Row& line, const TypedHeader& header) const;
  static bool takeDiscounts(Row& line, const TypedHeader& header);
  void takeLots(Document& document, Plan& plan) const;
  Decimal signedCost(const Row& line, const Terms& terms) const;
  Values ledgerLine(const Row& line, const Terms& terms) const;
  LedgerDocument ledgerWithLines(const Document& document, const Terms& terms,
                                 std::vector<StockChange>& stock) const;
  void post(const Document& document, const Terms& terms, Posting& posting) const;
};

}  // namespace velmar
