#include "TradeFill.h"

#include <string>

#include "Fixture.h"

namespace velmar::bench {

namespace {

constexpr const char* kSettings =
    "UPDATE kt_info SET TCOST = 'FIFO'; "
    "UPDATE kt_par SET SERIEFC = 'VEL', FCSTART = '1', FCEND = '9999999', SERIEAE = 'AVZ', "
    "AESTART = '1', AEEND = '99999999'; "
    "UPDATE G_ARTMAG SET PROVENIENTA = 'M'";

// The documents in order: ?1 documents with ?2 articles. One third of those before document ?3 are issues.
const std::string kDocuments =
    "WITH RECURSIVE n (i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < ?1 - 1), "
    "doc (i, tip, tipie, mag, num, zi, rest) AS (SELECT i, CASE WHEN i >= ?3 THEN 'FF' WHEN i % 3 = 0 "
    "THEN 'FC' WHEN i % 3 = 1 THEN 'FF' ELSE 'BI' END, CASE WHEN i < ?3 AND i % 3 = 0 THEN 'E' ELSE 'I' "
    "END, CASE WHEN i >= ?3 THEN 1 ELSE 1 + i / 3 % 3 END, 1000000 + i, "
    "date('2024-03-15', (i * 730 / ?1) || ' days'), CASE WHEN i >= ?3 THEN 7 ELSE 0 END FROM n) ";

// The lines of the documents. They run through all articles again and again, each time in a different order.
const std::string kLines =
    kDocuments +
    ", l (j) AS (SELECT 1 UNION ALL SELECT j + 1 FROM l WHERE j < 20), "
    "turn (i, j, place, t) AS (SELECT i, j, (i * 20 + j - 1) % ?2, (i * 20 + j - 1) / ?2 FROM n, l), "
    "line (i, j, art, pret) AS (SELECT i, j, printf('A%06d', (place * (t * 37 % 900 * 10 + 7) + t * 123) "
    "% ?2 * (10000 / ?2) + 1), 5 + (i * 7 + j) % 40 * 0.25 FROM turn) ";

const std::string kFill[] = {
    kDocuments +
        "INSERT INTO G_DOCUME (ID, TIP, TIPIE, CODTERT, DATADOC, DATAINTROD, TIMP, UTILIZATOR, CODMAG, "
        "TOTALFT, TOTALTVA, TOTALCOST, CODDEV, CURS, TOTALDEV, OBS) "
        "SELECT tip || num, tip, tipie, 1 + i % 100, zi, zi, '10:00:00', 'admin', mag, 1000, 190, 800, "
        "'LEI', "
        "0, 0, 'document' FROM doc",
    kLines +
        "INSERT INTO G_LDOCUM (DOCID, LINIE, DATA, CODMAG, ARTID, CANT, PRETFT, PRETTTI, PRETDEV, VALTVA, "
        "COST, COSTDEV, VALCOST, VALCOSTDEV, CODTVA, CANTRAMASA) "
        "SELECT tip || num, j, zi || ' 10:00:00.000', mag, art, CASE WHEN tipie = 'I' THEN 20 ELSE 5 END, "
        "pret, pret, 0, 1.9, pret, 0, pret * 20, 0, 19, CASE WHEN tipie = 'I' THEN rest END "
        "FROM line JOIN doc USING (i)",
    kDocuments +
        "INSERT INTO G_FACCLI (NUMFAC, SERIE, Magazie, OBS, DATAFAC, DATASCAD, CODCLI, BATVA1, MODREG, "
        "JURNAL, NoteContabile, VALIDAT) "
        "SELECT num, 'VEL', mag, 'vanzare', zi, zi, 1 + i % 100, 2, 4, ' ', -1, -1 FROM doc WHERE tip = 'FC'",
    kLines +
        "INSERT INTO G_LFACCL (NUMFAC, NRLINIE, CODART, DENUMIRE, UM, CANT, PRETFT, ValoareFTCuDiscount, "
        "VALOAREFT, VALOARETVA, VALOARETTI, COST) "
        "SELECT num, j, art, 'Marfa', 'Buc', 5, pret, pret, pret * 5, 1, pret * 5 + 1, pret * 5 "
        "FROM line JOIN doc USING (i) WHERE tip = 'FC'",
    kLines +
        "INSERT INTO G_I_E (ID_E, TIP_E, ID_I, CODART, CANT) SELECT num, tip, 'FF' || (num + 1), art, 5 "
        "FROM line JOIN doc USING (i) WHERE tip = 'FC'"};

constexpr const char* kDraftHeaders =
    "WITH RECURSIVE d (r) AS (SELECT 0 UNION ALL SELECT r + 1 FROM d WHERE r < ?2) "
    "INSERT INTO G_FACCLI (NUMFAC, SERIE, Magazie, OBS, DATAFAC, DATASCAD, CODCLI, BATVA1, MODREG, JURNAL, "
    "NoteContabile) SELECT ?1 * 1000 + r, 'VEL', 1, 'vanzare', '2026-03-15', '2026-04-15', 1 + r % 100, 2, "
    "4, ' ', -1 FROM d";

// Prices are multiples of 0.25, so that their products have exactly two decimals with any arithmetic.
constexpr const char* kDraftLines =
    "WITH RECURSIVE d (r) AS (SELECT 0 UNION ALL SELECT r + 1 FROM d WHERE r < ?2), "
    "n (j) AS (SELECT 1 UNION ALL SELECT j + 1 FROM n WHERE j < ?1), "
    "v (num, j, art, cant, pret) AS (SELECT ?1 * 1000 + r, j, (r * 613 + ?1 + j * 37) % 2000 * 5 + 1, 1 + j "
    "% 9, 20 + (r + j) % 20 * 0.25 FROM d, n) "
    "INSERT INTO G_LFACCL (NUMFAC, NRLINIE, CODART, DENUMIRE, UM, CANT, PRETFT, ValoareFTCuDiscount, "
    "DiscountArticol, DiscountClient, PRETVALUTA, VALOAREFT, VALOARETVA, VALOARETTI, COST) "
    "SELECT num, j, CODART, DENART, 'Buc', cant, pret, pret, 0, 0, 0, cant * pret, "
    "ROUND(cant * pret * 19) / 100, cant * pret + ROUND(cant * pret * 19) / 100, 0 FROM v "
    "JOIN G_ARTMAG ON ID = art";

}  // namespace

void fillTrade(BareConnection& connection, const TradeSize& size) {
  connection.run(kSettings);
  for (const std::string& sql : kFill)
    connection.prepare(sql.c_str())
        .bind(1, size.documents)
        .bind(2, size.articles)
        .bind(3, size.openFrom)
        .run();
  for (const int lines : {kSmallDocument, kLargeDocument})
    for (const char* sql : {kDraftHeaders, kDraftLines})
      connection.prepare(sql).bind(1, lines).bind(2, kDrafts - 1).run();
}

}  // namespace velmar::bench
