#include "documents/Invariants.h"

#include "documents/KindRules.h"
#include "stock/Ledger.h"
#include "stock/Lots.h"
#include "store/Database.h"

namespace velmar {

namespace {

// Quantity of the ledger by article: receipts less issues.
const QString kLedgerStock = QStringLiteral(
    "SELECT L.ARTID AS ARTID, SUM(CASE WHEN D.TIPIE IN ('I', 'S') THEN L.CANT ELSE -L.CANT END) AS CANT "
    "FROM G_LDOCUM L INNER JOIN G_DOCUME D ON D.ID = L.DOCID WHERE D.TIPIE IN ('I', 'S', 'E') "
    "GROUP BY L.ARTID");

// Returns to suppliers that did not reduce a lot, since the document referred to no receipt of the article.
const QString kReturnedUnnamed = QStringLiteral(
    "SELECT L.ARTID AS ARTID, -SUM(L.CANT) AS CANT FROM G_LDOCUM L INNER JOIN G_DOCUME D ON D.ID = L.DOCID "
    "WHERE D.TIP = 'FF' AND L.CANT < 0 AND NOT EXISTS (SELECT R.DOCID FROM G_LDOCUM R WHERE R.DOCID = "
    "TRIM(D.OBS) AND R.ARTID = L.ARTID) GROUP BY L.ARTID");

const QString kHeldArticles = QStringLiteral("SELECT CODART FROM G_ARTMAG WHERE FARASTOC = 0");

class Finder {
 public:
  void find(const QString& what, const QString& sql) {
    for (const Row& row : OpenRs(sql)) found_.push_back({what, row.text("PLACE")});
  }
  std::vector<Disagreement> found() && { return std::move(found_); }

