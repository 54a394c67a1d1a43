#include "stock/Lots.h"

#include <algorithm>

#include "store/Database.h"
#include "store/Records.h"

namespace velmar {

namespace {

constexpr int kQuantityDecimals = 3;

const QString kLotColumns = QStringLiteral(
    "L.ARTID AS ARTID, L.DOCID AS DOCID, L.LINIE AS LINIE, L.CANT AS CANT, L.CANTRAMASA AS CANTRAMASA, "
    "L.COST AS COST, L.PRETFT AS PRETFT");

Lot lotOf(const Row& row) {
  const Decimal quantity = row.decimal("CANT");
  const Decimal cost = row.decimal("COST");
  const auto key = LedgerKey::of(row.text("DOCID"));
  // Goods returned by a customer are valued at their cost, not at their sale price.
  const bool isAtCost = quantity.isNegative() || (key && ledgerKind(key->kind).lotsAtCost);
  return {.article = row.text("ARTID"),
          .document = row.text("DOCID"),
          .line = row.integer("LINIE"),
          .size = quantity.abs(),
          .rest = row.decimal("CANTRAMASA"),
          .unit = isAtCost ? cost : row.decimal("PRETFT"),
          .cost = cost};
}

std::vector<Lot> lotsOf(const std::vector<Row>& rows) {
  std::vector<Lot> lots;
  lots.reserve(rows.size());
  for (const Row& row : rows) lots.push_back(lotOf(row));
  return lots;
}

bool isOf(const QString& article, const QString& other) {
  return article.compare(other, Qt::CaseInsensitive) == 0;
}

bool hasLinks(const LedgerKey& issue) {
  return !OpenRs("SELECT ID_E FROM G_I_E WHERE ID_E = ? AND (TIP_E = ? OR TIP_E IS NULL) LIMIT 1",
                 {issue.number, issue.prefix()})
              .isEmpty();
}

}  // namespace

QString makesLot(const QString& row) {
  return QStringLiteral(
             "((SUBSTR(%3.DOCID, 1, 2) IN (%1) AND %3.CANT > 0) OR (SUBSTR(%3.DOCID, 1, 2) IN (%2) AND "
             "%3.CANT < 0 AND %3.CANTRAMASA IS NOT NULL))")
      .arg(prefixesOf(&LedgerKind::receives), prefixesOf(&LedgerKind::takesBack), row);
}

QString addedToLots() {
  return QStringLiteral(
             "CASE WHEN L.CANT < 0 AND (D.TIP = 'FI' OR D.TIP = 'FF' AND NOT EXISTS (SELECT R.DOCID FROM "
             "G_LDOCUM R WHERE R.DOCID = TRIM(D.OBS) AND R.ARTID = L.ARTID AND %1)) THEN 0 "
             "WHEN D.TIPIE IN ('I', 'S') THEN L.CANT ELSE -L.CANT END")
      .arg(makesLot(QStringLiteral("R")));
}

OpenLots::OpenLots(const std::vector<Lot>& lots) {
  for (const Lot& lot : lots) lots_[lot.article.toUpper()].push_back(lot);
}

OpenLots OpenLots::read(const QStringList& articles) {
  return OpenLots(
      lotsOf(rowsOfKeys(QStringLiteral("SELECT %2 FROM G_LDOCUM L INNER JOIN G_DOCUME D ON D.ID = L.DOCID "
                                       "WHERE L.ARTID IN (%1) AND L.CANTRAMASA > 0 AND %3 "
                                       "ORDER BY D.DATADOC NULLS FIRST, L.DATA NULLS FIRST, L.DOCID, L.LINIE")
                            .arg(QStringLiteral("%1"), kLotColumns, makesLot()),
                        articles)));
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

std::vector<Lot> lotsOfReceipt(const QString& key, const QStringList& articles) {
  return lotsOf(rowsOfKeys(QStringLiteral("SELECT %2 FROM G_LDOCUM L WHERE L.ARTID IN (%1) AND L.DOCID = ? "
                                          "AND %3 ORDER BY L.LINIE")
                               .arg(QStringLiteral("%1"), kLotColumns, makesLot()),
                           articles, {key.trimmed()}));
}

std::vector<LotTake> CautaFF(const std::vector<Lot>& receipt, const QHash<QString, Decimal>& quantities) {
  QHash<QString, Decimal> open;  // by code in upper case
  for (auto entry = quantities.begin(); entry != quantities.end(); ++entry)
    open.insert(entry.key().toUpper(), Round(entry.value(), kQuantityDecimals));
  std::vector<LotTake> takes;
  for (const Lot& lot : receipt) {
    Decimal& wanted = open[lot.article.toUpper()];
    const Decimal taken = lot.rest < wanted ? lot.rest : wanted;
    if (taken <= 0) continue;
    wanted = wanted - taken;
    takes.push_back({lot.article, lot.document, lot.line, taken, Round(lot.rest - taken, kQuantityDecimals)});
  }
  return takes;
}

void writeRests(const std::vector<LotTake>& takes) {
  std::vector<Values> rests;
  for (const LotTake& take : takes) rests.push_back({take.rest, take.document, take.line});
  database().executeEach("UPDATE G_LDOCUM SET CANTRAMASA = ? WHERE DOCID = ? AND LINIE = ?", rests);
}

void pAddDOCI(const LedgerKey& issue, const std::vector<LotTake>& takes) {
  if (takes.empty()) return;
  // One row for each document, even if it has the article on several lines.
  std::vector<LotTake> byDocument;
  for (const LotTake& take : takes) {
    const auto same = std::find_if(byDocument.begin(), byDocument.end(), [&take](const LotTake& other) {
      return other.document == take.document && isOf(other.article, take.article);
    });
    if (same == byDocument.end())
      byDocument.push_back(take);
    else
      same->taken += take.taken;
  }
  std::vector<Values> keys;
  std::vector<Values> links;
  for (const LotTake& take : byDocument) {
    keys.push_back({issue.number, take.article, take.document, issue.prefix()});
    links.push_back({issue.number, issue.prefix(), take.document, take.article, take.taken});
  }
  if (hasLinks(issue))
    database().executeEach(
        "DELETE FROM G_I_E WHERE ID_E = ? AND CODART = ? AND ID_I = ? AND (TIP_E = ? OR TIP_E IS NULL)",
        keys);
  database().insertRows("G_I_E", {"ID_E", "TIP_E", "ID_I", "CODART", "CANT"}, links);
}

void pStergDOCI(const LedgerKey& issue, const QString& article) {
  database().execute("DELETE FROM G_I_E WHERE ID_E = ? AND CODART = ? AND (TIP_E = ? OR TIP_E IS NULL)",
                     {issue.number, article, issue.prefix()});
}

std::vector<LotLink> linksOf(const LedgerKey& issue) {
  std::vector<LotLink> links;
  for (const Row& row :
       OpenRs("SELECT ID_I, CODART, CANT FROM G_I_E WHERE ID_E = ? AND (TIP_E = ? OR TIP_E IS NULL) "
              "ORDER BY ID_I, CODART",
              {issue.number, issue.prefix()}))
    links.push_back({row.text("ID_I"), row.text("CODART"), row.decimal("CANT")});
  return links;
}

std::vector<Lot> linkedLots(const std::vector<LotLink>& links) {
  QStringList receipts;
  for (const LotLink& link : links) receipts.append(link.document);
  receipts.removeDuplicates();
  auto rows = rowsOfKeys(QStringLiteral("SELECT %2, L.DATA AS MOMENT FROM G_LDOCUM L WHERE L.DOCID IN (%1) "
                                        "AND %3 ORDER BY L.DATA DESC NULLS LAST, L.DOCID DESC, L.LINIE DESC")
                             .arg(QStringLiteral("%1"), kLotColumns, makesLot()),
                         receipts);
  return lotsOf(rows);
}

std::vector<LotTake> givenBack(const std::vector<Lot>& lots, const std::vector<LotLink>& links) {
  std::vector<LotTake> changes;
  std::vector<LotLink> open = links;
  for (const Lot& lot : lots)
    for (LotLink& link : open) {
      if (link.document != lot.document || !isOf(link.article, lot.article)) continue;
      const Decimal used = lot.size - lot.rest;
      const Decimal back = link.quantity < used ? link.quantity : used;
      if (back <= 0) continue;
      link.quantity = Round(link.quantity - back, kQuantityDecimals);
      changes.push_back(
          {lot.article, lot.document, lot.line, back, Round(lot.rest + back, kQuantityDecimals)});
    }
  return changes;
}

}  // namespace velmar
