#include "store/NamedCommands.h"

#include <vector>

#include "store/Database.h"
#include "util/Errors.h"

namespace velmar {

namespace {

struct Command {
  QString name;
  int parameters;
  QString sql;
};

// Sums and differences of stored doubles are rounded to six decimals, so that 0.1 + 0.2 - 0.3 is 0.

QString concat(std::initializer_list<QString> parts) { return QStringList(parts).join(QLatin1Char(' ')); }

std::vector<Command> masterDataCommands() {
  const QString ofUser =
      "SELECT * FROM %1 WHERE UTILIZATOR = ? OR UTILIZATOR IS NULL ORDER BY NRC NULLS FIRST";
  return {
      {"Get_Info", 0, "SELECT * FROM kt_info"},
      {"Get_Paramsoc", 0, "SELECT * FROM kt_par ORDER BY ID"},
      {"Get_Tert", 1, "SELECT * FROM kt_ter WHERE COD = ? ORDER BY COD"},
      {"Get_TVA", 1, "SELECT * FROM kt_cote WHERE CONT = ? ORDER BY COD"},
      {"Get_Jurnal", 1, "SELECT * FROM kt_jur WHERE COD = ? ORDER BY COD"},
      {"Get_JCTVA", 1, ofUser.arg("kt_jct")},
      {"Get_JVTVA", 1, ofUser.arg("kt_jvt")},
  };
}

/// Documents of the VAT journals; name and fiscal code are empty for a partner of another kind.
QString vatDocuments(const QString& kinds, const QString& partnerKinds, const QString& order) {
  return concat(
      {"SELECT D.ID AS NumarFactura, D.TIP, D.CODTERT, T.NUME AS NumeTert, T.CODFISCAL AS CodFiscal,",
       "D.DATADOC AS DataFactura, D.TOTALFT, D.TOTALTVA FROM G_DOCUME AS D",
       "LEFT JOIN kt_ter AS T ON T.COD = D.CODTERT AND T.TIP IN (" + partnerKinds + ")",
       "WHERE D.TIP IN (" + kinds + ") AND D.DATADOC BETWEEN ? AND ? ORDER BY " + order});
}

QString turnover(const QString& kinds) {
  return concat({"SELECT D.CODTERT, T.NUME, ROUND_EVEN(SUM(D.TOTALFT), 6) AS CifraAfaceri,",
                 "ROUND_EVEN(SUM(D.TOTALCOST), 6) AS Cost",
                 "FROM G_DOCUME AS D LEFT JOIN kt_ter AS T ON T.COD = D.CODTERT",
                 "WHERE D.CODTERT BETWEEN ? AND ? AND D.DATADOC BETWEEN ? AND ?",
                 "AND D.TIP IN (" + kinds + ") GROUP BY D.CODTERT, T.NUME ORDER BY D.CODTERT"});
}

std::vector<Command> ledgerCommands() {
  return {
      {"Get_Doc_CTVA", 2, vatDocuments("'FF', 'FI'", "'F', 'M'", documentOrder("D.DATADOC", "D.ID"))},
      {"Get_Doc_VTVA", 2, vatDocuments("'FC', 'FS', 'BS'", "'C', 'M'", documentOrder("D.DATADOC", "D.ID"))},
      {"rapStaCl", 4, turnover("'FC'")},
      {"rapStaFr", 4, turnover("'FF', 'FI', 'NR'")},
      {"RapVanzari", 2,
       concat({"SELECT D.DATADOC, D.DATASCAD, D.ID, D.MODREG, D.OBS, D.REF,",
               "CASE WHEN D.TIP = 'FS' THEN -1 ELSE 1 END * D.TOTALFT AS TOTALFT,",
               "CASE WHEN D.TIP = 'FS' THEN -1 ELSE 1 END * D.TOTALTVA AS TOTALTVA,",
               "D.CODTERT, T.NUME, D.TIP, D.CODMAG FROM G_DOCUME AS D LEFT JOIN kt_ter AS T ON T.COD = "
               "D.CODTERT",
               "WHERE D.TIP IN ('FC', 'FS', 'BS') AND D.DATADOC BETWEEN ? AND ?",
               "ORDER BY D.DATADOC, D.MODREG NULLS FIRST, D.TIP, D.ID"})},
  };
}

std::vector<Command> stockListCommands() {
  const QString articles =
      concat({"SELECT F.DENUMIRE AS DenFam, G_ARTMAG.* FROM G_ARTMAG",
              "LEFT JOIN G_FAMART AS F ON F.COD = G_ARTMAG.FAMART", "WHERE G_ARTMAG.FARASTOC = 0"});
  const QString lots = concat({"SELECT F.DENUMIRE AS DenFam, A.FAMART, A.COSTDEV, S.CODART2 AS CODART,",
                               "S.COSTART AS COST, S.DENUMIRE2 AS DENART, S.STOCART AS STOC FROM G_STOC AS S",
                               "LEFT JOIN G_ARTMAG AS A ON A.CODART = S.CODART2",
                               "LEFT JOIN G_FAMART AS F ON F.COD = S.FAM WHERE"});
  const QString lotOrder = "ORDER BY S.FAM NULLS FIRST, S.CODART2 NULLS FIRST, S.COSTART NULLS FIRST";
  return {
      {"rapJurnalStoc", 0, articles + " ORDER BY G_ARTMAG.FAMART NULLS FIRST, G_ARTMAG.CODART"},
      {"rapJurnalStocFam", 1, articles + " AND G_ARTMAG.FAMART = ? ORDER BY G_ARTMAG.CODART"},
      {"rapJurnalStocMag", 0,
       concat({"SELECT F.DENUMIRE AS DenFam, S.COSTART AS COST, S.CODART2 AS CODART, S.STOCART AS STOC,",
               "S.DENUMIRE2 AS DENART FROM G_STOC AS S LEFT JOIN G_FAMART AS F ON F.COD = S.FAM",
               "WHERE S.STOCART <> 0", lotOrder})},
      {"rapJurnalStocFIFO", 0, concat({lots, "S.STOCART <> 0", lotOrder})},
      {"rapJurnalStocFamFIFO", 1, concat({lots, "S.FAM = ? AND S.STOCART <> 0", lotOrder})},
  };
}

/// The differences between the order reports of customers and of suppliers.
struct OrderSide {
  QString header, lines, partnerColumn, partner;  // partner: "Client" or "Furnizor"
};

QString orderLines(const OrderSide& side, const QString& reference, const QString& undelivered,
                   const QString& delivery, const QString& condition) {
  return concat({"SELECT H.NUMCOM AS NumarComanda, H." + side.partnerColumn + " AS Cod" + side.partner +
                     ", T.NUME AS Nume" + side.partner + ", H.DATACOM AS DataComanda,",
                 reference + " AS RefComanda, L.CODART AS CodArticol, L.DENUMIRE AS Articol,",
                 "L.CANT AS CantitateComandata, COALESCE(L.CANTLIV, 0) AS CantitateLivrata,",
                 undelivered + " AS CantitateNelivrata, L.PRETFT AS ValoareFT,",
                 delivery + " AS DataLivrare FROM " + side.header + " AS H",
                 "JOIN " + side.lines + " AS L ON L.NUMCOM = H.NUMCOM",
                 "LEFT JOIN kt_ter AS T ON T.COD = H." + side.partnerColumn,
                 "LEFT JOIN G_ARTMAG AS A ON A.CODART = L.CODART",
                 "WHERE " + condition + " AND H.DATACOM <= ? ORDER BY H.DATACOM, H.NUMCOM, L.NRLINIE"});
}

std::vector<Command> orderCommands() {
  const OrderSide customers{"G_COMCLI", "G_LCOMCL", "CODCLI", "Client"};
  const OrderSide suppliers{"G_COMFUR", "G_LCOMFU", "CODFUR", "Furnizor"};
  const QString customerRest = "ROUND_EVEN(COALESCE(L.CANT, 0) - COALESCE(L.CANTLIV, 0), 6)";
  const QString supplierRest = "COALESCE(L.CANTRLIV, 0)";
  const QString stocked = " AND COALESCE(A.FARASTOC, 0) = 0";
  return {
      {"rapComCL", 1, orderLines(customers, "L.REFERINTA", customerRest, "H.DATALIV", "H.VALIDAT <> 0")},
      {"rapComNelivCl", 1,
       orderLines(customers, "H.REF", customerRest, "H.DATALIV", customerRest + " > 0" + stocked)},
      {"rapComFr", 1, orderLines(suppliers, "L.REFERINTA", supplierRest, "L.DATASOLD", "H.VALIDAT <> 0")},
      {"rapComNelivFr", 1,
       orderLines(suppliers, "H.REF", supplierRest, "H.DATALIV", supplierRest + " > 0" + stocked)},
  };
}

/// One sum of the stock movement: a direction of the ledger up to a date, optionally for one family, partner
/// or warehouse. Parameters: the date, then the filter's value.
QString movement(const QString& direction, const QString& filter, const QString& documents) {
  return concat({"ROUND_EVEN(COALESCE(SUM(CASE WHEN D.TIPIE = '" + direction + "' AND D.DATADOC <= ?",
                 (filter.isEmpty() ? QString() : "AND " + filter + " = ?") + documents,
                 "THEN L.CANT END), 0), 6)"});
}

/// The parameters occur twice in the text, in the same order: in the columns and in the condition.
Command movementCommand(const QString& name, bool byLot, const QString& filter) {
  const QString documents = byLot ? " AND D.ID NOT LIKE 'BT%'" : "";
  const QString initial = movement("S", filter, "");
  const QString received = movement("I", filter, documents);
  const QString issued = movement("E", filter, documents);
  const QString code = byLot ? "S.CODART2" : "A.CODART";
  const QString article = byLot ? "S.DENUMIRE2" : "A.DENART";
  const QString cost = byLot ? "S.COSTART" : "A.COST";
  const QString family = byLot ? "S.FAM" : "A.FAMART";
  const QString group =
      concat({code + ",", article + ",", cost + ",", family + ",", "F.DENUMIRE, A.CODFURNIZO, T.NUME"});
  return {name, filter.isEmpty() ? 6 : 12,
          concat({"SELECT '0' AS NrCrt,",
                  code,
                  "AS CodArticol,",
                  article,
                  "AS DenProdus,",
                  cost,
                  "AS Cost,",
                  family,
                  "AS CodFamilie, F.DENUMIRE AS Familie, A.CODFURNIZO AS CodFurnizor,",
                  "T.NUME AS Furnizor,",
                  initial,
                  "AS StocInitial,",
                  received,
                  "AS Intrari,",
                  issued,
                  "AS Iesiri FROM",
                  byLot ? "G_STOC AS S JOIN G_ARTMAG AS A ON A.CODART = S.CODART2" : "G_ARTMAG AS A",
                  "JOIN G_LDOCUM AS L ON L.ARTID = A.CODART JOIN G_DOCUME AS D ON D.ID = L.DOCID",
                  "LEFT JOIN G_FAMART AS F ON F.COD =",
                  family,
                  "LEFT JOIN kt_ter AS T ON T.COD = A.CODFURNIZO",
                  byLot ? "" : "WHERE A.FARASTOC = 0",
                  "GROUP BY",
                  group,
                  "HAVING",
                  initial,
                  "<> 0 OR",
                  received,
                  "<> 0 OR",
                  issued,
                  "<> 0 ORDER BY",
                  code + ",",
                  cost + " NULLS FIRST"})};
}

std::vector<Command> movementCommands() {
  return {
      movementCommand("Miscare_Stocuri", false, ""),
      movementCommand("Miscare_Stocuri_Familie", false, "A.FAMART"),
      movementCommand("Miscare_Stocuri_Furnizor", false, "D.CODTERT"),
      movementCommand("Miscare_Stocuri_Magazie", false, "L.CODMAG"),
      movementCommand("Miscare_StocuriFIFO", true, ""),
      movementCommand("Miscare_Stocuri_FamilieFIFO", true, "S.FAM"),
      movementCommand("Miscare_Stocuri_MagazieFIFO", true, "L.CODMAG"),
  };
}

const std::vector<Command>& commands() {
  static const std::vector<Command> all = [] {
    std::vector<Command> joined;
    for (const auto& part :
         {masterDataCommands(), ledgerCommands(), stockListCommands(), orderCommands(), movementCommands()})
      joined.insert(joined.end(), part.begin(), part.end());
    return joined;
  }();
  return all;
}

const Command& command(const QString& name) {
  for (const Command& known : commands())
    if (known.name == name) return known;
  throw StoreError(0, QStringLiteral("Lipseste comanda %1").arg(name));
}

}  // namespace

// A number of digits is compared by its length before its digits, so that any length is right.
QString documentOrder(const QString& date, const QString& id) {
  const QString number = QStringLiteral("SUBSTR(%1, 3)").arg(id);
  const QString digits = QStringLiteral("LTRIM(%1, '0')").arg(number);
  const QString isNumber = QStringLiteral("CASE WHEN LTRIM(%1, '0123456789') = '' THEN").arg(number);
  return QStringList{date, isNumber + " 0 ELSE 1 END", isNumber + " LENGTH(" + digits + ") ELSE 0 END",
                     isNumber + " " + digits + " ELSE LOWER(" + number + ") END", id}
      .join(QStringLiteral(", "));
}

Recordset DataEnvironment::open(const QString& name, const Values& parameters) const {
  const Command& known = command(name);
  if (static_cast<int>(parameters.size()) != known.parameters)
    throw StoreError(0, QStringLiteral("Comanda %1 are %2 parametri, nu %3")
                            .arg(name)
                            .arg(known.parameters)
                            .arg(parameters.size()));
  return OpenRs(known.sql, parameters);
}

QStringList DataEnvironment::names() const {
  QStringList all;
  for (const Command& known : commands()) all.append(known.name);
  return all;
}

QString DataEnvironment::statement(const QString& name) const { return command(name).sql; }

}  // namespace velmar
