// The common ledger of validated documents: one row for each document and one for each of its lines.
#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include "store/Row.h"

namespace velmar {

/// One document of the ledger with its lines, filled by the rules of its kind.
struct LedgerDocument {
  QString key;    ///< prefix and number; a transfer also has its side
  QString tip;    ///< prefix
  QString tipie;  ///< "I", "S", "E", or empty for no stock effect
  qint64 warehouse = 0;
  std::vector<std::pair<QString, Value>> header;  ///< further columns of G_DOCUME that the kind fills
  QStringList lineColumns;                        ///< further columns of G_LDOCUM that the kind fills
  std::vector<Values> lines;  ///< a value for each of lineColumns, in the document's order

  void add(const std::vector<std::pair<QString, Value>>& columns) {
    header.insert(header.end(), columns.begin(), columns.end());
  }
};

/// Writes the document and its lines, numbered from 1, with the user and the time of validation, which is
/// independent of the document's date. Throws RuleError if the key is already in the ledger.
void writeLedger(const LedgerDocument& document, const QDateTime& moment);

/// How a stock change affects an article's stock, cost and sale prices.
enum class StockRule {
  ReceiptByMargin,  ///< input voucher: the sale price is computed from the new cost and the mark-up
  ReceiptByPrice,   ///< supplier invoice: the sale price is given and the mark-up is computed; also a return
  Issue             ///< only decreases the stock, except of articles without stock (FARASTOC)
};

/// The change of an article by one document line.
struct StockChange {
  QString article;
  Decimal quantity;        ///< received or issued
  Decimal unitCost = {};   ///< lei; of receipts
  Decimal salePrice = {};  ///< lei, without VAT; of receipts
  StockRule rule = StockRule::ReceiptByMargin;
};

/// Current figures of an article, stored in G_ARTMAG. Cost and mark-up are rounded only where a rule requires
/// it.
struct ArticleFigures {
  Decimal STOC;
  Decimal COST;
  Decimal ADAOS;  ///< percent
  Decimal PRETVFT;
  Decimal PRETVTTI;
  Decimal PRETDEVIZAVANZ;  ///< in the article's own currency
  bool FARASTOC = false;   ///< read only, like all below
  Decimal COTATVA;         ///< percent
  QString CODDEVIZAVANZ;
};

/// Further inputs of the computation.
struct ValuationTerms {
  QString costMethod;  ///< "FIFO", "MP" or ""
  int decimals = 2;    ///< of sale prices
  Decimal rate;        ///< of the article's sale currency on the document's date; 0: none is known
};

/// The figures after the change. With "FIFO" the cost is that of the receipt, otherwise the weighted average.
/// With the average, a new stock of zero results in a cost of 0, but ReceiptByMargin throws ArithmeticError.
ArticleFigures applied(const ArticleFigures& before, const StockChange& change, const ValuationTerms& terms);

/// Applies the changes of a document of that date in order and writes the articles. Throws RuleError when an
/// article does not exist.
void updateArticles(const std::vector<StockChange>& changes, const QDate& date);

inline const QString kFifo = QStringLiteral("FIFO");  ///< the cost method that values stock by lots

/// The cost method, always read from kt_info: "FIFO", "MP" or "".
QString TIPCOST();

}  // namespace velmar
