// The sale prices of an article: calculates mark-up, price without VAT and price with VAT from each other.
#pragma once

#include "util/Decimal.h"

namespace velmar {

/// In lei and percent.
struct ArticlePrices {
  Decimal cost;
  Decimal markup;  ///< percentage of the cost
  Decimal net;     ///< without VAT
  Decimal gross;   ///< with VAT
};

/// The price that the user edits, without or with VAT; the other one is calculated.
enum class PriceBasis { Net, Gross };

/// The prices calculated from the edited one, with `vat` in percent; all but the cost are rounded to 2
/// decimals. An article held in stock at cost 0 keeps its values, rounded; one that is not held in stock
/// keeps its mark-up.
ArticlePrices recalculated(ArticlePrices prices, const Decimal& vat, PriceBasis basis, bool heldInStock);

}  // namespace velmar
