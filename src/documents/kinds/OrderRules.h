// Common rules of orders to suppliers and of customers: prices in lei, no discounts, no stock, no notes.
// Amounts in currency are those in lei divided by the exchange rate.
#pragma once

#include "documents/KindRules.h"

namespace velmar {

class OrderRules : public KindRules {
 public:
  Effects effects(const Document& document, const PlanInputs& inputs) const override;

 protected:
  /// The ledger line, without amounts in currency.
  virtual LedgerLine ledgerLine(const Row& line, const PlanInputs& inputs) const = 0;
  /// The columns of the quantities that are still open, and their values at validation.
  virtual QStringList openColumns() const = 0;
  virtual Decimal openAtFirst(const Row& line) const = 0;

  /// Sets them on a line whose quantity was typed.
  void openLine(Row& line) const;
};

}  // namespace velmar
