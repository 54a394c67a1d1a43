#include "config/Numbers.h"

#include <algorithm>
#include <cmath>

#include "store/Database.h"
#include "store/Schema.h"
#include "util/Errors.h"

namespace velmar {

namespace {

constexpr qint64 kHighest = 9'000'000'000'000'000;  // whole numbers up to here are exact as doubles

struct NamedColumn {
  const char* table;
  const char* column;
};

/// Headers whose number is free text.
const NamedColumn kDocumentNumbers[] = {
    {"g_aecli", "NUMAE"},      {"G_FACCLI", "NUMFAC"},
    {"G_BONCASA", "NUMFAC"},   {"G_FacturiClientiAudio", "NR"},
    {"G_COMANDA_AUDIO", "NR"}, {"G_BonReparatii", "NR"},
    {"G_COMFUR", "NUMCOM"},
};

const NamedColumn kLineKeys[] = {
    {"G_LFACIM", "NUMFAC"}, {"G_LFACFU", "NUMFAC"}, {"G_LFACCL", "NUMFAC"},   {"G_LBONCASA", "NUMFAC"},
    {"G_LNRFUR", "NUMNR"},  {"G_LBONINT", "NUMNR"}, {"G_LPROFO", "NUMPF"},    {"G_LAECLI", "NUMAE"},
    {"G_LBONCON", "NUMAE"}, {"G_LCOMCL", "NUMCOM"}, {"G_LTRANSFER", "NUMAE"}, {"G_LCOMFU", "NUMCOM"},
};

template <size_t Size>
QString columnFor(const NamedColumn (&names)[Size], const QString& table) {
  for (const NamedColumn& name : names)
    if (table == QLatin1String(name.table)) return QLatin1String(name.column);
  return {};
}

qint64 afterHighest(const Recordset& found) {
  const Row& row = found.first();
  if (row.isNull("HIGHEST")) return 1;
  return static_cast<qint64>(std::floor(row.decimal("HIGHEST").toDouble())) + 1;
}

// Document numbers that are keys, in the rows of a table that fulfil a condition.
struct KeyNumbers {
  QString table;
  QString column;
  int prefix = 0;  ///< characters before the number
  QString condition = {};

  QString where(const QString& more) const {
    return condition.isEmpty() ? more : condition + QStringLiteral(" AND ") + more;
  }
};

// The CASE ensures that no engine casts a text that is not numeric.
QString highestNumeric(const QString& number, const QString& from) {
  return QStringLiteral(
             "SELECT MAX(NUMBER) AS HIGHEST FROM (SELECT CASE WHEN IS_NUMERIC(%1) <> 0 "
             "THEN CAST(%1 AS DOUBLE PRECISION) END AS NUMBER FROM %2) AS NUMBERS "
             "WHERE NUMBER BETWEEN -%3 AND %3")
      .arg(number, from, QString::number(kHighest));
}

// Among numbers of digits only, the highest of each length is the last one in the index: one index lookup for
// each length, independent of the number of documents.
QString highestPlain(const KeyNumbers& keys) {
  QStringList lengths;
  for (int length = 1; length <= kPlainDigits; ++length)
    lengths.append(QStringLiteral("SELECT %1 AS LEN").arg(keys.prefix + length));
  const QString last =
      QStringLiteral("SELECT %1 FROM %2 WHERE %3 ORDER BY %1 DESC LIMIT 1")
          .arg(keys.column, keys.table,
               keys.where(QStringLiteral("LENGTH(%1) = LENGTHS.LEN AND %2")
                              .arg(keys.column, plainNumber(keyNumber(keys.column, keys.prefix)))));
  return highestNumeric(keyNumber("LAST", keys.prefix),
                        QStringLiteral("(SELECT (%1) AS LAST FROM (%2) AS LENGTHS) AS LASTS")
                            .arg(last, lengths.join(QStringLiteral(" UNION ALL "))));
}

// Other numeric texts: with signs, fractions, exponents. These are few and have their own index.
QString highestOdd(const KeyNumbers& keys) {
  return highestNumeric(
      keyNumber(keys.column, keys.prefix),
      QStringLiteral("%1 WHERE %2").arg(keys.table, keys.where(oddNumber(keys.column, keys.prefix))));
}

qint64 afterHighestKey(const KeyNumbers& keys) {
  return std::max(afterHighest(OpenRs(highestPlain(keys))), afterHighest(OpenRs(highestOdd(keys))));
}

qint64 afterHighestInLedger(const QString& kind) {
  return afterHighestKey({"G_DOCUME", "ID", 2, QStringLiteral("TIP = '%1'").arg(kind)});
}

void requireNumericCodes() {
  const Recordset found =
      OpenRs("SELECT CODART FROM G_ARTMAG WHERE IS_NUMERIC(CODART) = 0 ORDER BY CODART LIMIT 1");
  if (!found.isEmpty())
    throw StoreError(kConversionFailure,
                     QStringLiteral("Codul de articol \"%1\" nu este un numar, urmatorul cod nu se poate "
                                    "calcula.")
                         .arg(found.first().text("CODART")));
}

qint64 afterHighestOf(const Table& table, const QString& column) {
  if (!table.column(column))
    throw StoreError(0, QStringLiteral("Tabela %1 nu are coloana %2").arg(table.name(), column));
  return afterHighest(OpenRs(QStringLiteral("SELECT MAX(%1) AS HIGHEST FROM %2").arg(column, table.name())));
}

}  // namespace

qint64 NumarUrmator(const QString& table) {
  const Table& known = companyTable(table);
  const QString number = columnFor(kDocumentNumbers, table);
  if (!number.isEmpty()) return afterHighestKey({known.name(), number});
  if (table == QStringLiteral("G_ARTMAG")) {
    requireNumericCodes();
    return afterHighest(OpenRs(highestNumeric("CODART", known.name())));
  }
  return afterHighestOf(known,
                        table == QStringLiteral("kt_linii") ? QStringLiteral("NDI") : QStringLiteral("COD"));
}

qint64 LinieUrmatoare(const QString& table, const QString& number) {
  const QString key = columnFor(kLineKeys, table);
  if (key.isEmpty()) throw StoreError(0, QStringLiteral("Tabela %1 nu are linii de document").arg(table));
  return OpenRs(QStringLiteral("SELECT MAX(NRLINIE) AS HIGHEST FROM %1 WHERE %2 = ?").arg(table, key),
                {number})
      .first()
      .integer("HIGHEST");
}

qint64 FacturaUrmatoare() { return std::max(afterHighestInLedger("FC"), afterHighestInLedger("FS")); }

qint64 BonUrmator() { return afterHighestInLedger("BS"); }

}  // namespace velmar
