#include "stock/Valuation.h"

#include "stock/Ledger.h"

namespace velmar {

namespace {

constexpr int kMarginVat = 19;  // the voucher's prices use this rate, not the article's
constexpr int kQuantityDecimals = 3;
constexpr int kRestoredCostDecimals = 2;

Decimal withPercent(const Decimal& amount, const Decimal& percent) { return amount * (1 + percent / 100); }

Decimal average(const ArticleFigures& figures, const StockChange& change) {
  return (figures.COST * figures.STOC + change.quantity * change.unitCost) / (change.quantity + figures.STOC);
}

ArticleFigures receivedByMargin(ArticleFigures figures, const StockChange& change,
                                const ValuationTerms& terms) {
  const Decimal newCost = terms.costMethod == kFifo ? change.unitCost : average(figures, change);
  figures.ADAOS = (change.salePrice - change.unitCost) / change.unitCost * 100;
  const Decimal price = withPercent(newCost, figures.ADAOS);
  figures.PRETVFT = Round(price, 0);
  figures.PRETVTTI = Round(withPercent(price, kMarginVat), 0);
  figures.COST = newCost;
  figures.STOC += change.quantity;
  return figures;
}

ArticleFigures receivedByPrice(ArticleFigures figures, const StockChange& change,
                               const ValuationTerms& terms) {
  const Decimal newStock = figures.STOC + change.quantity;
  if (terms.costMethod == kFifo)
    figures.COST = change.unitCost;
  else
    figures.COST = newStock.isZero() ? Decimal(0) : average(figures, change);
  if (!figures.FARASTOC) figures.STOC = newStock;
  figures.PRETVFT = Round(change.salePrice, terms.decimals);
  figures.PRETVTTI = Round(withPercent(change.salePrice, figures.COTATVA), terms.decimals);
  if (figures.COST > 0)
    figures.ADAOS = Round(100 * (figures.PRETVFT - figures.COST) / figures.COST, terms.decimals);
  if (terms.rate > 0)
    figures.PRETDEVIZAVANZ = Round(withPercent(figures.COST, figures.ADAOS) / terms.rate, terms.decimals);
  return figures;
}

ArticleFigures receivedByNote(ArticleFigures figures, const StockChange& change,
                              const ValuationTerms& terms) {
  const bool leavesNone = change.quantity.isNegative() && (figures.STOC + change.quantity).isZero();
  if (terms.costMethod == kFifo)
    figures.COST = change.unitCost;
  else if (!leavesNone)
    figures.COST = average(figures, change);
  figures.STOC += change.quantity;
  figures.PRETVFT = Round(change.salePrice, terms.decimals);
  figures.PRETVTTI = Round(withPercent(change.salePrice, figures.COTATVA), terms.decimals);
  figures.ADAOS = Round(100 * (figures.PRETVFT - figures.COST) / figures.COST, terms.decimals);
  return figures;
}

ArticleFigures imported(const ArticleFigures& before, const StockChange& change,
                        const ValuationTerms& terms) {
  ArticleFigures figures = receivedByNote(before, change, terms);
  figures.COSTDEV = change.currencyCost;
  if (terms.rate > 0)
    figures.PRETDEVIZAVANZ = Round(withPercent(figures.COST, figures.ADAOS) / terms.rate, terms.decimals);
  return figures;
}

ArticleFigures opened(ArticleFigures figures, const StockChange& change) {
  figures.STOC += change.quantity;
  figures.COST = change.unitCost;
  figures.PRETVFT = change.salePrice;
  return figures;
}

ArticleFigures cameBack(ArticleFigures figures, const StockChange& change, const ValuationTerms& terms) {
  if (figures.FARASTOC) return figures;
  if (terms.costMethod != kFifo && !(figures.STOC + change.quantity).isZero()) {
    figures.COST = average(figures, change);
    const Decimal price = withPercent(figures.COST, figures.ADAOS);
    figures.PRETVFT = Round(price, 0);
    figures.PRETVTTI = Round(withPercent(price, change.vatPercent), 0);
  }
  figures.STOC = Round(figures.STOC + change.quantity, kQuantityDecimals);
  return figures;
}

ArticleFigures issued(ArticleFigures figures, const StockChange& change) {
  if (!figures.FARASTOC) figures.STOC = Round(figures.STOC - change.quantity, kQuantityDecimals);
  return figures;
}

// The codes of the changed articles, each once, in the order of the changes.
template <typename Change>
QStringList codesOf(const std::vector<Change>& changes) {
  QStringList codes;
  for (const Change& change : changes) codes.append(change.article.toUpper());
  codes.removeDuplicates();
  return codes;
}

}  // namespace

ArticleFigures applied(const ArticleFigures& before, const StockChange& change, const ValuationTerms& terms) {
  switch (change.rule) {
    case StockRule::ReceiptByMargin:
      return receivedByMargin(before, change, terms);
    case StockRule::ReceiptByPrice:
      return receivedByPrice(before, change, terms);
    case StockRule::ReceiptByNote:
      return receivedByNote(before, change, terms);
    case StockRule::ReceiptByImport:
      return imported(before, change, terms);
    case StockRule::Opening:
      return opened(before, change);
    case StockRule::Storno:
      return cameBack(before, change, terms);
    case StockRule::Issue:
      return issued(before, change);
  }
  return before;
}

std::vector<ArticleChange> changesOfArticles(const std::vector<StockChange>& changes,
                                             const ArticleTable& articles, ValuationTerms terms,
                                             const QHash<QString, Decimal>& rates) {
  QHash<QString, ArticleFigures> figures;  // by code in upper case
  bool onlyIssues = true;
  for (const StockChange& change : changes) {
    const ArticleFigures& before = articles.of(change.article).figures;
    auto found = figures.find(change.article.toUpper());
    if (found == figures.end()) found = figures.insert(change.article.toUpper(), before);
    const bool hasRate =
        change.rule == StockRule::ReceiptByPrice || change.rule == StockRule::ReceiptByImport;
    terms.rate = hasRate ? rates.value(before.CODDEVIZAVANZ) : Decimal(0);
    onlyIssues = onlyIssues && change.rule == StockRule::Issue;
    *found = applied(*found, change, terms);
  }
  std::vector<ArticleChange> written;
  for (const QString& code : codesOf(changes)) {
    const ArticleFigures& f = figures[code];
    if (onlyIssues) {
      if (!f.FARASTOC) written.push_back({.code = code, .STOC = f.STOC});
    } else {
      written.push_back({code, f.STOC, f.COST, f.ADAOS, f.PRETVFT, f.PRETVTTI, f.PRETDEVIZAVANZ, f.COSTDEV});
    }
  }
  return written;
}

std::vector<ArticleChange> changesTakenBack(const std::vector<StockReturn>& lines,
                                            const ArticleTable& articles, bool restoresCost) {
  QHash<QString, ArticleFigures> figures;  // by code in upper case
  for (const StockReturn& line : lines) {
    const ArticleFacts* article = articles.find(line.article);
    if (!article) continue;
    auto found = figures.find(line.article.toUpper());
    if (found == figures.end()) found = figures.insert(line.article.toUpper(), article->figures);
    found->STOC = Round(found->STOC - line.quantity, kQuantityDecimals);
  }
  for (const StockReturn& line : lines) {
    const auto found = figures.find(line.article.toUpper());
    if (!restoresCost || found == figures.end()) continue;
    // The stock already has the returned quantity; it counts once more in the average.
    const Decimal divisor = found->STOC - line.quantity;
    if (!divisor.isZero())
      found->COST = Round((found->COST * found->STOC + line.value) / divisor, kRestoredCostDecimals);
  }
  std::vector<ArticleChange> written;
  for (const QString& code : codesOf(lines)) {
    const auto found = figures.constFind(code);
    if (found == figures.constEnd()) continue;
    ArticleChange change{.code = code, .STOC = found->STOC};
    if (restoresCost) change.COST = found->COST;
    written.push_back(std::move(change));
  }
  return written;
}

}  // namespace velmar
