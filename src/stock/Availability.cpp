#include "stock/Availability.h"

#include "store/Database.h"
#include "store/Records.h"

namespace velmar {

namespace {

constexpr int kQuantityDecimals = 3;

// The sums of CANT by CODART.
Quantities addedUp(const std::vector<Row>& rows) {
  Quantities result;
  for (const Row& row : rows) result.add(row.text("CODART"), Round(row.decimal("CANT"), kQuantityDecimals));
  return result;
}

std::optional<Shortage> shortageIn(const Quantities& stock, const QStringList& articles,
                                   const Quantities& wanted, const Quantities& ownOrders) {
  const Quantities ordered = openOrders(articles);
  for (const QString& article : articles) {
    const Decimal available = stock.of(article) - (ordered.of(article) - ownOrders.of(article)).abs();
    if (available < wanted.of(article)) return Shortage{article, available};
  }
  return std::nullopt;
}

}  // namespace

Quantities warehouseStock(const QStringList& articles, qint64 warehouse) {
  return addedUp(
      rowsOfKeys("SELECT B.ARTID AS CODART, B.CANT AS CANT FROM G_STOCMAG B "
                 "WHERE B.ARTID IN (%1) AND B.CODMAG = ?",
                 articles, {warehouse}));
}

Quantities warehouseStockOn(const QDate& date, const QStringList& articles, qint64 warehouse) {
  Quantities stock = warehouseStock(articles, warehouse);
  // What came or left later, which does not depend on the length of the history.
  const std::vector<Row> later = rowsOfKeys(
      "SELECT L.ARTID AS CODART, SUM(CASE WHEN D.TIPIE = 'E' THEN -L.CANT ELSE L.CANT END) AS CANT FROM "
      "G_DOCUME D INNER JOIN G_LDOCUM L ON L.DOCID = D.ID WHERE L.ARTID IN (%1) AND D.DATADOC > ? AND "
      "L.CODMAG = ? AND D.TIPIE IN ('I', 'S', 'E') GROUP BY L.ARTID",
      articles, {date, warehouse});
  const Quantities movements = addedUp(later);
  for (const QString& article : articles)
    if (const Decimal received = movements.of(article); received > 0) stock.add(article, -received);
  return stock;
}

Quantities openOrders(const QStringList& articles) {
  return addedUp(
      rowsOfKeys("SELECT L.CODART AS CODART, SUM(L.CANT - COALESCE(L.CANTLIV, 0)) AS CANT FROM G_COMCLI C "
                 "INNER JOIN G_LCOMCL L ON C.NUMCOM = L.NUMCOM WHERE L.CODART IN (%1) AND C.VALIDAT = -1 "
                 "GROUP BY L.CODART",
                 articles));
}

Decimal gStocValid(const QString& article) { return openOrders({article}).of(article); }

std::optional<Shortage> firstShortage(const QStringList& articles, const Quantities& wanted, qint64 warehouse,
                                      const Quantities& ownOrders) {
  return shortageIn(warehouseStock(articles, warehouse), articles, wanted, ownOrders);
}

std::optional<Shortage> firstShortageOn(const QDate& date, const QStringList& articles,
                                        const Quantities& wanted, qint64 warehouse) {
  return shortageIn(warehouseStockOn(date, articles, warehouse), articles, wanted, {});
}

Recordset stockByWarehouse(const QString& article) {
  return OpenRs(
      "SELECT M.DENUMIRE AS DENUMIRE, ROUND_EVEN(COALESCE(B.CANT, 0), 3) AS STOC, "
      "ROW_NUMBER() OVER (ORDER BY M.COD) AS CODART FROM G_MULTIMAGAZIE M "
      "LEFT JOIN G_STOCMAG B ON B.CODMAG = M.COD AND B.ARTID = ? ORDER BY M.COD",
      {article});
}

}  // namespace velmar
