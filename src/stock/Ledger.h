// The common ledger of validated documents: one row a document, one a line.
#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include "store/Row.h"

namespace velmar {

/// One document of the ledger with its lines, as the rules of its kind fill it.
struct LedgerDocument {
  QString key;    ///< prefix and number; a transfer adds its side
  QString tip;    ///< prefix
  QString tipie;  ///< "I", "S", "E", or empty for no stock effect
  qint64 warehouse = 0;
  std::vector<std::pair<QString, Value>> header;  ///< columns of G_DOCUME that the kind fills besides
  QStringList lineColumns;                        ///< columns of G_LDOCUM that the kind fills besides
  std::vector<Values> lines;  ///< a value for each of lineColumns, in the document's order
};

/// Writes the document and its lines, numbered from 1, stamped with user and moment (the moment of
/// validation, whatever the document's date). Throws RuleError when the ledger has the key already.
void writeLedger(const LedgerDocument& document, const QDateTime& moment);

/// How a stock change touches an article's cost and sale prices.
enum class StockRule {
  ReceiptByMargin  ///< input voucher: the sale price follows the new cost through the mark-up
};

/// The change that one line makes to its article.
struct StockChange {
  QString article;
  Decimal quantity;   ///< added to the stock
  Decimal unitCost;   ///< lei
  Decimal salePrice;  ///< lei, without VAT
  StockRule rule = StockRule::ReceiptByMargin;
};

/// Running figures of an article, as G_ARTMAG keeps them. Cost and mark-up are not rounded.
struct ArticleFigures {
  Decimal STOC;
  Decimal COST;
  Decimal ADAOS;  ///< percent
  Decimal PRETVFT;
  Decimal PRETVTTI;
};

/// The figures after the change. Under "FIFO" the cost is the receipt's, else the weighted average; a zero
/// new stock under the average throws ArithmeticError.
ArticleFigures applied(const ArticleFigures& before, const StockChange& change, const QString& costMethod);

/// Applies the changes in their order and writes the articles. Throws RuleError when an article does not
/// exist.
void updateArticles(const std::vector<StockChange>& changes);

/// The cost method, read afresh from kt_info: "FIFO", "MP" or "".
QString TIPCOST();

}  // namespace velmar
