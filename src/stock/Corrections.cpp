#include "stock/Corrections.h"

#include <algorithm>
#include <QHash>

#include "stock/LedgerKey.h"
#include "stock/Lots.h"
#include "store/Database.h"
#include "store/Records.h"
#include "util/Decimal.h"

namespace velmar {

namespace {

// A row of the ledger's sum by article, of documents that move stock.
const QString kSigned = QStringLiteral("CASE WHEN D.TIPIE IN ('S', 'I') THEN L.CANT ELSE -L.CANT END");
const QString kMovements =
    QStringLiteral("G_DOCUME D INNER JOIN G_LDOCUM L ON D.ID = L.DOCID WHERE D.TIPIE IN ('S', 'I', 'E')");

const QString kSetStock = QStringLiteral(
                              "UPDATE G_ARTMAG SET STOC = N.STOC FROM (SELECT A.CODART AS CODART, CASE WHEN "
                              "A.FARASTOC = 0 THEN COALESCE(S.CANT, 0) ELSE 0 END AS STOC FROM G_ARTMAG A "
                              "LEFT JOIN (SELECT L.ARTID AS ARTID, ROUND_EVEN(SUM(%1), 3) AS CANT FROM %2 "
                              "GROUP BY L.ARTID) S ON S.ARTID = A.CODART) N WHERE N.CODART = G_ARTMAG.CODART "
                              "AND G_ARTMAG.STOC IS DISTINCT FROM N.STOC")
                              .arg(kSigned, kMovements);

const QString kClearCost = QStringLiteral(
    "UPDATE G_ARTMAG SET COST = 0, COSTDEV = 0 WHERE STOC = 0 AND "
    "(COST IS DISTINCT FROM 0 OR COSTDEV IS DISTINCT FROM 0)");

// The lines of notes that other lines name: what those took is taken from the note's lines of the article in
// their order; what exceeds them, from the last. Goods brought back on a note are lots, not part of it.
const QString kNoteRests = QStringLiteral(
    "SELECT P.DOCID AS DOCID, P.LINIE AS LINIE, ROUND_EVEN(CASE WHEN P.TAKEN <= P.BEFORE THEN P.CANT "
    "WHEN P.TAKEN - P.BEFORE >= P.CANT AND P.BEHIND > 1 THEN 0 ELSE P.CANT - P.TAKEN + P.BEFORE END, 3) AS "
    "REST "
    "FROM (SELECT L.DOCID AS DOCID, L.LINIE AS LINIE, L.CANT AS CANT, T.TAKEN AS TAKEN, "
    "SUM(L.CANT) OVER (PARTITION BY L.DOCID, L.ARTID ORDER BY L.LINIE) - L.CANT AS BEFORE, "
    "ROW_NUMBER() OVER (PARTITION BY L.DOCID, L.ARTID ORDER BY L.LINIE DESC) AS BEHIND "
    "FROM (SELECT REFERINTA AS DOCID, ARTID, SUM(CANT) AS TAKEN FROM G_LDOCUM WHERE REFERINTA >= 'AE' "
    "AND REFERINTA < 'AF' GROUP BY REFERINTA, ARTID) T INNER JOIN G_LDOCUM L ON L.DOCID = T.DOCID "
    "AND L.ARTID = T.ARTID WHERE L.CANT > 0) P");

const QString kSetLedgerRests = QStringLiteral(
                                    "UPDATE G_LDOCUM SET CANTRAMASA = N.REST FROM (%1) N WHERE N.DOCID = "
                                    "G_LDOCUM.DOCID AND N.LINIE = G_LDOCUM.LINIE "
                                    "AND G_LDOCUM.CANTRAMASA IS DISTINCT FROM N.REST")
                                    .arg(kNoteRests);

// The draft's lines of an article correspond to the ledger's in their order.
const QString kSetDraftRests =
    QStringLiteral(
        "UPDATE G_LAECLI SET CANTRAMAS = N.REST FROM (SELECT D.NUMAE AS NUMAE, D.NRLINIE AS NRLINIE, "
        "L.CANTRAMASA AS REST FROM (SELECT %1 AS DOCID, NUMAE, NRLINIE, CODART, ROW_NUMBER() OVER (PARTITION "
        "BY NUMAE, CODART ORDER BY NRLINIE) AS PLACE FROM G_LAECLI) D INNER JOIN (SELECT DOCID, ARTID, CANT, "
        "CANTRAMASA, ROW_NUMBER() OVER (PARTITION BY DOCID, ARTID ORDER BY LINIE) AS PLACE FROM G_LDOCUM "
        "WHERE DOCID >= 'AE' AND DOCID < 'AF') L ON L.DOCID = D.DOCID AND L.ARTID = D.CODART "
        "AND L.PLACE = D.PLACE WHERE L.CANT > 0 AND L.CANTRAMASA IS NOT NULL) N WHERE N.NUMAE = "
        "G_LAECLI.NUMAE "
        "AND N.NRLINIE = G_LAECLI.NRLINIE AND G_LAECLI.CANTRAMAS IS DISTINCT FROM N.REST")
        .arg(keyExpression(KindId::DeliveryNote, QStringLiteral("NUMAE")));

// A note with something left is not invoiced; one with a line that has nothing left, and no other, is.
const QString kSetInvoiced = QStringLiteral(
    "UPDATE G_AECLI SET FACTURAT = N.FACTURAT FROM (SELECT NUMAE, CASE WHEN MAX(CANTRAMAS) > 0 THEN 0 ELSE "
    "-1 "
    "END AS FACTURAT FROM G_LAECLI GROUP BY NUMAE HAVING MAX(CANTRAMAS) >= 0) N WHERE N.NUMAE = "
    "G_AECLI.NUMAE "
    "AND G_AECLI.VALIDAT = -1 AND G_AECLI.FACTURAT <> N.FACTURAT");
const QString kMarkLedger =
    QStringLiteral(
        "UPDATE G_DOCUME SET VALIDAT = N.FACTURAT FROM (SELECT %1 AS ID, FACTURAT FROM G_AECLI "
        "WHERE VALIDAT = -1) N WHERE N.ID = G_DOCUME.ID AND G_DOCUME.VALIDAT <> N.FACTURAT")
        .arg(keyExpression(KindId::DeliveryNote, QStringLiteral("NUMAE")));

void execute(const QStringList& statements, const Progress& progress) {
  const int of = static_cast<int>(statements.size());
  Transaction transaction(database());
  for (int i = 0; i < of; ++i) {
    report(progress, i, of);
    database().execute(statements[i]);
  }
  report(progress, of, of);
  transaction.commit();
}

const QStringList& stockStatements() {
  static const QStringList statements = {kSetStock, kClearCost};
  return statements;
}

// The open lots of articles with movements and what they should have, by ARTID; `which` selects articles.
QString lotSums(const QString& which) {
  return QStringLiteral(
             "SELECT L.ARTID AS ARTID, SUM(%1) AS CANTITATE, SUM(CASE WHEN D.TIP = 'AE' OR L.CANTRAMASA < 0 "
             "THEN "
             "0 ELSE L.CANTRAMASA END) AS CRAMASA FROM %2%3 GROUP BY L.ARTID")
      .arg(addedToLots(), kMovements, which);
}

struct OpenLot {
  QString document;
  qint64 line;
  Decimal size, rest;
};

// What the lots lose to make them `difference` smaller, or gain if that is below 0. `lots` begin with the
// oldest.
std::vector<LotTake> corrected(const QString& article, const std::vector<OpenLot>& lots, Decimal difference) {
  std::vector<LotTake> changed;
  const auto change = [&](const OpenLot& lot) {
    const Decimal part = difference > 0 ? std::min(difference, std::max(lot.rest, Decimal(0)))
                                        : -std::min(-difference, std::max(lot.size - lot.rest, Decimal(0)));
    if (part.isZero()) return;
    difference = difference - part;
    changed.push_back({article, lot.document, lot.line, part, Round(lot.rest - part, 3)});
  };
  if (difference > 0)
    std::for_each(lots.begin(), lots.end(), change);
  else
    std::for_each(lots.rbegin(), lots.rend(), change);
  return changed;
}

}  // namespace

void CorectArticoleTable(const Progress& progress) { execute(stockStatements(), progress); }

void correctStockAndNotes(const Progress& progress) {
  execute(stockStatements() + QStringList{kSetLedgerRests, kSetDraftRests, kSetInvoiced, kMarkLedger},
          progress);
}

Recordset lotDifferences() {
  return OpenRs(
      QStringLiteral(
          "SELECT S.ARTID AS ARTID, A.DENART AS DENART, ROUND_EVEN(S.CANTITATE, 3) AS Cantitate, "
          "ROUND_EVEN(S.CRAMASA, 3) AS CRamasa FROM (%1) S INNER JOIN G_ARTMAG A ON A.CODART = S.ARTID "
          "WHERE ROUND_EVEN(S.CRAMASA, 3) > 0 AND ROUND_EVEN(S.CANTITATE, 2) <> "
          "ROUND_EVEN(S.CRAMASA, 2) ORDER BY A.DENART NULLS FIRST, S.ARTID")
          .arg(lotSums({})));
}

void correctLots(const QStringList& articles, const Progress& progress) {
  Transaction transaction(database());
  const int of = static_cast<int>(articles.size());
  report(progress, 0, of);
  QHash<QString, std::vector<OpenLot>> lots;  // by code in upper case
  for (const Row& row : rowsOfKeys(
           "SELECT L.DOCID AS DOCID, L.LINIE AS LINIE, L.ARTID AS ARTID, L.CANT AS CANT, L.CANTRAMASA AS "
           "CANTRAMASA FROM G_LDOCUM L INNER JOIN G_DOCUME D ON D.ID = L.DOCID WHERE L.ARTID IN (%1) AND "
           "D.TIPIE IN ('I', 'S') AND (L.CANTRAMASA > 0 OR L.CANTRAMASA < L.CANT) "
           "ORDER BY D.DATADOC, L.DATA NULLS FIRST, L.DOCID, L.LINIE",
           articles))
    lots[row.text("ARTID").toUpper()].push_back(
        {row.text("DOCID"), row.integer("LINIE"), row.decimal("CANT"), row.decimal("CANTRAMASA")});
  std::vector<LotTake> changed;
  int done = 0;
  for (const Row& row : rowsOfKeys(lotSums(QStringLiteral(" AND L.ARTID IN (%1)")), articles)) {
    const QString article = row.text("ARTID");
    const Decimal difference = Round(row.decimal("CRAMASA"), 3) - Round(row.decimal("CANTITATE"), 3);
    const std::vector<LotTake> each = corrected(article, lots.value(article.toUpper()), difference);
    changed.insert(changed.end(), each.begin(), each.end());
    report(progress, ++done, of);
  }
  writeRests(changed);
  report(progress, of, of);
  transaction.commit();
}

int setIssuedQuantities(const QDate& from, const QDate& to) {
  Transaction transaction(database());
  const int articles = database().execute(
      "UPDATE G_ARTMAG SET CANTE = N.CANT FROM (SELECT L.ARTID AS ARTID, ROUND_EVEN(SUM(L.CANT), 3) AS CANT "
      "FROM "
      "G_DOCUME D INNER JOIN G_LDOCUM L ON L.DOCID = D.ID WHERE D.TIPIE = 'E' AND D.DATADOC BETWEEN ? AND ? "
      "GROUP BY L.ARTID) N WHERE N.ARTID = G_ARTMAG.CODART",
      {from, endOf(to)});
  transaction.commit();
  return articles;
}

}  // namespace velmar
