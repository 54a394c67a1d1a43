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

}  // namespace

Quantities warehouseStock(const QStringList& articles, qint64 warehouse) {
  return addedUp(
      rowsOfKeys("SELECT B.ARTID AS CODART, B.CANT AS CANT FROM G_STOCMAG B "
                 "WHERE B.ARTID IN (%1) AND B.CODMAG = ?",
                 articles, {warehouse}));
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
  const Quantities stock = warehouseStock(articles, warehouse);
  const Quantities ordered = openOrders(articles);
  for (const QString& article : articles) {
    const Decimal available = stock.of(article) - (ordered.of(article) - ownOrders.of(article)).abs();
    if (available < wanted.of(article)) return Shortage{article, available};
  }
  return std::nullopt;
}

Recordset stockByWarehouse(const QString& article) {
  return OpenRs(
      "SELECT M.DENUMIRE AS DENUMIRE, ROUND_EVEN(COALESCE(B.CANT, 0), 3) AS STOC, "
      "ROW_NUMBER() OVER (ORDER BY M.COD) AS CODART FROM G_MULTIMAGAZIE M "
      "LEFT JOIN G_STOCMAG B ON B.CODMAG = M.COD AND B.ARTID = ? ORDER BY M.COD",
      {article});
}

}  // namespace velmar
