#include "documents/Invariants.h"

#include <array>

#include "documents/kinds/Kinds.h"
#include "documents/OtherTrade.h"
#include "stock/Ledger.h"
#include "stock/Lots.h"
#include "store/Database.h"
#include "store/Schema.h"
#include "store/StockBalance.h"

namespace velmar {

namespace {

// Sums of the ledger's movements by article; %1: what a line adds.
const QString kByArticle = QStringLiteral(
    "SELECT L.ARTID AS ARTID, SUM(%1) AS CANT FROM G_LDOCUM L INNER JOIN G_DOCUME D ON D.ID = L.DOCID WHERE "
    "D.TIPIE IN ('I', 'S', 'E') GROUP BY L.ARTID");

const QString kHeldArticles = QStringLiteral("SELECT CODART FROM G_ARTMAG WHERE FARASTOC = 0");

// What a statement finds: PLACE, and if that is not the key of the place, the key as TARGET.
struct Found {
  Place place;
  Correction correction = Correction::None;
};

class Finder {
 public:
  void find(const QString& what, const Found& found, const QString& sql) {
    for (const Row& row : OpenRs(sql))
      found_.push_back({what, row.text("PLACE"), found.place,
                        row.text(row.has("TARGET") ? "TARGET" : "PLACE"), found.correction});
  }
  std::vector<Disagreement> found() && { return std::move(found_); }

