#include "store/StockBalance.h"

#include "store/Database.h"
#include "store/Engine.h"

namespace velmar {

QString stockOfLedger() {
  return QStringLiteral(
      "SELECT L.ARTID AS ARTID, L.CODMAG AS CODMAG, SUM(CASE D.TIPIE WHEN 'E' THEN -L.CANT ELSE L.CANT END) "
      "AS CANT FROM G_LDOCUM L INNER JOIN G_DOCUME D ON D.ID = L.DOCID WHERE D.TIPIE IN ('I', 'S', 'E') "
      "AND L.ARTID IS NOT NULL AND L.CODMAG IS NOT NULL AND L.CANT IS NOT NULL GROUP BY L.ARTID, L.CODMAG");
}

void refillBalance(Database& database) {
  database.execute("DELETE FROM G_STOCMAG");
  database.execute(QStringLiteral("INSERT INTO G_STOCMAG (ARTID, CODMAG, CANT) "
                                  "SELECT S.ARTID, S.CODMAG, ROUND_EVEN(S.CANT, 6) FROM (%1) S")
                       .arg(stockOfLedger()));
}

void createCompanyTriggers(Engine& engine) {
  for (const StoredStatement& trigger : engine.companyTriggers()) engine.run(trigger.statement);
}

}  // namespace velmar
