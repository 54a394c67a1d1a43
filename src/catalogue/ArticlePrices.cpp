#include "catalogue/ArticlePrices.h"

namespace velmar {

ArticlePrices recalculated(ArticlePrices prices, const Decimal& vat, PriceBasis basis, bool heldInStock) {
  const Decimal hundred(100);
  if (!heldInStock || prices.cost != Decimal(0)) {
    if (basis == PriceBasis::Net)
      prices.gross = vat * prices.net / hundred + prices.net;
    else
      prices.net = prices.gross / (Decimal(1) + vat / hundred);
    if (heldInStock) prices.markup = (prices.net - prices.cost) / prices.cost * hundred;
  }
  for (Decimal* amount : {&prices.markup, &prices.net, &prices.gross}) *amount = Round(*amount, 2);
  return prices;
}

}  // namespace velmar
