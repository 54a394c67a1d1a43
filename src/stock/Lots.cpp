#include "stock/Lots.h"

#include <algorithm>

#include "store/Database.h"
#include "store/Records.h"

namespace velmar {

namespace {

constexpr int kQuantityDecimals = 3;

Lot lotOf(const Row& row) {
  const Decimal cost = row.decimal("COST");
  // Goods returned by a customer are valued at their cost, not at their sale price.
  const bool isBroughtBack = row.decimal("CANT").isNegative() ||
                             row.text("DOCID").startsWith(QStringLiteral("FS"), Qt::CaseInsensitive);
  return {row.text("DOCID"), row.integer("LINIE"), row.decimal("CANTRAMASA"),
          isBroughtBack ? cost : row.decimal("PRETFT"), cost};
}

bool hasLinks(const Issue& issue) {
  return !OpenRs("SELECT ID_E FROM G_I_E WHERE ID_E = ? AND (TIP_E = ? OR TIP_E IS NULL) LIMIT 1",
                 {issue.number, issue.kind})
              .isEmpty();
}

}  // namespace

const QString& makesLot() {
  static const QString condition = QStringLiteral(
      "((SUBSTR(L.DOCID, 1, 2) IN ('FF', 'BI', 'FI', 'FS', 'NR') AND L.CANT > 0) "
      "OR (SUBSTR(L.DOCID, 1, 2) = 'FC' AND L.CANT < 0))");
  return condition;
}

OpenLots::OpenLots(const QStringList& articles) {
  const auto rows = rowsOfKeys(
      QStringLiteral("SELECT L.ARTID AS ARTID, L.DOCID AS DOCID, L.LINIE AS LINIE, L.CANT AS CANT, "
                     "L.CANTRAMASA AS CANTRAMASA, L.COST AS COST, L.PRETFT AS PRETFT "
                     "FROM G_LDOCUM L INNER JOIN G_DOCUME D ON D.ID = L.DOCID "
                     "WHERE L.ARTID IN (%1) AND L.CANTRAMASA > 0 AND ") +
          makesLot() +
          QStringLiteral(" ORDER BY D.DATADOC NULLS FIRST, L.DATA NULLS FIRST, L.DOCID, L.LINIE"),
      articles);
  for (const Row& row : rows) lots_[row.text("ARTID").toUpper()].push_back(lotOf(row));
}

Consumption OpenLots::costFIFO(const QString& article, const Decimal& quantity, CostFollows follows) {
  Consumption result;
  result.missing = Round(quantity, kQuantityDecimals);
  const auto found = lots_.find(article.toUpper());
  if (found == lots_.end()) return result;
  for (Lot& lot : *found) {
    if (result.missing <= 0) break;
    if (lot.rest <= 0) continue;
    const bool isUsedUp = lot.rest <= result.missing;
    const Decimal taken = isUsedUp ? lot.rest : result.missing;
    result.value += taken * lot.unit;
    lot.rest = Round(lot.rest - taken, kQuantityDecimals);
    result.missing = Round(result.missing - taken, kQuantityDecimals);
    if (!isUsedUp || follows == CostFollows::LastLot) result.articleCost = lot.cost;
    result.takes.push_back({article, lot.document, lot.line, taken, lot.rest});
  }
  return result;
}

void writeConsumption(const Issue& issue, const std::vector<Consumption>& consumptions) {
  std::vector<LotTake> takes;
  std::vector<Values> rests;
  std::vector<Values> costs;
  for (const Consumption& consumption : consumptions) {
    for (const LotTake& take : consumption.takes) {
      takes.push_back(take);
      rests.push_back({take.rest, take.document, take.line});
    }
    if (consumption.articleCost)
      costs.push_back({*consumption.articleCost, consumption.takes.front().article});
  }
  database().executeEach("UPDATE G_LDOCUM SET CANTRAMASA = ? WHERE DOCID = ? AND LINIE = ?", rests);
  pAddDOCI(issue, takes);
  database().executeEach("UPDATE G_ARTMAG SET COST = ? WHERE CODART = ?", costs);
}

void pAddDOCI(const Issue& issue, const std::vector<LotTake>& takes) {
  // One row for each document, even if it has the article on several lines.
  std::vector<LotTake> byDocument;
  for (const LotTake& take : takes) {
    const auto same = std::find_if(byDocument.begin(), byDocument.end(), [&take](const LotTake& other) {
      return other.document == take.document && other.article.compare(take.article, Qt::CaseInsensitive) == 0;
    });
    if (same == byDocument.end())
      byDocument.push_back(take);
    else
      same->taken += take.taken;
  }
  std::vector<Values> keys;
  std::vector<Values> links;
  for (const LotTake& take : byDocument) {
    keys.push_back({issue.number, take.article, take.document, issue.kind});
    links.push_back({issue.number, issue.kind, take.document, take.article, take.taken});
  }
  if (hasLinks(issue))
    database().executeEach(
        "DELETE FROM G_I_E WHERE ID_E = ? AND CODART = ? AND ID_I = ? AND (TIP_E = ? OR TIP_E IS NULL)",
        keys);
  database().insertRows("G_I_E", {"ID_E", "TIP_E", "ID_I", "CODART", "CANT"}, links);
}

void pStergDOCI(const Issue& issue, const QString& article) {
  database().execute("DELETE FROM G_I_E WHERE ID_E = ? AND CODART = ? AND (TIP_E = ? OR TIP_E IS NULL)",
                     {issue.number, article, issue.kind});
}

namespace {

// The lots of a receipt for these articles, including used up ones, ordered by line.
std::vector<Row> lotsOfReceipt(const QString& key, const QStringList& articles) {
  return rowsOfKeys(QStringLiteral("SELECT L.ARTID AS ARTID, L.LINIE AS LINIE, L.CANTRAMASA AS CANTRAMASA "
                                   "FROM G_LDOCUM L WHERE L.ARTID IN (%1) AND L.DOCID = ? AND ") +
                        makesLot() + QStringLiteral(" ORDER BY L.LINIE"),
                    articles, {key.trimmed()});
}

}  // namespace

QHash<QString, Decimal> receiptRests(const QString& key, const QStringList& articles) {
  QHash<QString, Decimal> rests;
  for (const Row& lot : lotsOfReceipt(key, articles))
    rests[lot.text("ARTID").toUpper()] += lot.decimal("CANTRAMASA");
  return rests;
}

void CautaFF(const QString& key, const QHash<QString, Decimal>& quantities) {
  QHash<QString, Decimal> open;  // key: code in upper case
  for (auto entry = quantities.begin(); entry != quantities.end(); ++entry)
    open.insert(entry.key().toUpper(), Round(entry.value(), kQuantityDecimals));
  std::vector<Values> rests;
  for (const Row& lot : lotsOfReceipt(key, quantities.keys())) {
    Decimal& wanted = open[lot.text("ARTID").toUpper()];
    const Decimal rest = lot.decimal("CANTRAMASA");
    const Decimal taken = rest < wanted ? rest : wanted;
    if (taken <= 0) continue;
    wanted = wanted - taken;
    rests.push_back({Round(rest - taken, kQuantityDecimals), key.trimmed(), lot.integer("LINIE")});
  }
  database().executeEach("UPDATE G_LDOCUM SET CANTRAMASA = ? WHERE DOCID = ? AND LINIE = ?", rests);
}

}  // namespace velmar