 private:
  std::vector<Disagreement> found_;
};

void findStock(Finder& finder) {
  finder.find(
      QStringLiteral("Stocul articolului difera de documente"),
      QStringLiteral("SELECT A.CODART AS PLACE FROM G_ARTMAG A LEFT JOIN (%1) S ON S.ARTID = A.CODART "
                     "WHERE A.FARASTOC = 0 AND ROUND_EVEN(COALESCE(A.STOC, 0) - COALESCE(S.CANT, 0), 3) "
                     "<> 0 ORDER BY A.CODART")
          .arg(kLedgerStock));
}

void findLots(Finder& finder) {
  finder.find(QStringLiteral("Loturile articolului difera de documente"),
              QStringLiteral(
                  "SELECT S.ARTID AS PLACE FROM (%1) S LEFT JOIN (SELECT L.ARTID AS ARTID, "
                  "SUM(L.CANTRAMASA) AS CANT FROM G_LDOCUM L WHERE %2 GROUP BY L.ARTID) R "
                  "ON R.ARTID = S.ARTID LEFT JOIN (%4) B ON B.ARTID = S.ARTID WHERE S.ARTID IN (%3) AND "
                  "ROUND_EVEN(S.CANT + COALESCE(B.CANT, 0) - COALESCE(R.CANT, 0), 3) <> 0 ORDER BY S.ARTID")
                  .arg(kLedgerStock, makesLot(), kHeldArticles, kReturnedUnnamed));
  finder.find(QStringLiteral("Lotul are ramas mai putin decat nimic sau mai mult decat a intrat"),
              QStringLiteral("SELECT L.DOCID || ' ' || L.ARTID AS PLACE FROM G_LDOCUM L WHERE %1 "
                             "AND (L.CANTRAMASA < 0 OR L.CANTRAMASA > ABS(L.CANT)) ORDER BY L.DOCID, L.LINIE")
                  .arg(makesLot()));
  // The used part of a lot equals the issues and the returns to its supplier.
  finder.find(
      QStringLiteral("Legaturile cu intrarea difera de cantitatea consumata"),
      QStringLiteral(
          "SELECT G.DOCID || ' ' || G.ARTID AS PLACE FROM (SELECT L.DOCID AS DOCID, L.ARTID AS ARTID, "
          "SUM(ABS(L.CANT) - L.CANTRAMASA) AS CANT FROM G_LDOCUM L WHERE %1 "
          "GROUP BY L.DOCID, L.ARTID) G "
          "LEFT JOIN (SELECT ID_I, CODART, SUM(CANT) AS CANT FROM G_I_E GROUP BY ID_I, CODART) E "
          "ON E.ID_I = G.DOCID AND E.CODART = G.ARTID "
          "LEFT JOIN (SELECT TRIM(D.OBS) AS DOCID, L.ARTID AS ARTID, -SUM(L.CANT) AS CANT "
          "FROM G_LDOCUM L INNER JOIN G_DOCUME D ON D.ID = L.DOCID WHERE D.TIP = 'FF' AND L.CANT < 0 "
          "GROUP BY TRIM(D.OBS), L.ARTID) B ON B.DOCID = G.DOCID AND B.ARTID = G.ARTID "
          "WHERE ROUND_EVEN(G.CANT - COALESCE(E.CANT, 0) - COALESCE(B.CANT, 0), 3) <> 0 "
          "ORDER BY G.DOCID, G.ARTID")
          .arg(makesLot()));
  finder.find(
      QStringLiteral("Legaturile iesirii difera de cantitatea ei"),
      QStringLiteral(
          "SELECT L.DOCID || ' ' || L.ARTID AS PLACE FROM (SELECT I.DOCID AS DOCID, I.ARTID AS ARTID, "
          "SUM(I.CANT) AS CANT FROM G_LDOCUM I WHERE I.CANT > 0 GROUP BY I.DOCID, I.ARTID) L "
          "INNER JOIN G_DOCUME D "
          "ON D.ID = L.DOCID LEFT JOIN (SELECT TIP_E, ID_E, CODART, SUM(CANT) AS CANT FROM G_I_E "
          "GROUP BY TIP_E, ID_E, CODART) E ON D.ID = E.TIP_E || E.ID_E AND E.CODART = L.ARTID "
          "WHERE D.TIPIE = 'E' AND D.TIP IN ('BC', 'FC', 'BS') AND L.ARTID IN (%1) "
          "AND ROUND_EVEN(L.CANT - COALESCE(E.CANT, 0), 3) <> 0 ORDER BY L.DOCID, L.ARTID")
          .arg(kHeldArticles));
}

void findNotes(Finder& finder) {
  finder.find(
      QStringLiteral("Nota contabila nu este echilibrata sau are doua documente"),
      QStringLiteral("SELECT NDI AS PLACE FROM kt_linii WHERE PROV = 'G' GROUP BY NDI "
                     "HAVING ROUND_EVEN(SUM(DEBIT) - SUM(CREDIT), 2) <> 0 OR COUNT(DISTINCT DOC) <> 1 "
                     "ORDER BY NDI"));
}

void findCosts(Finder& finder) {
  finder.find(QStringLiteral("Costul documentului difera de costul liniilor"),
              QStringLiteral(
                  // The cost of a line is unsigned on an issue: it has the sign of the quantity.
                  "SELECT D.ID AS PLACE FROM G_DOCUME D INNER JOIN (SELECT DOCID, COUNT(*) AS LINES, "
                  "SUM(CASE WHEN CANT < 0 THEN -ABS(VALCOST) ELSE VALCOST END) AS COST "
                  "FROM G_LDOCUM GROUP BY DOCID) L ON L.DOCID = D.ID WHERE D.TIPIE IN ('I', 'S', 'E') "
                  "AND ABS(D.TOTALCOST - L.COST) > 0.005 * L.LINES + 0.000001 ORDER BY D.ID"));
}

void findDrafts(Finder& finder) {
  for (const DocumentKind& kind : documentKinds()) {
    if (!kindRules(kind.prefix)) continue;
    finder.find(
        QStringLiteral("Document validat fara inregistrare in documente"),
        QStringLiteral("SELECT '%1' || H.%2 AS PLACE FROM %3 H LEFT JOIN G_DOCUME D ON D.ID = '%1' || H.%2 "
                       "WHERE H.VALIDAT <> 0 AND D.ID IS NULL ORDER BY H.%2")
            .arg(kind.prefix, kind.numberColumn, kind.headerTable));
    finder.find(
        QStringLiteral("Inregistrare fara document validat"),
        QStringLiteral("SELECT D.ID AS PLACE FROM G_DOCUME D LEFT JOIN %3 H ON H.%2 = SUBSTR(D.ID, 3) "
                       "WHERE D.TIP = '%1' AND COALESCE(H.VALIDAT, 0) = 0 ORDER BY D.ID")
            .arg(kind.prefix, kind.numberColumn, kind.headerTable));
  }
  finder.find(QStringLiteral("Document fara linii, sau linii fara document"),
              QStringLiteral("SELECT D.ID AS PLACE FROM G_DOCUME D WHERE NOT EXISTS "
                             "(SELECT L.DOCID FROM G_LDOCUM L WHERE L.DOCID = D.ID) UNION "
                             "SELECT L.DOCID AS PLACE FROM G_LDOCUM L LEFT JOIN G_DOCUME D ON D.ID = L.DOCID "
                             "WHERE D.ID IS NULL ORDER BY PLACE"));
}

}  // namespace

std::vector<Disagreement> disagreements() {
  const Snapshot moment(database());
  Finder finder;
  findStock(finder);
  if (TIPCOST() == kFifo) findLots(finder);
  findNotes(finder);
  findCosts(finder);
  findDrafts(finder);
  return std::move(finder).found();
}

QString disagreementText() {
  QStringList lines;
  for (const Disagreement& found : disagreements())
    lines.append(found.what + QStringLiteral(": ") + found.where);
  return lines.join(u'\n');
}

}  // namespace velmar
