#include "DraftFill.h"

#include <string>

#include "documents/kinds/Kinds.h"
#include "Fixture.h"

namespace velmar::bench {

namespace {

constexpr int kNotesOfInvoice = 100;
constexpr int kOldDocuments = 10'000;

// ?1 the number of lines, ?2 the last draft, ?3 the first number. All lines have different articles. Prices
// are whole, so that no amount depends on the way of rounding.
const std::string kValues =
    "WITH RECURSIVE d (r) AS (SELECT 0 UNION ALL SELECT r + 1 FROM d WHERE r < ?2), "
    "n (j) AS (SELECT 1 UNION ALL SELECT j + 1 FROM n WHERE j < ?1), "
    "v (num, r, j, art, cant, pret) AS (SELECT ?3 + r, r, j, (r * 220 + (?1 > 20) * 20 + j - 1) * 5 + 1, "
    "1 + j % 9, 20 + (r + j) % 20 FROM d, n), "
    "w AS (SELECT *, cant * pret AS val, cant * pret * 0.19 AS tva, 33 AS tot, 33 * pret AS valtot, 33 * "
    "pret * 0.19 AS tvatot FROM v JOIN G_ARTMAG ON ID = art) ";

// The columns that a kind has besides those of all kinds, with their values.
struct Filled {
  const char* prefix;
  const char* header;
  const char* headerValues;
  const char* lines;
  const char* quantity;
  const char* lineValues;
};

constexpr const char* kSaleLines =
    "PRETFT, ValoareFTCuDiscount, DiscountArticol, DiscountClient, PRIXUV, VALOAREFT, VALOARETVA, VALOARETTI";

const std::string kNoteLines = std::string(kSaleLines) + ", CANTRAMAS, VALOARECOST";

const Filled kFilled[] = {
    {"NR", "CODFUR, BATVA, NoteContabile", "1 + r % 100, 19, -1", "QTECOM, PRETFT, PRETFTV, VALOAREFT",
     "cant", "cant, pret, pret * 1.5, val"},
    {"CF", "CODFUR, BATVA1, DATALIV", "1 + r % 100, 19, '2026-03-20'", "PRETFT, VALOAREFT", "cant",
     "pret, val"},
    {"CC", "CODCLI, BATVA1, DATALIV", "1 + r % 100, 19, '2026-03-20'",
     "PRETFT, PRIXUV, VALOAREFT, VALOARETVA, VALOARETTI", "cant", "pret, 0, val, tva, val + tva"},
    {"PR", "CODCLI, BATVA", "1 + r % 100, 19", kSaleLines, "cant",
     "pret, pret, 0, 0, 0, val, tva, val + tva"},
    {"BT", "DESTMAGAZIE", "2", "PRETFT, PRETVA, VALOAREFT", "cant", "pret, pret * 1.5, val"},
    {"AE", "CODCLI, BATVA1", "1 + r % 100, 19", kNoteLines.c_str(), "tot",
     "pret, pret, 0, 0, 0, valtot, tvatot, valtot + tvatot, tot, 0"}};

// `columns` with their `values` come behind those of the kind.
std::string headersOf(const Filled& filled, const QString& columns = {}, const QString& values = {}) {
  const DocumentKind& kind = documentKind(QLatin1String(filled.prefix));
  return kValues + QStringLiteral(
                       "INSERT INTO %1 (%2, Magazie, %3, %4, %5%7) SELECT num, 1, 'vanzare', "
                       "'2026-03-15', %6%8 FROM v WHERE j = 1")
                       .arg(kind.headerTable, kind.numberColumn, kind.remarkColumn, kind.dateColumn,
                            QLatin1String(filled.header), QLatin1String(filled.headerValues), columns, values)
                       .toStdString();
}

std::string linesOf(const Filled& filled) {
  const DocumentKind& kind = documentKind(QLatin1String(filled.prefix));
  return kValues + QStringLiteral(
                       "INSERT INTO %1 (%2, NRLINIE, CODART, DENUMIRE, UM, CANT, %3) SELECT num, j, "
                       "CODART, DENART, 'Buc', %4, %5 FROM w")
                       .arg(kind.lineTable, kind.numberColumn, QLatin1String(filled.lines),
                            QLatin1String(filled.quantity), QLatin1String(filled.lineValues))
                       .toStdString();
}

// Invoices without lines, and their notes.
const std::string kInvoicesOfNotes[] = {
    kValues +
        "INSERT INTO G_FACCLI (NUMFAC, SERIE, Magazie, OBS, DATAFAC, DATASCAD, CODCLI, BATVA1, MODREG, "
        "JURNAL, "
        "NoteContabile) SELECT num, 'VEL', 1, 'vanzare', '2026-03-15', '2026-04-15', 1 + r % 100, 2, 4, ' ', "
        "-1 "
        "FROM v WHERE j = 1",
    kValues +
        "INSERT INTO G_AECLI (NUMAE, Magazie, OBSERV, DATAAE, CODCLI, BATVA1, VALIDAT) "
        "SELECT num * 100 + (j - 1) / 4, 1, 'vanzare', '2026-03-10', 1 + r % 100, 19, -1 FROM v WHERE j % 4 "
        "= 1",
    kValues + "INSERT INTO G_LAECLI (NUMAE, NRLINIE, CODART, DENUMIRE, UM, CANT, " + kNoteLines +
        ") SELECT num * 100 + (j - 1) / 4, 1 + (j - 1) % 4, CODART, DENART, 'Buc', cant, pret, pret, 0, 0, "
        "0, "
        "val, tva, val + tva, cant, cant * 8 FROM w"};

constexpr const char* kNotesToLedger =
    "INSERT INTO G_DOCUME (ID, TIP, TIPIE, CODTERT, DATADOC, DATAINTROD, TIMP, UTILIZATOR, CODMAG, TOTALFT, "
    "TOTALTVA, TOTALCOST, CODDEV, CURS, TOTALDEV, OBS) SELECT 'AE' || NUMAE, 'AE', 'E', CODCLI, DATAAE, "
    "DATAAE, "
    "'10:00:00', 'admin', Magazie, 0, 0, 0, 'LEI', 0, 0, OBSERV FROM G_AECLI WHERE VALIDAT = -1; "
    "INSERT INTO G_LDOCUM (DOCID, LINIE, DATA, CODMAG, ARTID, CANT, PRETFT, PRETTTI, PRETDEV, VALTVA, COST, "
    "COSTDEV, VALCOST, VALCOSTDEV, CODTVA, CANTRAMASA) SELECT 'AE' || L.NUMAE, NRLINIE, DATAAE || ' "
    "10:00:00.000', 1, CODART, CANT, PRETFT, PRETFT, 0, VALOARETVA, 8, 0, VALOARECOST, 0, 19, CANT FROM "
    "G_LAECLI "
    "L JOIN G_AECLI A ON A.NUMAE = L.NUMAE WHERE VALIDAT = -1";

}  // namespace

const char* const kFillFromNotes =
    "INSERT INTO G_LFACCL (NUMFAC, NRLINIE, CODART, DENUMIRE, UM, CANT, CANTAVIZ, PRETFT, "
    "ValoareFTCuDiscount, "
    "DiscountArticol, DiscountClient, PRETVALUTA, NUMAE, COST, VALOAREFT, VALOARETVA, VALOARETTI) "
    "SELECT H.NUMFAC, COALESCE((SELECT MAX(NRLINIE) FROM G_LFACCL WHERE NUMFAC = H.NUMFAC), 0) + "
    "ROW_NUMBER() "
    "OVER (ORDER BY A.NUMAE, A.NRLINIE), CODART, DENUMIRE, UM, CANTRAMAS, CANTRAMAS, PRETFT, "
    "ValoareFTCuDiscount, DiscountArticol, DiscountClient, PRIXUV, 'AE' || A.NUMAE, VALOARECOST * CANTRAMAS "
    "/ "
    "CANT, ValoareFTCuDiscount * CANTRAMAS, ValoareFTCuDiscount * CANTRAMAS * 19 / 100, "
    "ValoareFTCuDiscount * CANTRAMAS * 119 / 100 FROM G_FACCLI H, G_LAECLI A WHERE H.NUMFAC = ? AND A.NUMAE "
    "BETWEEN ? AND ? AND CANTRAMAS > 0";

int firstNote(int invoice) { return invoice * kNotesOfInvoice; }

void fillDrafts(BareConnection& connection) {
  const auto fill = [&connection](const std::string& sql, int lines, int first) {
    connection.prepare(sql.c_str()).bind(1, lines).bind(2, kKindDrafts - 1).bind(3, first).run();
  };
  for (const int lines : {kSmallDocument, kLargeDocument}) {
    for (const Filled& filled : kFilled)
      for (const std::string& sql : {headersOf(filled), linesOf(filled)})
        fill(sql, lines, draftNumber(lines, 0).toInt());
    for (const std::string& sql : kInvoicesOfNotes)
      fill(sql, lines, draftNumber(lines, kFirstOfNotes).toInt());
  }
  connection.run(kNotesToLedger);
}

void fillOldDocuments(BareConnection& connection) {
  constexpr int kFirst = 5'000'000;
  for (const Filled& filled : kFilled) {
    const QString prefix = QLatin1String(filled.prefix);
    const QString closed = prefix == u"AE"   ? QStringLiteral(", FACTURAT")
                           : prefix == u"CF" ? QStringLiteral(", SOLDAT")
                                             : QString();
    const QString values = closed.isEmpty() ? QStringLiteral(", -1") : QStringLiteral(", -1, -1");
    connection.prepare(headersOf(filled, QStringLiteral(", VALIDAT") + closed, values).c_str())
        .bind(1, 1)
        .bind(2, kOldDocuments - 1)
        .bind(3, kFirst)
        .run();
    const DocumentKind& kind = documentKind(prefix);
    connection.run(qPrintable(
        QStringLiteral("INSERT INTO %1 (%2, NRLINIE, CODART, CANT) SELECT %2, 1, printf('A%06d', 1 + "
                       "%2 % %4), 0 FROM %3 WHERE VALIDAT = -1 AND %2 BETWEEN '5000000' AND '5999999' "
                       "AND LENGTH(%2) = 7")
            .arg(kind.lineTable, kind.numberColumn, kind.headerTable)
            .arg(kOldDocuments)));
  }
}

}  // namespace velmar::bench
