// Ledger and drafts of customer invoices of a trading company, for the measurements of receipts and issues.
#pragma once

#include "Bare.h"

namespace velmar::bench {

struct TradeSize {
  int documents;  ///< of 20 lines
  int articles;   ///< that occur in them, of the catalogue's 10,000
  int openFrom;   ///< the first document of those that are receipts in warehouse 1 with open lots
};

/// 500 supplier invoices with 2,000 articles: each article has 5 lots with 7 remaining pieces.
inline constexpr TradeSize kSmallTrade{500, 2000, 0};
/// 50,000 documents over two years with all articles. Each article also has 5 such lots, and some 65 older
/// ones that are used up; the tables of drafts contain old invoices with their links.
inline constexpr TradeSize kLargeTrade{50'000, 10'000, 47'500};

/// Fills a company that has only a catalogue: goods valued by lots, a number range, a ledger of that size,
/// and kDrafts invoices of each length. These sell the articles of the small company from warehouse 1, which
/// has enough stock.
void fillTrade(BareConnection& connection, const TradeSize& size);

}  // namespace velmar::bench
