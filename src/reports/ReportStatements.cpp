#include "reports/ReportStatements.h"

#include "config/Session.h"
#include "reports/StockReports.h"
#include "store/Database.h"
#include "store/ListRows.h"
#include "store/NamedCommands.h"

namespace velmar {

namespace {

QString sum(const QString& of) { return QStringLiteral("ROUND_EVEN(COALESCE(SUM(%1), 0), 6)").arg(of); }

QString movement(const QString& direction) {
  return sum(QStringLiteral("CASE WHEN D.TIPIE = '%1' THEN L.CANT END").arg(direction));
}

// Receipts and opening stock less issues.
QString balance(const QString& of) {
  return sum(
      QStringLiteral("CASE WHEN D.TIPIE = 'E' THEN -1 WHEN D.TIPIE IN ('I', 'S') THEN 1 END * (%1)").arg(of));
}

// COST of a line is the cost of a piece, but of hearing-device documents that of the whole line.
const QString kLineCost = QStringLiteral("CASE WHEN D.IsAudio <> 0 THEN L.VALCOST ELSE L.COST * L.CANT END");
const QString kPieceCost =
    QStringLiteral("CASE WHEN D.IsAudio <> 0 THEN L.VALCOST / NULLIF(L.CANT, 0) ELSE L.COST END");

const QString kSums =
    QStringLiteral("%1 AS StocInitial, %2 AS Intrari, %3 AS Iesiri, %4 AS Costul, %5 AS Valoare")
        .arg(movement("S"), movement("I"), movement("E"), balance(kLineCost), balance("L.VALCOST"));

// Documents first: an index of the articles would lead through the whole ledger line by line.
const QString kLedger = QStringLiteral("G_DOCUME AS D CROSS JOIN G_LDOCUM AS L");
const QString kJoined = QStringLiteral("L.DOCID = D.ID");
const QString kMoving = QStringLiteral("D.TIPIE IN ('S', 'I', 'E')");

void add(Condition& all, const QString& sql, const Values& values = {}) {
  all = all && Condition{sql, values};
}

// Unless the value is empty.
void addChosen(Condition& all, const QString& sql, const QString& value) {
  if (!value.isEmpty()) add(all, sql, {value});
}

Recordset read(const QString& sql, const Values& values, const QStringList& dates) {
  Recordset rows = OpenRs(sql, values);
  for (const QString& date : dates) rows.transform(date, asDate);
  return rows;
}

// Whole numbers compare as numbers: the text of a code is no code of a numeric column on a server.
void addNumber(Condition& where, const QString& column, const QString& code) {
  if (!code.isEmpty()) add(where, column + QStringLiteral(" = ?"), {code.toLongLong()});
}

void addPartners(Condition& where, const ReportChoice& choice, const QString& list) {
  QString from = choice.codes[list + "Dela"], to = choice.codes[list + "La"];
  if (!from.isEmpty() && !to.isEmpty() && from.toLongLong() > to.toLongLong()) std::swap(from, to);
  if (!from.isEmpty()) add(where, "D.CODTERT >= ?", {from.toLongLong()});
  if (!to.isEmpty()) add(where, "D.CODTERT <= ?", {to.toLongLong()});
}

void addPeriod(Condition& where, const ReportChoice& choice) {
  add(where, "D.DATADOC BETWEEN ? AND ?",
      {firstDay(choice, "DTPickerdela"), endOf(choice.dates["DTPickerla"])});
}

QString turnoverOrder(const ReportChoice& choice) {
  return choice.has("optSortNume") ? QStringLiteral(" ORDER BY NUME NULLS FIRST, CODTERT")
                                   : QStringLiteral(" ORDER BY CifraAfaceri DESC, NUME NULLS FIRST, CODTERT");
}

// What a customer order has not delivered yet, by ledger row: quantity less deliveries of its article.
const QString kReserved = QStringLiteral(
    "SELECT L.DOCID, L.ARTID, ROUND_EVEN(SUM(L.CANT) - COALESCE(MAX(O.CANTLIV), 0), 6) AS REZERVAT "
    "FROM G_LDOCUM AS L INNER JOIN G_DOCUME AS D ON D.ID = L.DOCID AND D.TIP = 'CC' "
    "LEFT JOIN (SELECT 'CC' || NUMCOM AS DOCID, CODART, SUM(COALESCE(CANTLIV, 0)) AS CANTLIV FROM G_LCOMCL "
    "GROUP BY NUMCOM, CODART) AS O ON O.DOCID = L.DOCID AND O.CODART = L.ARTID GROUP BY L.DOCID, L.ARTID");

// The orders of the hearing-device trade up to a date, as those of customers. An order counts as delivered
// while an invoice that was not cancelled has it.
const QString kDeviceOrders = QStringLiteral(
    "SELECT C.ID_Comanda AS IdComanda, C.Nr AS NumarComanda, C.ID_Pacient AS CodClient, T.NUME AS "
    "NumeClient, C.Data AS DataComanda, 0 "
    "AS "
    "RefComanda, C.ID_Dispozitiv AS CodArticol, A.DENART AS Articol, 1 AS CantitateComandata, CASE WHEN "
    "L.ID_ComandaAudio IS NULL THEN 0 ELSE 1 END AS CantitateLivrata, CASE WHEN L.ID_ComandaAudio IS NULL "
    "THEN 1 ELSE "
    "0 END AS CantitateNelivrata, C.PretLivrare AS ValoareFT, F.Data AS DataLivrare, F.Data AS DataLiv, F.Nr "
    "AS "
    "Factura FROM G_COMANDA_AUDIO C LEFT JOIN kt_ter T ON T.COD = C.ID_Pacient LEFT JOIN G_ARTMAG A ON "
    "A.CODART = "
    "C.ID_Dispozitiv LEFT JOIN (SELECT ID_ComandaAudio, MIN(ID_Factura) AS ID_Factura FROM "
    "G_AsocieriComenziFacturiAudio WHERE Stornat = 0 GROUP BY ID_ComandaAudio) L ON L.ID_ComandaAudio = "
    "C.ID_Comanda "
    "LEFT JOIN G_FacturiClientiAudio F ON F.ID_Factura = L.ID_Factura WHERE C.Data <= ?");

QString deviceOrders(const ReportChoice& choice) {
  return choice.has("optToate") ? kDeviceOrders
                                : kDeviceOrders + QStringLiteral(" AND L.ID_ComandaAudio IS NULL");
}

// 13 digits, the last of which checks the others.
bool isEan13(const QString& code) {
  constexpr int kDigits = 13;
  if (code.size() != kDigits) return false;
  int sum = 0;
  for (int i = 0; i < kDigits; ++i) {
    if (code[i] < u'0' || code[i] > u'9') return false;
    sum += code[i].digitValue() * (i % 2 == 0 ? 1 : 3);
  }
  return sum % 10 == 0;
}

}  // namespace

QDate firstDay(const ReportChoice& choice, const QString& control) {
  const QDate day = choice.dates[control];
  return choice.has(kTakesFirstDay) ? day : day.addDays(1);
}

QString salesGrouping(const ReportChoice& choice) {
  return choice.has("optClienti") ? QStringLiteral("CL")
         : choice.has("optMP")    ? QStringLiteral("MP")
                                  : QString();
}

Recordset salesRows(const ReportChoice& choice) {
  const QString grouping = salesGrouping(choice);
  const QString first = grouping == "CL"   ? QStringLiteral("NUME NULLS FIRST, CODTERT, ")
                        : grouping == "MP" ? QStringLiteral("MODREG NULLS FIRST, ")
                                           : QString();
  Values values{firstDay(choice, "DTPickerdela"), endOf(choice.dates["DTPickerla"])};
  const QString warehouse = choice.codeOf("Optmag", "cboMag");
  if (!warehouse.isEmpty()) values.emplace_back(warehouse.toLongLong());
  return read(
      QStringLiteral(
          "SELECT V.*, CASE MODREG WHEN 1 THEN 'NUMERAR' WHEN 2 THEN 'CEC' WHEN 3 THEN 'OP' WHEN 4 THEN "
          "'ALTELE' END AS PLATA, ROUND_EVEN(COALESCE(TOTALFT, 0) + COALESCE(TOTALTVA, 0), 2) AS TOTALDOC "
          "FROM (SELECT R.DATADOC, R.DATASCAD, R.ID, R.MODREG, R.OBS, R.REF, ROUND_EVEN(R.TOTALFT, 2) AS "
          "TOTALFT, ROUND_EVEN(R.TOTALTVA, 2) AS TOTALTVA, R.CODTERT, R.NUME, R.TIP, R.CODMAG FROM (%1) AS "
          "R) AS V%2 ORDER BY %3DATADOC, MODREG NULLS FIRST, "
          "TIP, ID")
          .arg(session().gDataEnv.statement("RapVanzari"),
               warehouse.isEmpty() ? QString() : QStringLiteral(" WHERE CODMAG = ?"), first),
      values, {"DATADOC", "DATASCAD"});
}

Recordset issueRows(const ReportChoice& choice) {
  const QString grouping = salesGrouping(choice);
  QString order = grouping == "CL"   ? QStringLiteral("T.NUME NULLS FIRST, D.CODTERT, ")
                  : grouping == "MP" ? QStringLiteral("D.MODREG NULLS FIRST, ")
                                     : QString();
  if (!choice.has("ChkDetaliu")) order += QStringLiteral("A.DENART NULLS FIRST, L.ARTID, ");
  Condition where;
  add(where, kJoined);
  add(where, "D.TIPIE = 'E'");
  add(where, "D.DATADOC BETWEEN ? AND ?", {choice.dates["DTPickerdela"], endOf(choice.dates["DTPickerla"])});
  addNumber(where, "L.CODMAG", choice.codeOf("Optmag", "cboMag"));
  return read(
      "SELECT D.ID AS ID, D.TIP AS TIP, D.TIPIE AS TIPIE, L.ARTID AS ARTID, L.CANT AS CANT, "
      "ROUND_EVEN(L.VALTVA, 2) AS VALTVA, L.PRETFT AS PRETFT, L.PRETTTI AS PRETTTI, A.UM AS UM, A.DENART AS "
      "DENART, "
      "L.CODMAG AS CODMAG, D.DATADOC AS DATADOC, T.NUME AS NUME, D.CODTERT AS CODTERT, D.MODREG AS MODREG, "
      "ROUND_EVEN(L.CANT * L.PRETFT, 2) AS VALOAREFT FROM " +
          kLedger +
          " INNER JOIN G_ARTMAG AS A ON A.CODART = L.ARTID LEFT JOIN kt_ter AS T ON T.COD = D.CODTERT" +
          whereOf(where) + " ORDER BY " + order + "D.DATADOC, D.TIP, D.ID, L.LINIE",
      where.values, {"DATADOC"});
}

Recordset customerTurnoverRows(const ReportChoice& choice) {
  const auto signedSum = [](const QString& of) {
    return sum(QStringLiteral("CASE WHEN D.TIP = 'FS' THEN -1 ELSE 1 END * %1").arg(of));
  };
  Condition where;
  add(where, "D.TIP IN ('FC', 'FS')");
  addPeriod(where, choice);
  addPartners(where, choice, "cboClienti");
  Values values = where.values;
  values.insert(values.end(), where.values.begin(), where.values.end());
  return OpenRs(
      "SELECT D.CODTERT AS CODTERT, T.NUME AS NUME, " + signedSum("ROUND_EVEN(D.TOTALFT, 2)") +
          " AS CifraAfaceri, " + signedSum("ROUND_EVEN(D.TOTALCOST, 2)") + " AS Cost, " +
          signedSum("ROUND_EVEN(COALESCE(R.DISCOUNT, 0), 2)") +
          " AS Discountul FROM G_DOCUME AS D INNER JOIN kt_ter AS T ON T.COD = D.CODTERT LEFT JOIN (SELECT "
          "L.DOCID AS DOCID, SUM(ROUND_EVEN(L.PRETFT * L.PROCRAB / 100, 2) * L.CANT) AS DISCOUNT FROM " +
          kLedger + whereOf(where) + " AND " + kJoined + " GROUP BY L.DOCID) AS R ON R.DOCID = D.ID" +
          whereOf(where) + " GROUP BY D.CODTERT, T.NUME" + turnoverOrder(choice),
      values);
}

Recordset supplierTurnoverRows(const ReportChoice& choice) {
  Condition where;
  add(where, "D.TIP IN ('FF', 'FI', 'NR')");
  addPeriod(where, choice);
  addPartners(where, choice, "cboFurnizori");
  return OpenRs("SELECT D.CODTERT AS CODTERT, T.NUME AS NUME, " + sum("ROUND_EVEN(D.TOTALFT, 2)") +
                    " AS CifraAfaceri, " + sum("ROUND_EVEN(D.TOTALCOST, 2)") +
                    " AS Cost FROM G_DOCUME AS D INNER JOIN kt_ter AS T ON T.COD = D.CODTERT" +
                    whereOf(where) + " GROUP BY D.CODTERT, T.NUME" + turnoverOrder(choice),
                where.values);
}

Recordset deliveryNoteRows(const ReportChoice& choice) {
  if (session().ModAudio)
    return read(
        QStringLiteral(
            "SELECT O.IdComanda AS IdComanda, O.NumarComanda AS ID, 'AE' AS TIP, O.DataComanda AS DATADOC, "
            "O.CodClient AS "
            "CODTERT, O.NumeClient AS NUME, O.CodArticol AS ARTID, O.Articol AS DENART, "
            "O.CantitateComandata AS CANT, O.ValoareFT AS PRETFT, O.CantitateNelivrata AS "
            "CANTRAMASA, ROUND_EVEN(O.CantitateNelivrata * O.ValoareFT, 2) AS ValoareRamasa, CASE WHEN "
            "O.Factura IS NULL THEN NULL ELSE 'FC' || O.Factura END AS "
            "REFERINTA, O.DataLiv AS DATASOLD FROM (%1) AS O WHERE O.DataComanda >= ? ORDER BY "
            "%2O.NumeClient NULLS FIRST, O.CodClient NULLS FIRST, O.DataComanda, O.NumarComanda")
            .arg(deviceOrders(choice),
                 choice.has("optArticole") ? QStringLiteral("O.CodArticol NULLS FIRST, ") : QString()),
        {endOf(choice.dates["DTPickerPanala"]), choice.dates["DTPickerDeLa"]}, {"DATADOC", "DATASOLD"});
  Condition where;
  add(where, kJoined);
  add(where, "D.TIP = 'AE'");
  add(where, choice.has("optToate") ? "L.CANT > 0" : "L.CANTRAMASA > 0");
  add(where, "D.DATADOC BETWEEN ? AND ?",
      {choice.dates["DTPickerDeLa"], endOf(choice.dates["DTPickerPanala"])});
  const QString first = choice.has("optArticole") ? "L.ARTID, " : "";
  return read(
      "SELECT D.ID AS ID, D.TIP AS TIP, D.DATADOC AS DATADOC, D.CODTERT AS CODTERT, T.NUME AS NUME, "
      "L.ARTID AS ARTID, A.DENART AS DENART, L.CANT AS CANT, L.PRETFT AS PRETFT, L.CANTRAMASA AS "
      "CANTRAMASA, ROUND_EVEN(L.CANTRAMASA * L.PRETFT, 2) AS ValoareRamasa, L.REFERINTA AS REFERINTA, "
      "L.DATASOLD AS DATASOLD FROM " +
          kLedger +
          " INNER JOIN G_ARTMAG AS A ON A.CODART = L.ARTID INNER JOIN kt_ter AS T ON T.COD = D.CODTERT" +
          whereOf(where) + " ORDER BY " + first + "T.NUME NULLS FIRST, D.CODTERT, D.DATADOC, D.ID, L.LINIE",
      where.values, {"DATADOC", "DATASOLD"});
}

Recordset orderRows(const ReportChoice& choice, const QString& side, const QString& partner) {
  const QString command =
      (choice.has("optToate") ? (side == "Cl" ? "rapComCL" : "rapComFr") : "rapComNeliv" + side);
  // Two partners of one name stay apart.
  const QString first = choice.has("optArticole")
                            ? QStringLiteral("CodArticol")
                            : partner + QStringLiteral(" NULLS FIRST, Cod") + partner.mid(4);
  return read(QStringLiteral(
                  "SELECT O.*, ROUND_EVEN(CantitateNelivrata * ValoareFT, 2) AS ValoareRamasa FROM (%1) AS "
                  "O ORDER BY %2 NULLS FIRST, DataComanda, NumarComanda, CodArticol")
                  .arg(side == "Cl" && session().ModAudio ? deviceOrders(choice)
                                                          : session().gDataEnv.statement(command),
                       first),
              {endOf(choice.dates["DTPickerPanala"])}, {"DataComanda", "DataLivrare"});
}

Recordset stockTrackingRows(const ReportChoice& choice) {
  Condition where;
  add(where, kJoined);
  add(where, kMoving);
  add(where, "D.DATADOC <= ?", {endOf(choice.dates["DTPickerPanala"])});
  addNumber(where, "L.CODMAG", choice.codeOf("Optmag", "cboMag"));
  Condition shown;
  add(shown, "StocInitial <> 0 OR Intrari <> 0 OR Iesiri <> 0");
  addNumber(shown, "A.FAMART", choice.codeOf("optFamilie", "cboFamilie"));
  addNumber(shown, "A.CODFURNIZO", choice.codeOf("optFurnizor", "cboFurnizori"));
  const QString order =
      choice.has("optGrupFurnizor")  ? "Furnizor NULLS FIRST, CODFurnizor NULLS FIRST, CODArticol"
      : choice.has("optGrupFamilie") ? "Familie NULLS FIRST, CODFamilie NULLS FIRST, CODArticol"
      : choice.has("optGrupArticol") ? "DenProdus NULLS FIRST, CODArticol"
      : choice.has("optGrupMag")     ? "Magazie NULLS FIRST, CODMAG NULLS FIRST, CODArticol"
                                     : "CODArticol";
  Values values = where.values;
  values.insert(values.end(), shown.values.begin(), shown.values.end());
  return OpenRs(
      "SELECT 0 AS NrCrt, A.FAMART AS CODFamilie, A.CODART AS CODArticol, A.DENART AS DenProdus, "
      "A.CODFURNIZO AS CODFurnizor, T.NUME AS Furnizor, F.DENUMIRE AS Familie, S.StocInitial AS "
      "StocInitial, S.Intrari AS Intrari, S.Iesiri AS Iesiri, ROUND_EVEN(S.StocInitial + S.Intrari - "
      "S.Iesiri, 6) AS STOC, ROUND_EVEN((S.StocInitial + S.Intrari - S.Iesiri) * COALESCE(A.COST, 0), 6) AS "
      "COST, S.CODMAG AS CODMAG, M.DENUMIRE AS Magazie FROM (SELECT L.ARTID AS ARTID, L.CODMAG AS "
      "CODMAG, " +
          kSums + " FROM " + kLedger + whereOf(where) +
          " GROUP BY L.ARTID, L.CODMAG) AS S INNER JOIN G_ARTMAG AS A ON A.CODART = S.ARTID LEFT JOIN "
          "G_FAMART AS F ON F.COD = A.FAMART LEFT JOIN kt_ter AS T ON T.COD = A.CODFURNIZO LEFT JOIN "
          "G_MULTIMAGAZIE AS M ON M.COD = S.CODMAG" +
          whereOf(shown) + " ORDER BY " + order + ", CODMAG",
      values);
}

Recordset inventoryRows(const ReportChoice& choice) {
  Condition where;
  add(where, kJoined);
  add(where, kMoving);
  addNumber(where, "L.CODMAG", choice.codeOf("Optmag", "cboMag"));
  addNumber(where, "A.FAMART", choice.codeOf("optFamilie", "cboFamilie"));
  return OpenRs(
      "SELECT * FROM (SELECT A.CODART AS CODART, A.DENART AS DENART, A.UM AS UM, A.FAMART AS FAMART, "
      "F.DENUMIRE AS DenFam, A.CODFURNIZO AS CODFurnizor, T.NUME AS Furnizor, A.FARASTOC AS FARASTOC, 0 AS "
      "CostDEV, ROUND_EVEN(S.StocInitial + S.Intrari - "
      "S.Iesiri, 6) AS STOC, S.Costul AS Costul, S.Valoare AS Valoare, S.StocInitial AS StocInitial, "
      "S.Intrari AS Intrari, S.Iesiri AS Iesiri FROM (SELECT L.ARTID AS ARTID, " +
          kSums + " FROM " + kLedger + " INNER JOIN G_ARTMAG AS A ON A.CODART = L.ARTID" + whereOf(where) +
          " GROUP BY L.ARTID) AS S INNER JOIN G_ARTMAG AS A ON A.CODART = S.ARTID LEFT JOIN G_FAMART AS F ON "
          "F.COD = A.FAMART LEFT JOIN kt_ter AS T ON T.COD = A.CODFURNIZO) AS J WHERE STOC <> 0 AND "
          "COALESCE(FARASTOC, 0) = 0 ORDER BY FAMART NULLS FIRST, "
          "DENART NULLS FIRST, CODART",
      where.values);
}

Recordset availableRows(const ReportChoice& choice) {
  const bool byWarehouse = choice.has("CheckGrMagazie");
  QString article = choice.codeOf("optArticol", "cboArticol");
  if (article.isEmpty()) article = choice.codeOf("OptCod", "cboCodArticol");
  Condition where;
  add(where, kJoined);
  add(where, "D.DATADOC <= ?", {endOf(choice.dates["dtDataPanaLa"])});
  addNumber(where, "L.CODMAG", choice.codeOf("Optmag", "cboMag"));
  addNumber(where, "A.FAMART", choice.codeOf("optFamilie", "cboFamilie"));
  addChosen(where, "L.ARTID = ?", article);
  if (const QString text = choice.texts["TextLIKE"]; choice.has("CheckContine") && !text.isEmpty()) {
    const bool within = text.startsWith(u'%');
    add(where, "A.DENART LIKE ? ESCAPE '!'",
        {(within ? QStringLiteral("%") : QString()) + escapedForLike(text.mid(within ? 1 : 0)) + u'%'});
  }
  // The movements of one article are found by its index.
  const QString ledger =
      article.isEmpty() ? kLedger : QStringLiteral("G_DOCUME AS D INNER JOIN G_LDOCUM AS L ON 1 = 1");
  const QString reserved =
      sum("CASE WHEN D.TIP = 'CC' AND L.LINIE = (SELECT MIN(X.LINIE) FROM G_LDOCUM AS X "
          "WHERE X.DOCID = L.DOCID AND X.ARTID = L.ARTID) THEN R.REZERVAT END");
  const QString sums = QStringLiteral("SELECT L.ARTID AS ARTID, %1 AS MAGAZIE, %2, %3 AS Rezervat FROM ")
                           .arg(byWarehouse ? "L.CODMAG" : "1", kSums, reserved) +
                       ledger + " INNER JOIN G_ARTMAG AS A ON A.CODART = L.ARTID LEFT JOIN (" + kReserved +
                       ") AS R ON R.DOCID = L.DOCID AND R.ARTID = L.ARTID" + whereOf(where) +
                       " GROUP BY L.ARTID" + (byWarehouse ? ", L.CODMAG" : "");
  return OpenRs(
      "SELECT A.CODART AS CODART, A.DENART AS DENART, A.UM AS UM, A.FAMART AS FAMART, F.DENUMIRE AS DenFam, "
      "S.StocInitial AS StocInitial, S.Intrari AS Intrari, S.Iesiri AS Iesiri, S.Rezervat AS Rezervat, "
      "ROUND_EVEN(S.StocInitial + S.Intrari - S.Iesiri - S.Rezervat, 6) AS STOC, A.PRETVFT AS PRETVFT, "
      "S.Costul AS COST, S.Valoare AS Valoare, 0 AS CostDEV, S.MAGAZIE AS Magazie FROM (" +
          sums +
          ") AS S INNER JOIN G_ARTMAG AS A ON A.CODART = S.ARTID LEFT JOIN G_FAMART AS F ON F.COD = A.FAMART "
          "ORDER BY DENART NULLS FIRST, CODART, Magazie NULLS FIRST",
      where.values);
}

Recordset labelRows(const ReportChoice& choice) {
  Condition where;
  addNumber(where, "FAMART", choice.codeOf("optFamilie", "cboFamilie"));
  addChosen(where, "CODART = ?", choice.codeOf("optArticol", "cboArticol"));
  const Recordset articles = OpenRs("SELECT CODART, DENART, PRETVFT, PRETVTTI FROM G_ARTMAG" +
                                        whereOf(where) + " ORDER BY DENART NULLS FIRST, CODART",
                                    where.values);
  Recordset rows(std::make_shared<Columns>(articles.columns() + QStringList{QStringLiteral("CODEAN")}));
  for (const Row& article : articles) {
    std::vector<QVariant> cells;
    cells.reserve(static_cast<size_t>(articles.columns().size()) + 1);
    for (int i = 0; i < articles.columns().size(); ++i) cells.push_back(article.at(i));
    const QString code = article.text("CODART").trimmed();
    cells.emplace_back(isEan13(code) ? code : QString());
    rows.append(std::move(cells));
  }
  return rows;
}

Recordset costOfSalesRows(const ReportChoice& choice, const Progress& progress) {
  constexpr int kParts = 3;
  const auto value = [](const QString& each) {
    return QStringLiteral("CASE WHEN TIP = 'FS' THEN -1 ELSE 1 END * ROUND_EVEN(CANTITATE * %1, 2)")
        .arg(each);
  };
  Transaction transaction(database());
  ExecutaSql("DELETE FROM G_DESCAR");
  report(progress, 1, kParts);
  const QString lines =
      "SELECT D.TIP AS TIP, D.ID AS ID, D.CODTERT AS CODTERT, T.NUME AS NUME, D.DATADOC AS DATADOC, "
      "L.ARTID AS ARTID, A.DENART AS DENART, L.PRETFT AS PRETFT, " +
      kPieceCost +
      " AS COST, "
      "ROUND_EVEN(SUM(L.CANT), 6) AS CANT, MIN(L.LINIE) AS LINIE FROM " +
      kLedger +
      " INNER JOIN G_ARTMAG AS A ON A.CODART = L.ARTID LEFT JOIN kt_ter AS T ON T.COD = D.CODTERT "
      "WHERE L.DOCID = D.ID AND D.TIP IN ('FC', 'FS', 'BS') AND COALESCE(A.FARASTOC, 0) = 0 "
      "AND D.DATADOC BETWEEN ? AND ? GROUP BY L.ARTID, A.DENART, D.TIP, D.ID, D.CODTERT, T.NUME, "
      "D.DATADOC, L.PRETFT, " +
      kPieceCost;
  ExecutaSql(QStringLiteral(
                 "INSERT INTO G_DESCAR (NRCRT, POZITIE, TIP, NRCOMANDA, CODCLIENT, NUMECLIENT, DATACOMAND, "
                 "CODARTICOL, DENMARFA, PRETVANZAR, COSTUNITAR, CANTITATE) "
                 "SELECT DENSE_RANK() OVER (ORDER BY DATADOC, ID), "
                 "ROW_NUMBER() OVER (PARTITION BY ID ORDER BY LINIE), TIP, ID, CODTERT, SUBSTR(NUME, 1, 40), "
                 "DATADOC, ARTID, SUBSTR(DENART, 1, 35), PRETFT, COST, CANT FROM (%1) AS V")
                 .arg(lines),
             {firstDay(choice, "DTPickerdela"), endOf(choice.dates["DTPickerPanala"])});
  report(progress, 2, kParts);
  Recordset rows =
      read("SELECT G_DESCAR.*, " + value("PRETVANZAR") + " AS ValoareVanzare, " + value("COSTUNITAR") +
               " AS ValoareCost, ROUND_EVEN(" + value("PRETVANZAR") + " - " + value("COSTUNITAR") +
               ", 2) AS Marja, CASE WHEN TIP = 'FS' THEN -1 ELSE 1 END * CANTITATE AS CantitateCuSemn FROM "
               "G_DESCAR ORDER BY NRCRT, POZITIE",
           {}, {"DATACOMAND"});
  report(progress, kParts, kParts);
  transaction.commit();
  return rows;
}

}  // namespace velmar
