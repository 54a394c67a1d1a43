#include "stock/Ledger.h"

#include <QHash>

#include "config/Session.h"
#include "store/Database.h"
#include "util/Errors.h"

namespace velmar {

namespace {

constexpr int kMarginVat = 19;  // the voucher's prices keep this rate, whatever the article's
const QStringList kFigureColumns{"STOC", "COST", "ADAOS", "PRETVFT", "PRETVTTI"};

QString marks(int count) { return QStringList(count, QStringLiteral("?")).join(QStringLiteral(", ")); }

ArticleFigures receivedByMargin(ArticleFigures figures, const StockChange& change, bool fifo) {
  const Decimal newStock = change.quantity + figures.STOC;
  const Decimal newCost =
      fifo ? change.unitCost : (figures.COST * figures.STOC + change.quantity * change.unitCost) / newStock;
  figures.ADAOS = (change.salePrice - change.unitCost) / change.unitCost * 100;
  const Decimal price = newCost * (1 + figures.ADAOS / 100);
  figures.PRETVFT = Round(price, 0);
  figures.PRETVTTI = Round(price * (1 + Decimal(kMarginVat) / 100), 0);
  figures.COST = newCost;
  figures.STOC = newStock;
  return figures;
}

QHash<QString, ArticleFigures> readFigures(const QStringList& codes) {
  constexpr int kMost = 500;
  QHash<QString, ArticleFigures> found;
  for (int from = 0; from < codes.size(); from += kMost) {
    const QStringList part = codes.mid(from, kMost);
    Values values;
    for (const QString& code : part) values.emplace_back(code);
    const QString sql =
        QStringLiteral("SELECT CODART, %1 FROM G_ARTMAG WHERE CODART IN (%2) ORDER BY CODART")
            .arg(kFigureColumns.join(QStringLiteral(", ")), marks(static_cast<int>(part.size())));
    for (const Row& row : database().query(sql, values))
      found.insert(row.text("CODART").toUpper(),
                   {row.decimal("STOC"), row.decimal("COST"), row.decimal("ADAOS"), row.decimal("PRETVFT"),
                    row.decimal("PRETVTTI")});
  }
  return found;
}

void writeFigures(const QStringList& codes, const QHash<QString, ArticleFigures>& figures) {
  std::vector<Values> rows;
  rows.reserve(static_cast<size_t>(codes.size()));
  for (const QString& code : codes) {
    const ArticleFigures& f = figures[code];
    rows.push_back({f.STOC, f.COST, f.ADAOS, f.PRETVFT, f.PRETVTTI, code});
  }
  database().executeEach(QStringLiteral("UPDATE G_ARTMAG SET %1 = ? WHERE CODART = ?")
                             .arg(kFigureColumns.join(QStringLiteral(" = ?, "))),
                         rows);
}

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

ArticleFigures applied(const ArticleFigures& before, const StockChange& change, const QString& costMethod) {
  switch (change.rule) {
    case StockRule::ReceiptByMargin:
      return receivedByMargin(before, change, costMethod == QStringLiteral("FIFO"));
  }
  return before;
}

void updateArticles(const std::vector<StockChange>& changes) {
  QStringList codes;
  for (const StockChange& change : changes) codes.append(change.article.toUpper());
  codes.removeDuplicates();
  QHash<QString, ArticleFigures> figures = readFigures(codes);
  const QString method = TIPCOST();
  for (const StockChange& change : changes) {
    const auto found = figures.find(change.article.toUpper());
    if (found == figures.end())
      throw RuleError(QStringLiteral("Articolul cu codul intern %1 nu exista ").arg(change.article));
    *found = applied(*found, change, method);
  }
  writeFigures(codes, figures);
}

QString TIPCOST() {
  const Recordset found = OpenRs("SELECT TCOST FROM kt_info");
  return found.isEmpty() ? QString() : found.first().text("TCOST").trimmed();
}

}  // namespace velmar
