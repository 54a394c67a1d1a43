#include "documents/LedgerLists.h"

#include <algorithm>

#include "store/Database.h"
#include "util/Decimal.h"

namespace velmar {

namespace {

// A column of a list that a filter offers, with the table that it comes from.
struct Offered {
  const char* column;
  const char* caption;
  const char* table;
  const char* stored = nullptr;  // its name in the table, if that differs
};

QList<FilterField> fieldsOf(const std::vector<Offered>& columns) {
  QList<FilterField> fields;
  for (const Offered& each : columns) {
    const Column* stored =
        each.table ? companyTable(each.table).column(each.stored ? each.stored : each.column) : nullptr;
    fields.append({each.column, each.caption, stored ? stored->type : ColumnType::Real});
  }
  std::stable_sort(fields.begin(), fields.end(), [](const FilterField& a, const FilterField& b) {
    return a.caption.compare(b.caption, Qt::CaseInsensitive) < 0;
  });
  return fields;
}

constexpr const char* kDocuments = "G_DOCUME";
constexpr const char* kLines = "G_LDOCUM";
constexpr const char* kArticles = "G_ARTMAG";
constexpr const char* kCalculated = nullptr;

// The exact sum of a column with 4 decimals: binary fractions would add up with an error.
QString exactSum(const QString& column) {
  return QStringLiteral("COALESCE(SUM(CAST(ROUND(%1 * 10000) AS BIGINT)), 0) AS %1").arg(column);
}

}  // namespace

const ListQuery& documentList() {
  static const ListQuery list = {
      "ID, G_DOCUME.TIP AS TIP, NUME, DATADOC, LISTAT, VALIDAT, PROCRABAT, VALRABAT, REF, OBS, TOTALTVA, "
      "TOTALFT, TOTALFT + TOTALTVA AS TOTALDOC, TOTALCOST, CODDEV, CURS, TOTALDEV, DATAINTROD, IMP, TIPIE, "
      "G_DOCUME.UTILIZATOR AS UTILIZATOR, TIMP, CODMAG, NUMFACTR, FURTR, TRANSTTI, MODREG, SERIE, DATASCAD, "
      "IsAudio",
      "G_DOCUME LEFT JOIN kt_ter AS T ON G_DOCUME.CODTERT = T.COD", "ID"};
  return list;
}

QList<FilterField> documentFilter() {
  QList<FilterField> fields = fieldsOf({{"DATADOC", "DATA DOCUMENT", kDocuments},
                                        {"ID", "DOCUMENT", kDocuments},
                                        {"TIPIE", "TIP Intrare/Iesire", kDocuments},
                                        {"TOTALCOST", "TOTAL COST", kDocuments},
                                        {"TOTALDEV", "TOTAL DEV", kDocuments},
                                        {"TOTALDOC", "TOTAL DOCUMENT", kCalculated},
                                        {"TOTALFT", "TOTAL FARA TVA", kDocuments},
                                        {"TOTALTVA", "TOTAL TVA", kDocuments},
                                        {"DATAINTROD", "DATA VALIDARE", kDocuments},
                                        {"DATASCAD", "DATA SCADENTA", kDocuments},
                                        {"TIP", "TIP DOCUMENT", kDocuments},
                                        {"NUME", "TERT", "kt_ter"},
                                        {"CODDEV", "DEVIZA", kDocuments},
                                        {"CODMAG", "MAGAZIE", kDocuments},
                                        {"VALIDAT", "VALIDAT", kDocuments},
                                        {"OBS", "OBS", kDocuments},
                                        {"CURS", "CURS", kDocuments},
                                        {"UTILIZATOR", "UTILIZATOR", kDocuments},
                                        {"IsAudio", "ISAUDIO", kDocuments}});
  offerChoices(fields, "CODDEV", "SELECT COD, COD AS DENUMIRE FROM kt_val ORDER BY COD");
  offerChoices(fields, "CODMAG",
               "SELECT COD, DENUMIRE FROM G_MULTIMAGAZIE ORDER BY DENUMIRE NULLS FIRST, COD");
  offerYesNo(fields, "VALIDAT");
  offerYesNo(fields, "IsAudio");
  return fields;
}

const QString& documentLinesSql() {
  static const QString sql = QStringLiteral(
      "SELECT PROCRAB, VALRAB, DOCID, LINIE, DENART, CANT, PRETFT, PRETTTI, PRETDEV, VALTVA, LD.CODTVA AS "
      "CODTVA, LD.COST AS COST, LD.COSTDEV AS COSTDEV, VALCOST, VALCOSTDEV, REFERINTA, DATASOLD, PRETVA, "
      "LD.PALET AS PALET FROM G_LDOCUM AS LD INNER JOIN G_ARTMAG AS A ON LD.ARTID = A.CODART "
      "WHERE DOCID = ? ORDER BY LINIE");
  return sql;
}

const ListQuery& movementList() {
  static const ListQuery list = joinedList(
      "D.CODTERT AS CODTERT, D.TIP AS TIP, DOCID, LINIE, DENART, CANT, PRETFT, PRETTTI, PRETDEV, VALTVA, "
      "LD.CODTVA AS CODTVA, "
      "LD.COST AS COST, LD.COSTDEV AS COSTDEV, VALCOST, VALCOSTDEV, DATA, REFERINTA, DATASOLD, "
      "PRETFT * CANT AS VALOAREFT, PRETTTI * CANT AS VALOARETTI, M.DENUMIRE AS DENUMIRE, "
      "D.UTILIZATOR AS UTILIZATOR, D.TIPIE AS TIPIE, D.SERIE AS SERIE, A.CODART AS CODARTICOL, "
      "A.CODPRODFUR AS CODP, A.DENALTALIMBA AS DENUMIRE2, DATADOC, NUME, CANTRAMASA, PRETVA, "
      "LD.PALET AS PALET, A.FAMART AS FAMILIE",
      "G_LDOCUM AS LD %1 JOIN G_DOCUME AS D ON D.ID = LD.DOCID "
      "%1 JOIN G_MULTIMAGAZIE AS M ON M.COD = LD.CODMAG %1 JOIN G_ARTMAG AS A ON LD.ARTID = A.CODART "
      "LEFT JOIN kt_ter AS T ON D.CODTERT = T.COD",
      {"D.ID", "M.COD", "A.CODART"}, "LD.DOCID, LD.LINIE");
  return list;
}

QList<FilterField> movementFilter() {
  QList<FilterField> fields = fieldsOf({{"CANT", "CANTITATE", kLines},
                                        {"CANTRAMASA", "CANT RAMASA", kLines},
                                        {"COSTDEV", "COST DEVIZA", kLines},
                                        {"DATASOLD", "DATASOLD", kLines},
                                        {"DENART", "ARTICOL DENUMIRE", kArticles},
                                        {"DOCID", "DOCUMENT", kLines},
                                        {"PRETDEV", "PRET DEVIZA", kLines},
                                        {"PRETFT", "PRET FT", kLines},
                                        {"PRETTTI", "PRET TTI", kLines},
                                        {"SERIE", "Serie", kDocuments},
                                        {"DENUMIRE", "Denumire", "G_MULTIMAGAZIE"},
                                        {"LINIE", "Linie", kLines},
                                        {"TIPIE", "I/E", kDocuments},
                                        {"CODTVA", "TVA %", kLines},
                                        {"VALCOST", "VALOARE COST", kLines},
                                        {"VALCOSTDEV", "VALOARE COST DEVIZA", kLines},
                                        {"VALOAREFT", "VALOARE FT", kCalculated},
                                        {"VALOARETTI", "VALOARE TTI", kCalculated},
                                        {"VALTVA", "VALOARE TVA", kLines},
                                        {"CODARTICOL", "ARTICOL", kArticles, "CODART"},
                                        {"DATADOC", "DATA DOCUMENT", kDocuments},
                                        {"CODP", "CODPRODUSFURNIZOR", kArticles, "CODPRODFUR"},
                                        {"DENUMIRE2", "DENUMIRE2", kArticles, "DENALTALIMBA"},
                                        {"FAMILIE", "CODFAMILIE", kArticles, "FAMART"},
                                        {"CODTERT", "TERT", kDocuments}});
  offerChoices(fields, "CODARTICOL", "SELECT CODART, DENART FROM G_ARTMAG ORDER BY DENART, CODART");
  offerChoices(fields, "CODTERT", "SELECT COD, NUME FROM kt_ter ORDER BY NUME NULLS FIRST, COD");
  return fields;
}

MovementTotals movementTotals(Database& connection, const Condition& condition) {
  const ListQuery& list = movementList();
  const QString where = whereOf(condition);
  const Recordset found = connection.query(
      QStringLiteral("SELECT COUNT(*) AS N, %1, %2, %3, %4 FROM (SELECT %5 FROM %6) AS LIST%7")
          .arg(exactSum("VALTVA"), exactSum("VALOAREFT"), exactSum("VALOARETTI"), exactSum("VALCOST"),
               list.columns, list.from, where),
      condition.values);
  const Row& sums = found.first();
  const auto sum = [&sums](const char* column) { return sums.decimal(column) / 10000; };
  return {sums.integer("N"), sum("VALTVA"), sum("VALOAREFT"), sum("VALOARETTI"), sum("VALCOST")};
}

}  // namespace velmar
