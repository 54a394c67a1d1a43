// What documents that sell have alike: the price of a line with its discounts, what it costs, what goes to
// the ledger and to the accounts. The kinds tell what differs.
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
  /// Prices and costs a line of goods that a customer brings back as on the document that the header names;
  /// false when it names none.
  virtual bool takeReturned(Row& /*line*/, const TypedHeader& /*header*/) const { return false; }

  /// Whether `COST` of a line holds the cost of one unit where no lots decide, and not that of the line.
  virtual bool costsOneUnit() const { return false; }

  /// The notes of the document, the sale's first.
  virtual std::vector<NoteRule> notes(bool isFifo) const = 0;

  /// Fills what the kind's notes need besides the document's currency, partner and VAT.
  virtual void complete(Posting& posting, const Document& document) const = 0;

  // The notes that kinds are made of; `totals` are keys of TotaluriConturi. The gross amount is the debit of
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
