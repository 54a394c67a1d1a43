#include "shell/Panel.h"

#include "config/Session.h"
#include "documents/kinds/Kinds.h"
#include "store/Database.h"

namespace velmar {

PanelSales panelSales(const QDate& today) {
  const QDate weekAgo = today.addDays(-7);
  const QDate monthStart(today.year(), today.month(), 1);
  const auto sum = [](const QString& days) {
    return QStringLiteral(
               "ROUND_EVEN(COALESCE(SUM(CASE WHEN %1 THEN CASE WHEN TIP = 'FS' THEN -1 ELSE 1 END * "
               "(ROUND_EVEN(COALESCE(TOTALFT, 0), 2) + ROUND_EVEN(COALESCE(TOTALTVA, 0), 2)) END), 0), 2)")
        .arg(days);
  };
  const Row found =
      OpenRs("SELECT " + sum("DATADOC BETWEEN ? AND ?") + " AS AZI, " + sum("DATADOC >= ?") + " AS LUNA, " +
                 sum("DATADOC BETWEEN ? AND ?") +
                 " AS SAPTE FROM G_DOCUME WHERE TIP IN ('FC', 'BS', 'FS') AND DATADOC BETWEEN ? AND ?",
             {today, endOf(today), monthStart, weekAgo, endOf(weekAgo), std::min(monthStart, weekAgo),
              endOf(today)})
          .first();
  return {found.decimal("AZI"), found.decimal("LUNA"), found.decimal("SAPTE")};
}

Recordset panelDrafts() {
  QStringList counts;
  const auto add = [&counts](const QString& prefix, const QString& window, const QString& headers) {
    counts.append(
        QStringLiteral("SELECT '%1' AS FEL, '%2' AS FEREASTRA, COUNT(*) AS NUMAR FROM %3 WHERE VALIDAT "
                       "= 0")
            .arg(prefix, window, headers));
  };
  for (const DocumentKind& kind : documentKinds())
    if (kind.hasDraft && kind.rules) add(kind.prefix, kind.window, kind.headerTable);
  if (session().ModAudio) {
    add(ledgerKind(KindId::DeviceInvoice).prefix, "frmFacturaAudio", "G_FacturiClientiAudio");
    add(ledgerKind(KindId::RepairVoucher).prefix, "frmGrilaBonReparatie", "G_BonReparatii");
  }
  return OpenRs(
      QStringLiteral("SELECT FEL, FEREASTRA, NUMAR FROM (%1) AS D WHERE NUMAR > 0 ORDER BY FEL, FEREASTRA")
          .arg(counts.join(QStringLiteral(" UNION ALL "))));
}

Recordset panelShortages() {
  return OpenRs(
      "SELECT CODART, DENART, STOC, STOCMINIM FROM G_ARTMAG WHERE STOCMINIM > 0 AND STOC <= STOCMINIM AND "
      "COALESCE(FARASTOC, 0) = 0 ORDER BY DENART NULLS FIRST, CODART");
}

Recordset panelLateOrders(const QDate& today) {
  return OpenRs(
      "SELECT C.NUMCOM AS NUMCOM, T.NUME AS NUME, C.DATALIV AS DATALIV, ROUND_EVEN(SUM((L.CANT - "
      "COALESCE(L.CANTLIV, 0)) "
      "* COALESCE(L.PRETFT, 0)), 2) AS RAMAS FROM G_COMCLI AS C INNER JOIN G_LCOMCL AS L ON L.NUMCOM = "
      "C.NUMCOM LEFT "
      "JOIN kt_ter AS T ON T.COD = C.CODCLI WHERE C.VALIDAT <> 0 AND C.DATALIV < ? AND L.CANT > "
      "COALESCE(L.CANTLIV, 0) "
      "GROUP BY C.NUMCOM, T.NUME, C.DATALIV ORDER BY C.DATALIV, C.NUMCOM",
      {today});
}

}  // namespace velmar
