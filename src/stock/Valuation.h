// Stock, cost and sale prices of articles after the lines of a document.
#pragma once

#include <QDate>

#include "catalogue/ArticleFigures.h"

namespace velmar {

/// How a stock change affects an article's stock, cost and sale prices.
enum class StockRule {
  ReceiptByMargin,  ///< input voucher: the sale price is computed from the new cost and the mark-up
  ReceiptByPrice,   ///< supplier invoice: the sale price is given and the mark-up is computed; also a return
  ReceiptByNote,    ///< receipt note: as ReceiptByPrice, without the price in currency, for every article
  ReceiptByImport,  ///< import: as ReceiptByNote, with the price and the cost in currency
  Opening,          ///< opening stock: cost and sale price are the given ones
  Storno,           ///< goods of a turned invoice come back at the cost at which they left
  Issue             ///< only decreases the stock, except of articles without stock (FARASTOC)
};

/// The change of an article by one document line.
struct StockChange {
  QString article;
  Decimal quantity;        ///< received or issued
  Decimal unitCost = {};   ///< lei; of receipts
  Decimal salePrice = {};  ///< lei, without VAT; of receipts
  StockRule rule = StockRule::ReceiptByMargin;
  Decimal vatPercent = {};    ///< of the document; of a storno
  Decimal currencyCost = {};  ///< of one unit; of an import
};

/// Further inputs of the computation.
struct ValuationTerms {
  QString costMethod;  ///< "FIFO", "MP" or ""
  int decimals = 2;    ///< of sale prices
  Decimal rate;        ///< of the article's sale currency on the document's date; 0: none is known
};

/// The figures after the change. With "FIFO" the cost is that of the receipt, otherwise the weighted average.
/// With the average, a new stock of zero results in a cost of 0, but ReceiptByMargin and
/// ReceiptByNote throw ArithmeticError, except for a shortage that leaves no stock: it keeps the cost.
ArticleFigures applied(const ArticleFigures& before, const StockChange& change, const ValuationTerms& terms);

/// The changes of articles by the lines of a document, applied in order. `rates` are those of the sale
/// currencies on the document's date. Issues change only the stock, so that figures changed by others
/// meanwhile are not overwritten. Throws RuleError when an article does not exist.
std::vector<ArticleChange> changesOfArticles(const std::vector<StockChange>& changes,
                                             const ArticleTable& articles, ValuationTerms terms,
                                             const QHash<QString, Decimal>& rates);

/// A line of an issue or receipt that is taken back.
struct StockReturn {
  QString article;
  Decimal quantity;  ///< that the ledger added, or subtracted if negative
  Decimal value;     ///< lei; cost of the issued quantity
};

/// The inverse: the stock without the quantities, of every article. `restoresCost`: with the average, issued
/// goods come back at the value that they left with, and the cost is rounded to 2 decimals. Articles that no
/// longer exist are left out.
std::vector<ArticleChange> changesTakenBack(const std::vector<StockReturn>& lines,
                                            const ArticleTable& articles, bool restoresCost);

}  // namespace velmar
