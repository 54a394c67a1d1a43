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

  void add(const std::vector<std::pair<QString, Value>>& columns) {
    header.insert(header.end(), columns.begin(), columns.end());
  }
};

/// Writes the document and its lines, numbered from 1, stamped with user and moment (the moment of
/// validation, whatever the document's date). Throws RuleError when the ledger has the key already.
void writeLedger(const LedgerDocument& document, const QDateTime& moment);

/// How a stock change touches an article's stock, cost and sale prices.
enum class StockRule {
  ReceiptByMargin,  ///< input voucher: the sale price follows the new cost through the mark-up
  ReceiptByPrice,   ///< supplier invoice: the sale price is given and the mark-up follows; also a return
  Issue             ///< only stock goes down, that of an article without stock not
};

/// The change that one line makes to its article.
struct StockChange {
  QString article;
  Decimal quantity;        ///< received or issued
  Decimal unitCost = {};   ///< lei; of receipts
  Decimal salePrice = {};  ///< lei, without VAT; of receipts
  StockRule rule = StockRule::ReceiptByMargin;
};

/// Running figures of an article, as G_ARTMAG keeps them. Cost and mark-up are not rounded but where a rule
/// says so.
struct ArticleFigures {
  Decimal STOC;
  Decimal COST;
  Decimal ADAOS;  ///< percent
  Decimal PRETVFT;
  Decimal PRETVTTI;
  Decimal PRETDEVIZAVANZ;  ///< in the article's own currency
  bool FARASTOC = false;   ///< read only, as all below
  Decimal COTATVA;         ///< percent
  QString CODDEVIZAVANZ;
};

/// What the figures depend on besides the change.
struct ValuationTerms {
  QString costMethod;  ///< "FIFO", "MP" or ""
  int decimals = 2;    ///< of sale prices
  Decimal rate;        ///< of the article's sale currency on the document's date; 0: none is known
};

/// The figures after the change. Under "FIFO" the cost is the receipt's, else the weighted average. A zero
/// new stock under the average gives a cost of 0, but for ReceiptByMargin throws ArithmeticError.
ArticleFigures applied(const ArticleFigures& before, const StockChange& change, const ValuationTerms& terms);

/// Applies the changes of a document of that date in their order and writes the articles. Throws RuleError
/// when an article does not exist.
void updateArticles(const std::vector<StockChange>& changes, const QDate& date);

inline const QString kFifo = QStringLiteral("FIFO");  ///< the cost method that values stock by lots

/// The cost method, read afresh from kt_info: "FIFO", "MP" or "".
QString TIPCOST();

}  // namespace velmar
