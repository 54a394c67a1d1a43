#include "stock/Ledger.h"

#include <QHash>

#include "config/Lookups.h"
#include "config/Session.h"
#include "store/Database.h"
#include "store/Records.h"
#include "util/Errors.h"

namespace velmar {

namespace {

constexpr int kMarginVat = 19;  // the voucher's prices use this rate, not the article's
constexpr int kQuantityDecimals = 3;
const QStringList kFigureColumns{"STOC", "COST", "ADAOS", "PRETVFT", "PRETVTTI", "PRETDEVIZAVANZ"};

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

ArticleFigures issued(ArticleFigures figures, const StockChange& change) {
  if (!figures.FARASTOC) figures.STOC = Round(figures.STOC - change.quantity, kQuantityDecimals);
  return figures;
}

QHash<QString, ArticleFigures> readFigures(const QStringList& codes) {
  QHash<QString, ArticleFigures> found;
  const auto rows = rowsOfKeys(QStringLiteral("SELECT CODART, FARASTOC, COTATVA, CODDEVIZAVANZ, %1 "
                                              "FROM G_ARTMAG WHERE CODART IN (%2) ORDER BY CODART")
                                   .arg(kFigureColumns.join(QStringLiteral(", ")), QStringLiteral("%1")),
                               codes);
  for (const Row& row : rows)
    found.insert(row.text("CODART").toUpper(),
                 {row.decimal("STOC"), row.decimal("COST"), row.decimal("ADAOS"), row.decimal("PRETVFT"),
                  row.decimal("PRETVTTI"), row.decimal("PRETDEVIZAVANZ"), row.flag("FARASTOC"),
                  row.decimal("COTATVA"), row.text("CODDEVIZAVANZ")});
  return found;
}

void writeFigures(const QStringList& codes, const QHash<QString, ArticleFigures>& figures) {
  std::vector<Values> rows;
  rows.reserve(static_cast<size_t>(codes.size()));
  for (const QString& code : codes) {
    const ArticleFigures& f = figures[code];
    rows.push_back({f.STOC, f.COST, f.ADAOS, f.PRETVFT, f.PRETVTTI, f.PRETDEVIZAVANZ, code});
  }
  database().executeEach(QStringLiteral("UPDATE G_ARTMAG SET %1 = ? WHERE CODART = ?")
                             .arg(kFigureColumns.join(QStringLiteral(" = ?, "))),
                         rows);
}

// Issues change only the stock, and only this column is written, so that other changes are not overwritten.
void writeStocks(const QStringList& codes, const QHash<QString, ArticleFigures>& figures) {
  std::vector<Values> rows;
  for (const QString& code : codes)
    if (!figures[code].FARASTOC) rows.push_back({figures[code].STOC, code});
  database().executeEach("UPDATE G_ARTMAG SET STOC = ? WHERE CODART = ?", rows);
}

// Exchange rates of one day, each read once.
class RatesOfDay {
 public:
  explicit RatesOfDay(const QDate& day) : day_(day) {}
  Decimal of(const QString& currency) {
    if (currency.trimmed().isEmpty()) return 0;
    if (!rates_.contains(currency)) rates_.insert(currency, Curs(currency, day_));
    return rates_.value(currency);
  }

 private:
  QDate day_;
  QHash<QString, Decimal> rates_;
};

}  // namespace

void writeLedger(const LedgerDocument& document, const QDateTime& moment) {
  if (!database().query("SELECT ID FROM G_DOCUME WHERE ID = ?", {document.key}).isEmpty())
    throw RuleError(QStringLiteral("Mai exista factura: ") + document.key, {}, 0,
                    QStringLiteral("Eroare..."));
  QStringList columns{"ID", "TIP", "TIPIE", "DATAINTROD", "TIMP", "UTILIZATOR", "CODMAG"};
  Values values{document.key,      document.tip,  document.tipie.isEmpty() ? Value() : Value(document.tipie),
                moment.date(),     moment.time(), session().gUtilizator,
                document.warehouse};
  for (const auto& [column, value] : document.header) {
    columns.append(column);
    values.push_back(value);
  }
  database().insertRows("G_DOCUME", columns, {values});

  std::vector<Values> rows;
  rows.reserve(document.lines.size());
  int line = 0;
  for (const Values& cells : document.lines) {
    Values row{document.key, ++line, moment, document.warehouse};
    row.insert(row.end(), cells.begin(), cells.end());
    rows.push_back(std::move(row));
  }
  database().insertRows("G_LDOCUM", QStringList{"DOCID", "LINIE", "DATA", "CODMAG"} + document.lineColumns,
                        rows);
}

ArticleFigures applied(const ArticleFigures& before, const StockChange& change, const ValuationTerms& terms) {
  switch (change.rule) {
    case StockRule::ReceiptByMargin:
      return receivedByMargin(before, change, terms);
    case StockRule::ReceiptByPrice:
      return receivedByPrice(before, change, terms);
    case StockRule::Issue:
      return issued(before, change);
  }
  return before;
}

void updateArticles(const std::vector<StockChange>& changes, const QDate& date) {
  QStringList codes;
  for (const StockChange& change : changes) codes.append(change.article.toUpper());
  codes.removeDuplicates();
  QHash<QString, ArticleFigures> figures = readFigures(codes);
  RatesOfDay rates(date);
  ValuationTerms terms{TIPCOST(), session().NrZec, 0};
  bool onlyIssues = true;
  for (const StockChange& change : changes) {
    const auto found = figures.find(change.article.toUpper());
    if (found == figures.end())
      throw RuleError(QStringLiteral("Articolul cu codul intern %1 nu exista ").arg(change.article));
    if (change.rule == StockRule::ReceiptByPrice) terms.rate = rates.of(found->CODDEVIZAVANZ);
    onlyIssues = onlyIssues && change.rule == StockRule::Issue;
    *found = applied(*found, change, terms);
  }
  onlyIssues ? writeStocks(codes, figures) : writeFigures(codes, figures);
}

QString TIPCOST() {
  const Recordset found = OpenRs("SELECT TCOST FROM kt_info");
  return found.isEmpty() ? QString() : found.first().text("TCOST").trimmed();
}

}  // namespace velmar
