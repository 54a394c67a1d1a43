#include "hearing/HearingRules.h"

namespace velmar {

namespace {

QString key(const char* prefix, const char* number) {
  return QStringLiteral("'%1' || %2").arg(QLatin1String(prefix), QLatin1String(number));
}

const QString kInvoiceKey = QStringLiteral("(CASE WHEN F.IsStorno <> 0 THEN 'FS' ELSE 'FC' END || F.Nr)");
const QString kIsCancelled = QStringLiteral(
    "EXISTS (SELECT 1 FROM G_FacturiClientiAudio S WHERE S.IsStorno <> 0 AND S.Observatii = F.Nr)");
const QString kIsBilled = QStringLiteral(
    "EXISTS (SELECT 1 FROM G_AsocieriBonuriFacturiAudio L INNER JOIN G_FacturiClientiAudio F ON F.ID_Factura "
    "= "
    "L.ID_Factura WHERE L.ID_BonReparatie = R.ID_BonReparatie AND L.Stornat = 0 AND F.Validat <> 0)");

std::vector<CheckRule> ledgerRules() {
  const QString missing = QStringLiteral("Document validat fara inregistrare in documente");
  const QString extra = QStringLiteral("Inregistrare fara document validat");
  return {
      {missing, Place::Document,
       QStringLiteral(
           "SELECT %1 AS PLACE FROM G_FacturiClientiAudio F WHERE F.Validat <> 0 AND NOT EXISTS (SELECT 1 "
           "FROM G_DOCUME D WHERE D.ID = %1 AND D.IsAudio <> 0) ORDER BY 1")
           .arg(kInvoiceKey)},
      {missing, Place::Document,
       QStringLiteral(
           "SELECT %1 AS PLACE FROM G_BonReparatii R WHERE R.Validat <> 0 AND NOT EXISTS (SELECT 1 FROM "
           "G_DOCUME D WHERE D.ID = %1 AND D.IsAudio <> 0) ORDER BY 1")
           .arg(key("BC", "R.Nr"))},
      {extra, Place::Document,
       QStringLiteral(
           "SELECT D.ID AS PLACE FROM G_DOCUME D WHERE D.IsAudio <> 0 AND D.TIP IN ('FC', 'FS') AND NOT "
           "EXISTS (SELECT 1 FROM G_FacturiClientiAudio F WHERE %1 = D.ID AND F.Validat <> 0) ORDER BY 1")
           .arg(kInvoiceKey)},
      {extra, Place::Document,
       QStringLiteral(
           "SELECT D.ID AS PLACE FROM G_DOCUME D WHERE D.IsAudio <> 0 AND D.TIP = 'BC' AND NOT EXISTS "
           "(SELECT 1 FROM G_BonReparatii R WHERE %1 = D.ID AND R.Validat <> 0) ORDER BY 1")
           .arg(key("BC", "R.Nr"))},
      {QStringLiteral("Miscarea de stoc a documentului nu se potriveste cu stornarea sau facturarea lui"),
       Place::Document,
       QStringLiteral(
           "SELECT D.ID AS PLACE FROM G_DOCUME D INNER JOIN G_FacturiClientiAudio F ON D.ID = %1 WHERE "
           "D.IsAudio <> 0 AND COALESCE(D.TIPIE, '') <> (CASE WHEN F.IsStorno <> 0 OR %2 THEN '' ELSE 'E' "
           "END) UNION ALL SELECT D.ID AS PLACE FROM G_DOCUME D INNER JOIN G_BonReparatii R ON D.ID = %3 "
           "WHERE D.IsAudio <> 0 AND COALESCE(D.TIPIE, '') <> (CASE WHEN %4 THEN '' ELSE 'E' END) ORDER BY 1")
           .arg(kInvoiceKey, kIsCancelled, key("BC", "R.Nr"), kIsBilled)}};
}

std::vector<CheckRule> totalRules() {
  const QString what = QStringLiteral("Totalurile documentului difera de linii");
  return {
      {what, Place::Document,
       QStringLiteral(
           "SELECT %1 AS PLACE FROM G_FacturiClientiAudio F LEFT JOIN (SELECT ID_Factura, SUM(Valoare) AS "
           "VAL, "
           "SUM(TVA) AS TVA, SUM(Total) AS TOT, SUM(Cost) AS COST FROM G_FacturaClientiAudio_Detalii GROUP "
           "BY "
           "ID_Factura) L ON L.ID_Factura = F.ID_Factura LEFT JOIN G_DOCUME D ON D.ID = %1 AND D.IsAudio <> "
           "0 AND "
           "F.Validat <> 0 WHERE ROUND_EVEN(COALESCE(F.TotalFT, 0) - COALESCE(L.VAL, 0), 4) <> 0 OR "
           "ROUND_EVEN(COALESCE(F.TVA, 0) - COALESCE(L.TVA, 0), 4) <> 0 OR ROUND_EVEN(COALESCE(F.Total, 0) - "
           "COALESCE(L.TOT, 0), 4) <> 0 OR ROUND_EVEN(COALESCE(D.TOTALFT, L.VAL, 0) - COALESCE(L.VAL, 0), 4) "
           "<> 0 OR "
           "ROUND_EVEN(COALESCE(D.TOTALTVA, L.TVA, 0) - COALESCE(L.TVA, 0), 4) <> 0 OR "
           "ROUND_EVEN(COALESCE(D.TOTALCOST, L.COST, 0) - COALESCE(L.COST, 0), 4) <> 0 ORDER BY 1")
           .arg(kInvoiceKey)},
      {what, Place::Document,
       QStringLiteral(
           "SELECT D.ID AS PLACE FROM G_BonReparatii R INNER JOIN G_DOCUME D ON D.ID = %1 AND D.IsAudio "
           "<> 0 INNER JOIN (SELECT ID_BonReparatie, SUM(Valoare) AS VAL, SUM(Cost) AS COST FROM "
           "G_BonReparatii_Detalii GROUP BY ID_BonReparatie) L ON L.ID_BonReparatie = R.ID_BonReparatie "
           "WHERE R.Validat <> 0 AND "
           "(ROUND_EVEN(D.TOTALFT - L.VAL, 4) <> 0 OR ROUND_EVEN(D.TOTALCOST - L.COST, 4) <> 0) ORDER BY 1")
           .arg(key("BC", "R.Nr"))}};
}

std::vector<CheckRule> linkRules() {
  const QString twice = QStringLiteral("Comanda sau bonul este pe doua facturi");
  const QString lost = QStringLiteral("Legatura facturii cu o comanda sau un bon care nu exista");
  const QString mark = QStringLiteral("Legatura facturii nu este marcata ca stornarea ei");
  const auto marks = [](const char* table) {
    return QStringLiteral(
               "SELECT %1 AS PLACE FROM %3 L INNER JOIN G_FacturiClientiAudio F ON F.ID_Factura = "
               "L.ID_Factura WHERE "
               "(CASE WHEN L.Stornat <> 0 THEN 1 ELSE 0 END) <> (CASE WHEN F.IsStorno <> 0 OR %2 THEN 1 ELSE "
               "0 END) "
               "ORDER BY 1")
        .arg(kInvoiceKey, kIsCancelled, QLatin1String(table));
  };
  return {{twice, Place::Document,
           "SELECT C.Nr AS PLACE FROM G_AsocieriComenziFacturiAudio L INNER JOIN G_COMANDA_AUDIO C ON "
           "C.ID_Comanda = "
           "L.ID_ComandaAudio WHERE L.Stornat = 0 GROUP BY L.ID_ComandaAudio, L.ID_Client, C.Nr HAVING "
           "COUNT(*) > 1 ORDER "
           "BY 1"},
          {twice, Place::Document,
           QStringLiteral(
               "SELECT %1 AS PLACE FROM G_AsocieriBonuriFacturiAudio L INNER JOIN G_BonReparatii R ON "
               "R.ID_BonReparatie = L.ID_BonReparatie WHERE L.Stornat = 0 GROUP BY L.ID_BonReparatie, R.Nr "
               "HAVING COUNT(*) > 1 ORDER BY 1")
               .arg(key("BC", "R.Nr"))},
          {lost, Place::Document,
           "SELECT CAST(L.ID_Factura AS TEXT) AS PLACE FROM G_AsocieriComenziFacturiAudio L WHERE NOT EXISTS "
           "(SELECT 1 "
           "FROM G_COMANDA_AUDIO C WHERE C.ID_Comanda = L.ID_ComandaAudio) OR NOT EXISTS (SELECT 1 FROM "
           "G_FacturiClientiAudio F WHERE F.ID_Factura = L.ID_Factura) ORDER BY 1"},
          {lost, Place::Document,
           "SELECT CAST(L.ID_Factura AS TEXT) AS PLACE FROM G_AsocieriBonuriFacturiAudio L WHERE NOT EXISTS "
           "(SELECT 1 "
           "FROM G_BonReparatii R WHERE R.ID_BonReparatie = L.ID_BonReparatie) OR NOT EXISTS (SELECT 1 FROM "
           "G_FacturiClientiAudio F WHERE F.ID_Factura = L.ID_Factura) ORDER BY 1"},
          {mark, Place::Document, marks("G_AsocieriComenziFacturiAudio")},
          {mark, Place::Document, marks("G_AsocieriBonuriFacturiAudio")}};
}

// All rows of an invoice's note are one sum: what the client owes and what the goods cost. A voucher under
// guarantee posts its cost, another one nothing.
std::vector<CheckRule> noteRules() {
  return {{QStringLiteral("Nota contabila lipseste sau are alta suma decat documentul"), Place::Document,
           QStringLiteral(
               "SELECT D.ID AS PLACE FROM G_DOCUME D LEFT JOIN G_BonReparatii R ON D.TIP = 'BC' AND %1 = "
               "D.ID LEFT "
               "JOIN (SELECT FELDOC, DOC, SUM(DEBIT) AS DEBIT FROM kt_linii WHERE PROV = 'G' GROUP BY "
               "FELDOC, DOC) N "
               "ON N.FELDOC = D.TIP AND N.DOC = SUBSTR(D.ID, 3) WHERE D.IsAudio <> 0 AND "
               "ABS((CASE WHEN D.TIP = 'BC' THEN (CASE WHEN R.IsContraCost <> 0 THEN 0 ELSE D.TOTALCOST END) "
               "ELSE "
               "D.TOTALFT + D.TOTALTVA + D.TOTALCOST END) - ABS(COALESCE(N.DEBIT, 0))) > 0.005 ORDER BY 1")
               .arg(key("BC", "R.Nr"))}};
}

}  // namespace

std::vector<CheckRule> hearingRules() {
  std::vector<CheckRule> rules;
  for (auto part : {ledgerRules(), totalRules(), linkRules(), noteRules()})
    rules.insert(rules.end(), part.begin(), part.end());
  return rules;
}

}  // namespace velmar