 private:
  std::vector<Disagreement> found_;
};

void findStock(Finder& finder) {
  finder.find(
      QStringLiteral("Stocul articolului difera de documente"), {Place::Article, Correction::StockAndNotes},
      QStringLiteral("SELECT A.CODART AS PLACE FROM G_ARTMAG A LEFT JOIN (%1) S ON S.ARTID = A.CODART "
                     "WHERE A.FARASTOC = 0 AND ROUND_EVEN(COALESCE(A.STOC, 0) - COALESCE(S.CANT, 0), 3) "
                     "<> 0 ORDER BY A.CODART")
          .arg(kByArticle.arg(
              QStringLiteral("CASE WHEN D.TIPIE IN ('I', 'S') THEN L.CANT ELSE -L.CANT END"))));
}

void findWarehouseStock(Finder& finder) {
  finder.find(QStringLiteral("Stocul din magazie difera de documente"),
              {Place::Article, Correction::WarehouseStock},
              QStringLiteral("SELECT S.ARTID || ' ' || S.CODMAG AS PLACE, S.ARTID AS TARGET FROM (SELECT "
                             "M.ARTID AS ARTID, M.CODMAG "
                             "AS CODMAG, SUM(M.CANT) AS CANT FROM (%1 UNION ALL SELECT B.ARTID AS ARTID, "
                             "B.CODMAG AS CODMAG, -B.CANT AS CANT FROM G_STOCMAG B) M "
                             "GROUP BY M.ARTID, M.CODMAG) S WHERE ROUND_EVEN(S.CANT, 3) <> 0 "
                             "ORDER BY S.ARTID, S.CODMAG")
                  .arg(stockOfLedger()));
}

// The missing goods of a shortage have lines like a receipt's, but they are no lots.
const QString kNoShortage = QStringLiteral(
    " AND NOT (L.CANT > 0 AND L.DOCID IN (SELECT N.ID FROM G_DOCUME N WHERE N.TIP = 'NR' AND N.TIPIE = "
    "'E'))");

void findLots(Finder& finder) {
  finder.find(
      QStringLiteral("Loturile articolului difera de documente"), {Place::Article, Correction::Lots},
      QStringLiteral(
          "SELECT S.ARTID AS PLACE FROM (%1) S LEFT JOIN (SELECT L.ARTID AS ARTID, "
          "SUM(L.CANTRAMASA) AS CANT FROM G_LDOCUM L WHERE %2 GROUP BY L.ARTID) R "
          "ON R.ARTID = S.ARTID WHERE S.ARTID IN (%3) AND ROUND_EVEN(S.CANT - COALESCE(R.CANT, 0), 3) "
          "<> 0 ORDER BY S.ARTID")
          .arg(kByArticle.arg(addedToLots()), makesLot(), kHeldArticles));
  // The used part of a lot equals the issues, the returns to its supplier and, of a lot that an invoice made
  // of goods brought back, what the storno of the invoice took.
  finder.find(QStringLiteral("Legaturile cu intrarea difera de cantitatea consumata"), {Place::Document},
              QStringLiteral(
                  "SELECT G.DOCID || ' ' || G.ARTID AS PLACE, G.DOCID AS TARGET FROM (SELECT L.DOCID AS "
                  "DOCID, L.ARTID AS ARTID, "
                  "SUM(ABS(L.CANT) - L.CANTRAMASA) AS CANT FROM G_LDOCUM L WHERE %1 "
                  "GROUP BY L.DOCID, L.ARTID) G "
                  "LEFT JOIN (SELECT ID_I, CODART, SUM(CANT) AS CANT FROM G_I_E GROUP BY ID_I, CODART) E "
                  "ON E.ID_I = G.DOCID AND E.CODART = G.ARTID "
                  "LEFT JOIN (SELECT R.DOCID AS DOCID, R.ARTID AS ARTID, SUM(R.CANT) AS CANT FROM "
                  "(SELECT CASE WHEN D.TIP = 'FS' THEN 'FC' ELSE '' END || TRIM(D.OBS) AS DOCID, "
                  "L.ARTID AS ARTID, -L.CANT AS CANT FROM G_LDOCUM L INNER JOIN G_DOCUME D ON D.ID = L.DOCID "
                  "WHERE D.TIP IN ('FF', 'FS') AND L.CANT < 0) R GROUP BY R.DOCID, R.ARTID) B ON B.DOCID = "
                  "G.DOCID AND B.ARTID = G.ARTID "
                  "WHERE ROUND_EVEN(G.CANT - COALESCE(E.CANT, 0) - COALESCE(B.CANT, 0), 3) <> 0 "
                  "ORDER BY G.DOCID, G.ARTID")
                  .arg(makesLot() + kNoShortage));
  finder.find(
      QStringLiteral("Legaturile iesirii difera de cantitatea ei"), {Place::Document},
      QStringLiteral("SELECT L.DOCID || ' ' || L.ARTID AS PLACE, L.DOCID AS TARGET FROM (SELECT I.DOCID AS "
                     "DOCID, I.ARTID AS ARTID, "
                     "SUM(I.CANT) AS CANT FROM G_LDOCUM I WHERE I.CANT > 0 GROUP BY I.DOCID, I.ARTID) L "
                     "INNER JOIN G_DOCUME D "
                     "ON D.ID = L.DOCID LEFT JOIN (SELECT TIP_E, ID_E, CODART, SUM(CANT) AS CANT FROM G_I_E "
                     "GROUP BY TIP_E, ID_E, CODART) E ON D.ID = E.TIP_E || E.ID_E AND E.CODART = L.ARTID "
                     "WHERE D.TIPIE = 'E' AND D.TIP IN (%2) AND L.ARTID IN (%1) "
                     "AND ROUND_EVEN(L.CANT - COALESCE(E.CANT, 0), 3) <> 0 ORDER BY L.DOCID, L.ARTID")
          .arg(kHeldArticles, prefixesOf(&LedgerKind::takesLots)));
}

// What is left of the lines of a kind from which other documents take.
struct Remainder {
  KindId kind;
  const char *headers, *lines, *number, *column;
  const char* rest;    // what the column should be, from the quantity S.CANT and what was taken, T.CANT
  const char* closed;  // flag of the header; "" when there is none
  bool isNote;

