// The sale prices of an article: how mark-up, price without VAT and price with VAT follow from each other.
#pragma once

#include "util/Decimal.h"

namespace velmar {

/// In lei and percent.
struct ArticlePrices {
  Decimal cost;
  Decimal markup;  ///< percent of the cost
  Decimal net;     ///< without VAT
  Decimal gross;   ///< with VAT
};

/// What the user works on: the price without VAT, which gives the one with it, or the reverse.
enum class PriceBasis { Net, Gross };

/// The prices that follow from the one worked on, with `vat` in percent, all but the cost rounded to 2
/// decimals. An article held in stock at cost 0 keeps what it has, rounded; one that is not held in stock
/// keeps its mark-up.
ArticlePrices recalculated(ArticlePrices prices, const Decimal& vat, PriceBasis basis, bool heldInStock);

}  // namespace velmar
