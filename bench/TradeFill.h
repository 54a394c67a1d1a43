// A trading company's ledger and drafts of customer invoices: what goods in and goods out are measured on.
#pragma once

#include "Bare.h"

namespace velmar::bench {

struct TradeSize {
  int documents;  ///< of 20 lines
  int articles;   ///< that they are about, of the catalogue's 10,000
  int openFrom;   ///< the first of the documents that are entries with something left, in warehouse 1
};

/// 500 supplier invoices about 2,000 articles: each has 5 lots with 7 pieces left.
inline constexpr TradeSize kSmallTrade{500, 2000, 0};
/// 50,000 documents in two years about all articles. Each has 5 such lots too and some 65 older ones that are
/// used up; old invoices stand among the drafts' tables, with their links.
inline constexpr TradeSize kLargeTrade{50'000, 10'000, 47'500};

/// Fills a company that has its catalogue and nothing else: goods, valued by lots, a range of numbers, the
/// ledger of that size, and kDrafts invoices of each length. These sell the small company's articles in
/// warehouse 1, which has enough of them.
void fillTrade(BareConnection& connection, const TradeSize& size);

}  // namespace velmar::bench