  QString sql(QString text) const {
    const QString prefix = ledgerKind(kind).prefix;
    const QString behind = prefix.left(1) + QChar(prefix[1].unicode() + 1);
    return text.replace(QStringLiteral("{rest}"), QLatin1String(rest))
        .replace(QStringLiteral("{key}"), keyExpression(kind, QStringLiteral("S.{number}")))
        .replace(QStringLiteral("{prefix}"), prefix)
        .replace(QStringLiteral("{behind}"), behind)
        .replace(QStringLiteral("{headers}"), QLatin1String(headers))
        .replace(QStringLiteral("{lines}"), QLatin1String(lines))
        .replace(QStringLiteral("{number}"), QLatin1String(number))
        .replace(QStringLiteral("{column}"), QLatin1String(column))
        .replace(QStringLiteral("{closed}"), QLatin1String(closed));
  }
};

constexpr const char* kLeftOfNote = "(S.CANT - COALESCE(T.CANT, 0))";
constexpr const char* kLeftOfOrder =
    "(CASE WHEN COALESCE(T.CANT, 0) > S.CANT THEN 0 ELSE S.CANT - COALESCE(T.CANT, 0) END)";
constexpr const char* kDelivered =
    "(CASE WHEN COALESCE(T.CANT, 0) > S.CANT THEN S.CANT ELSE COALESCE(T.CANT, 0) END)";
constexpr Remainder kRemainders[] = {
    {KindId::DeliveryNote, "G_AECLI", "G_LAECLI", "NUMAE", "CANTRAMAS", kLeftOfNote, "FACTURAT", true},
    {KindId::SupplierOrder, "G_COMFUR", "G_LCOMFU", "NUMCOM", "CANTRLIV", kLeftOfOrder, "SOLDAT", false},
    {KindId::CustomerOrder, "G_COMCLI", "G_LCOMCL", "NUMCOM", "CANTLIV", kDelivered, "", false}};

// Under every cost method: what is left of lots, notes and orders, and the links between documents.
void findRemainders(Finder& finder) {
  finder.find(
      QStringLiteral("Lotul are ramas mai putin decat nimic sau mai mult decat a intrat"), {Place::Document},
      QStringLiteral("SELECT L.DOCID || ' ' || L.ARTID AS PLACE, L.DOCID AS TARGET FROM G_LDOCUM L WHERE %1 "
                     "AND (L.CANTRAMASA < 0 OR L.CANTRAMASA > ABS(L.CANT)) ORDER BY L.DOCID, L.LINIE")
          .arg(makesLot()));
  finder.find(
      QStringLiteral("Legatura cu o intrare sau o iesire care nu exista"), {Place::Document},
      QStringLiteral("SELECT COALESCE(E.TIP_E, '') || E.ID_E || ' ' || E.ID_I || ' ' || E.CODART AS PLACE, "
                     "CASE WHEN EXISTS (SELECT D.ID FROM G_DOCUME D WHERE D.ID = E.TIP_E || E.ID_E) THEN "
                     "E.TIP_E || E.ID_E ELSE E.ID_I END AS TARGET "
                     "FROM G_I_E E WHERE NOT EXISTS (SELECT L.DOCID FROM G_LDOCUM L WHERE L.DOCID = E.ID_I "
                     "AND L.ARTID = E.CODART) OR (E.TIP_E IS NOT NULL AND NOT EXISTS (SELECT D.ID FROM "
                     "G_DOCUME D WHERE D.ID = E.TIP_E || E.ID_E)) ORDER BY E.ID_E, E.ID_I, E.CODART"));
  for (const Remainder& each : kRemainders) {
    finder.find(
        QStringLiteral("Cantitatea ramasa este sub 0 sau peste cantitatea liniei"), {Place::Document},
        each.sql("SELECT '{lines} ' || S.{number} || ' ' || S.CODART AS PLACE, {key} AS TARGET FROM "
                 "{lines} S WHERE ROUND_EVEN(S.{column}, 3) < 0 OR ROUND_EVEN(S.{column} - S.CANT, 3) > "
                 "0 ORDER BY S.{number}, S.NRLINIE"));
    // Nobody takes more from an order than was ordered. Goods brought back on a note are not part of it.
    const QString taken = QStringLiteral(
        "SELECT {key} || ' ' || S.CODART AS PLACE, {key} AS TARGET FROM (SELECT L.{number} AS {number}, "
        "L.CODART AS CODART, SUM(L.CANT) AS CANT, SUM(L.{column}) AS REST FROM {lines} L INNER JOIN "
        "{headers} H "
        "ON H.{number} = L.{number} WHERE H.VALIDAT <> 0 AND L.CANT > 0 AND L.{column} IS NOT NULL "
        "GROUP BY L.{number}, L.CODART) S INNER JOIN G_DOCUME D ON D.ID = {key} LEFT JOIN (SELECT REFERINTA, "
        "ARTID, SUM(CANT) AS CANT FROM G_LDOCUM WHERE REFERINTA >= '{prefix}' AND REFERINTA < '{behind}' "
        "GROUP BY REFERINTA, ARTID) T ON T.REFERINTA = {key} AND T.ARTID = S.CODART WHERE T.CANT IS {named} "
        "AND "
        "ROUND_EVEN(S.REST - {rest}, 3) <> 0 ORDER BY 1");
    const QString what =
        QStringLiteral("Ramasul avizului sau al comenzii difera de documentele care au preluat");
    for (const bool isNamed : {true, false})
      finder.find(
          what, {Place::Document, each.isNote && isNamed ? Correction::StockAndNotes : Correction::None},
          each.sql(QString(taken).replace(QStringLiteral("{named}"),
                                          isNamed ? QStringLiteral("NOT NULL") : QStringLiteral("NULL"))));
    if (each.isNote) {
      // The ledger keeps what is left of each line; a correction does not know it either.
      finder.find(
          QStringLiteral("Ramasul avizului lipseste din documente"), {Place::Document},
          each.sql("SELECT G.DOCID || ' ' || G.ARTID AS PLACE, G.DOCID AS TARGET FROM G_LDOCUM G WHERE "
                   "G.DOCID >= '{prefix}' AND G.DOCID < '{behind}' AND G.CANT > 0 AND G.CANTRAMASA IS NULL "
                   "ORDER BY G.DOCID, G.LINIE"));
      finder.find(
          QStringLiteral("Ramasul avizului difera intre document si ciorna"),
          {Place::Document, Correction::StockAndNotes},
          each.sql(
              "SELECT {key} || ' ' || S.CODART AS PLACE, {key} AS TARGET FROM (SELECT L.{number} AS "
              "{number}, L.CODART AS CODART, SUM(L.{column}) AS REST FROM {lines} L INNER JOIN {headers} "
              "H ON H.{number} = L.{number} WHERE H.VALIDAT <> 0 AND L.CANT > 0 AND L.{column} IS NOT "
              "NULL GROUP BY L.{number}, L.CODART) S INNER JOIN (SELECT DOCID, ARTID, SUM(CANTRAMASA) AS "
              "REST FROM G_LDOCUM WHERE DOCID >= '{prefix}' AND DOCID < '{behind}' AND CANT > 0 AND "
              "CANTRAMASA IS NOT NULL GROUP BY DOCID, ARTID) G ON G.DOCID = {key} AND G.ARTID = S.CODART "
              "WHERE ROUND_EVEN(S.REST - G.REST, 3) <> 0 ORDER BY 1"));
    }
    if (*each.closed != '\0')
      finder.find(
          QStringLiteral("Avizul sau comanda este inchis desi are cantitati ramase, sau invers"),
          {Place::Document, each.isNote ? Correction::StockAndNotes : Correction::None},
          each.sql(
              "SELECT {key} AS PLACE FROM (SELECT L.{number} AS {number}, MAX(L.{column}) AS REST FROM "
              "{lines} L GROUP BY L.{number} HAVING MAX(L.{column}) >= 0) S INNER JOIN {headers} H "
              "ON H.{number} = S.{number} INNER JOIN G_DOCUME D ON D.ID = {key} WHERE H.VALIDAT <> 0 AND "
              "(CASE WHEN S.REST > 0 THEN 0 ELSE 1 END) <> (CASE WHEN H.{closed} = 0 THEN 0 ELSE 1 END) "
              "ORDER BY 1"));
  }
}

// The kind of document that a row K of kt_linii belongs to: stored, or by the next stamp of its number.
const QString kKindOfNote = QStringLiteral(
    "COALESCE(K.FELDOC, (SELECT S.TIPDOC FROM kt_linii S WHERE S.DOC = K.DOC AND S.PROV = 'G' "
    "AND S.TIPDOC IS NOT NULL AND S.NDI >= K.NDI ORDER BY S.NDI LIMIT 1))");

// The amounts posted for each document of the kind. A debit may be 0.
const QString kPosted = QStringLiteral(
    "SELECT P.DOC AS DOC, SUM(CASE WHEN P.TERT IS NULL THEN 0 ELSE P.DEBIT + P.CREDIT END) AS PARTNER, "
    "SUM(CASE WHEN P.TERT IS NULL THEN P.DEBIT ELSE 0 END) AS DEBIT, SUM(CASE WHEN P.TERT IS NULL AND "
    "P.CREDIT = 0 THEN 1 ELSE 0 END) AS DEBITS FROM (SELECT %1 AS FEL, K.DOC AS DOC, K.TERT AS TERT, K.DEBIT "
    "AS "
    "DEBIT, K.CREDIT AS CREDIT FROM kt_linii K WHERE K.PROV = 'G' AND (K.FELDOC = '%2' OR K.FELDOC IS NULL)) "
    "P WHERE P.FEL = '%2' GROUP BY P.DOC");

const QString kWrongNote = QStringLiteral("Nota contabila lipseste sau are alta suma decat documentul");
const QString kTolerance =
    QStringLiteral("0.01 + 0.005 * (SELECT COUNT(*) FROM G_LDOCUM C WHERE C.DOCID = D.ID)");

void findNotes(Finder& finder) {
  // The document of the note is the way to it; of a note that has lost its kind, any with its number.
  finder.find(
      QStringLiteral("Nota contabila nu este echilibrata sau are doua documente"), {Place::Document},
      QStringLiteral(
          "SELECT W.NDI AS PLACE, (SELECT MIN(D.ID) FROM kt_linii K INNER JOIN G_DOCUME D ON D.ID IN (%1 || "
          "K.DOC, %1 || K.DOC || 'E', %1 || K.DOC || 'I') WHERE K.NDI = W.NDI AND K.PROV = 'G') AS TARGET "
          "FROM "
          "(SELECT NDI FROM kt_linii WHERE PROV = 'G' GROUP BY NDI HAVING ROUND_EVEN(SUM(DEBIT) - "
          "SUM(CREDIT), 2) <> 0 OR COUNT(DISTINCT DOC) <> 1) W ORDER BY W.NDI")
          .arg(kKindOfNote));
  for (const DocumentKind& kind : documentKinds()) {
    if (!kind.rules || kind.posted.empty()) continue;
    const bool isChosen = companyTable(kind.headerTable).column("NoteContabile");
    finder.find(
        kWrongNote, {Place::Document},
        QStringLiteral(
            "SELECT D.ID AS PLACE FROM G_DOCUME D INNER JOIN %1 H ON H.%2 = %3 LEFT JOIN (%4) N "
            "ON N.DOC = H.%2 WHERE D.TIP = '%5' AND COALESCE(D.IsAudio, 0) = 0 AND %6 AND (%7) ORDER BY D.ID")
            .arg(kind.headerTable, kind.numberColumn,
                 numberExpression(QStringLiteral("D.ID"), ledgerKind(kind.id).hasSides),
                 kPosted.arg(kKindOfNote, kind.prefix), kind.prefix,
                 isChosen ? QStringLiteral("H.NoteContabile <> 0") : QStringLiteral("1 = 1"),
                 lacksSum(kind.posted, kTolerance)));
  }
}

void findCosts(Finder& finder) {
  finder.find(QStringLiteral("Costul documentului difera de costul liniilor"), {Place::Document},
              QStringLiteral(
                  // The cost of a line is unsigned on an issue: it has the sign of the quantity.
                  "SELECT D.ID AS PLACE FROM G_DOCUME D INNER JOIN (SELECT DOCID, COUNT(*) AS LINES, "
                  "SUM(CASE WHEN CANT < 0 THEN -ABS(VALCOST) ELSE VALCOST END) AS COST "
                  "FROM G_LDOCUM GROUP BY DOCID) L ON L.DOCID = D.ID WHERE D.TIPIE IN ('I', 'S', 'E') "
                  "AND ABS(D.TOTALCOST - CASE WHEN D.TIP = 'NR' THEN ABS(L.COST) ELSE L.COST END) > 0.005 * "
                  "L.LINES + 0.000001 ORDER BY D.ID"));
}

// Whether ledger document D belongs to draft H: by its key, or by the key of one of its sides.
QString isOfDraft(const DocumentKind& kind) {
  const QString key = keyExpression(kind.id, QStringLiteral("H.") + kind.numberColumn);
  return ledgerKind(kind.id).hasSides ? QStringLiteral("D.ID IN (%1 || 'E', %1 || 'I')").arg(key)
                                      : QStringLiteral("D.ID = %1").arg(key);
}

void findStornos(Finder& finder) {
  finder.find(QStringLiteral("Factura stornata si stornarea ei nu se potrivesc"), {Place::Document},
              QStringLiteral("SELECT D.ID AS PLACE FROM G_DOCUME D LEFT JOIN G_FACCLI F ON F.NUMFAC = D.OBS "
                             "AND F.STORNAT <> 0 WHERE D.TIP = 'FS' AND COALESCE(D.IsAudio, 0) = 0 AND "
                             "F.NUMFAC IS NULL UNION ALL "
                             "SELECT %1 AS PLACE FROM G_FACCLI F WHERE F.STORNAT <> 0 AND NOT EXISTS "
                             "(SELECT 1 FROM G_DOCUME D WHERE D.TIP = 'FS' AND COALESCE(D.IsAudio, 0) = 0 "
                             "AND D.OBS = F.NUMFAC) ORDER BY 1")
                  .arg(keyExpression(KindId::CustomerInvoice, QStringLiteral("F.NUMFAC"))));
}

// A storno has the notes of its invoice, turned round.
void findStornoNotes(Finder& finder) {
  const QString posted =
      QStringLiteral(
          "SELECT P.FEL AS FEL, P.DOC AS DOC, SUM(ABS(P.DEBIT) + ABS(P.CREDIT)) AS AMOUNT FROM (SELECT %1 AS "
          "FEL, K.DOC AS DOC, K.DEBIT AS DEBIT, K.CREDIT AS CREDIT FROM kt_linii K WHERE K.PROV = 'G') P "
          "WHERE P.FEL IN ('FC', 'FS') GROUP BY P.FEL, P.DOC")
          .arg(kKindOfNote);
  finder.find(
      kWrongNote, {Place::Document},
      QStringLiteral("SELECT D.ID AS PLACE FROM G_DOCUME D LEFT JOIN (%1) S ON S.FEL = 'FS' AND S.DOC = "
                     "%2 LEFT JOIN (%1) N ON N.FEL = 'FC' AND N.DOC = D.OBS WHERE D.TIP = 'FS' AND "
                     "COALESCE(D.IsAudio, 0) = 0 AND ABS(COALESCE(S.AMOUNT, 0) - COALESCE(N.AMOUNT, "
                     "0)) > 0.005 ORDER BY D.ID")
          .arg(posted, numberExpression(QStringLiteral("D.ID"))));
}

// The sides of a transfer move the same goods, out of its warehouse and into the other one.
void findTransfers(Finder& finder) {
  const QString key = keyExpression(KindId::Transfer, QStringLiteral("H.NUMAE"));
  finder.find(
      QStringLiteral("Cele doua parti ale transferului nu se potrivesc"), {Place::Document},
      QStringLiteral(
          "SELECT E.ID AS PLACE FROM G_TRANSFER H INNER JOIN G_DOCUME E ON E.ID = %1 || 'E' INNER JOIN "
          "G_DOCUME I ON I.ID = %1 || 'I' WHERE H.VALIDAT <> 0 AND (COALESCE(E.TIPIE, '') <> 'E' OR "
          "COALESCE(I.TIPIE, '') <> 'I' OR EXISTS (SELECT L.DOCID FROM G_LDOCUM L WHERE L.DOCID IN (E.ID, "
          "I.ID) AND L.CODMAG <> CASE WHEN L.DOCID = E.ID THEN H.Magazie ELSE H.DESTMAGAZIE END) OR EXISTS "
          "(SELECT L.ARTID FROM G_LDOCUM L WHERE L.DOCID IN (E.ID, I.ID) GROUP BY L.ARTID HAVING "
          "ROUND_EVEN(SUM(CASE WHEN L.DOCID = E.ID THEN L.CANT ELSE -L.CANT END), 3) <> 0)) ORDER BY E.ID")
          .arg(key));
}

void findDrafts(Finder& finder) {
  for (const DocumentKind& kind : documentKinds()) {
    if (!kind.rules || !kind.hasDraft) continue;
    const auto withRows = [&kind](const QString& count) {
      return QStringLiteral(
                 "SELECT %1 AS PLACE, COALESCE((SELECT MIN(D.ID) FROM G_DOCUME D WHERE %3), %1) AS TARGET "
                 "FROM %2 H WHERE H.VALIDAT <> 0 AND "
                 "(SELECT COUNT(*) FROM G_DOCUME D WHERE %3) = %4 ORDER BY H.%5")
          .arg(keyExpression(kind.id, QStringLiteral("H.") + kind.numberColumn), kind.headerTable,
               isOfDraft(kind), count, kind.numberColumn);
    };
    const QString missing = QStringLiteral("Document validat fara inregistrare in documente");
    finder.find(missing, {Place::Document, Correction::Draft}, withRows(QStringLiteral("0")));
    if (ledgerKind(kind.id).hasSides) finder.find(missing, {Place::Document}, withRows(QStringLiteral("1")));
    finder.find(QStringLiteral("Inregistrare fara document validat"), {Place::Document},
                QStringLiteral(
                    "SELECT D.ID AS PLACE FROM G_DOCUME D WHERE D.TIP = '%1' AND COALESCE(D.IsAudio, 0) = 0 "
                    "AND NOT EXISTS (SELECT H.%2 FROM %3 H WHERE H.%2 = %4 AND H.VALIDAT <> 0) ORDER BY D.ID")
                    .arg(kind.prefix, kind.numberColumn, kind.headerTable,
                         numberExpression(QStringLiteral("D.ID"), ledgerKind(kind.id).hasSides)));
  }
  finder.find(QStringLiteral("Document fara linii, sau linii fara document"), {Place::Document},
              QStringLiteral("SELECT D.ID AS PLACE FROM G_DOCUME D WHERE NOT EXISTS "
                             "(SELECT L.DOCID FROM G_LDOCUM L WHERE L.DOCID = D.ID) UNION "
                             "SELECT L.DOCID AS PLACE FROM G_LDOCUM L LEFT JOIN G_DOCUME D ON D.ID = L.DOCID "
                             "WHERE D.ID IS NULL ORDER BY PLACE"));
}

}  // namespace

namespace {

void findOfTrade(Finder& finder) {
  if (!otherTrade()) return;
  for (const CheckRule& rule : otherTrade()->checkRules()) finder.find(rule.what, {rule.place}, rule.sql);
}

}  // namespace

std::vector<Disagreement> disagreements(const Progress& progress) {
  const Snapshot moment(database());
  Finder finder;
  std::vector<void (*)(Finder&)> rules = {findStock,  findWarehouseStock, findRemainders,  findNotes,
                                          findCosts,  findStornos,        findStornoNotes, findTransfers,
                                          findDrafts, findOfTrade};
  if (TIPCOST() == kFifo) rules.insert(rules.begin() + 2, findLots);
  const int of = static_cast<int>(rules.size());
  for (int done = 0; done < of; ++done) {
    report(progress, done, of);
    rules[static_cast<size_t>(done)](finder);
  }
  report(progress, of, of);
  return std::move(finder).found();
}

QString disagreementText() {
  QStringList lines;
  for (const Disagreement& found : disagreements())
    lines.append(found.what + QStringLiteral(": ") + found.where);
  return lines.join(u'\n');
}

}  // namespace velmar
