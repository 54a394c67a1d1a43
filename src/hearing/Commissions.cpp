#include "hearing/Commissions.h"

namespace velmar {

namespace {

// A note belongs to an invoice by its number and client.
const QString kNotes = QStringLiteral(
    "kt_linii K INNER JOIN G_FacturiClientiAudio F ON F.Nr = K.MARCA AND F.ID_Client = K.TERT");
const QString kCounted =
    QStringLiteral(" WHERE K.CREDIT <> 0 AND F.ID_PunctLucru IS NOT NULL AND K.DATAINR BETWEEN ? AND ?");

QString valuesOf(CommissionOf of) {
  if (of == CommissionOf::WorkPoints)
    return QStringLiteral(
               "SELECT SUM(K.CREDIT) AS Valoare, F.ID_PunctLucru AS ID_PunctLucru, F.ID_Client AS ID_CAS "
               "FROM %1%2 GROUP BY F.ID_PunctLucru, F.ID_Client")
        .arg(kNotes, kCounted);
  return QStringLiteral(
             "SELECT SUM(K.CREDIT) AS Valoare, C.ID_Doctor AS ID_PunctLucru, F.ID_Client AS ID_CAS FROM %1 "
             "INNER JOIN "
             "G_AsocieriComenziFacturiAudio L ON L.ID_Factura = F.ID_Factura AND L.ID_Client = F.ID_Client "
             "INNER JOIN "
             "G_COMANDA_AUDIO C ON C.ID_Comanda = L.ID_ComandaAudio INNER JOIN kt_ter D ON D.COD = "
             "C.ID_Doctor%2 AND "
             "D.Reprezentant = 0 GROUP BY C.ID_Doctor, F.ID_Client")
      .arg(kNotes, kCounted);
}

}  // namespace

Recordset commissions(CommissionOf of, const QDate& day, const Condition& filter) {
  const QDate first(day.year(), day.month(), 1);
  Values values{first, endOf(first.addMonths(1).addDays(-1))};
  values.insert(values.end(), filter.values.begin(), filter.values.end());
  return OpenRs(
      QStringLiteral(
          "SELECT * FROM (SELECT T.NUME AS PunctLucru, S.NUME AS CAS, ROUND_EVEN(V.Valoare, 4) AS Valoare, "
          "ROUND_EVEN(V.Valoare * COALESCE(T.PROCPEN, 0) / 100, 4) AS Comision, V.ID_PunctLucru AS "
          "ID_PunctLucru, "
          "V.ID_CAS AS ID_CAS FROM (%1) V INNER JOIN kt_ter T ON T.COD = V.ID_PunctLucru INNER JOIN kt_ter S "
          "ON S.COD "
          "= V.ID_CAS) AS LIST%2 ORDER BY PunctLucru NULLS FIRST, ID_PunctLucru, CAS NULLS FIRST, ID_CAS")
          .arg(valuesOf(of), whereOf(filter)),
      values);
}

QList<FilterField> commissionFilter() {
  QList<FilterField> fields = {
      {.column = "ID_PunctLucru", .caption = "PUNCT DE LUCRU / MEDIC", .type = ColumnType::Integer},
      {.column = "ID_CAS", .caption = "CASA DE SANATATE", .type = ColumnType::Integer},
      {.column = "Valoare", .caption = "VALOARE", .type = ColumnType::Real}};
  const QString partners = QStringLiteral(
      "SELECT COD, NUME FROM kt_ter WHERE TIP = 'C' OR TIP = 'M' ORDER BY NUME NULLS FIRST, COD");
  offerChoices(fields, "ID_PunctLucru", partners);
  offerChoices(fields, "ID_CAS", partners);
  return fields;
}

}  // namespace velmar
