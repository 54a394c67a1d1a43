// The engine's sums of a million amounts, compared with the exact sums of the same cells: they must be equal
// to the ban (0.01 lei).
#include "Benches.h"
#include "store/Database.h"

namespace velmar::bench {

namespace {

struct Summed {
  const char* table;
  const char* amount;
  const char* group;
};

constexpr Summed kSums[] = {
    {"G_LDOCUM", "VALCOST", "CODMAG"}, {"kt_linii", "DEBIT", "CONT"}, {"kt_linii", "CREDIT", "CONT"}};

QHash<QString, Decimal> exactSums(const Summed& summed) {
  QHash<QString, Decimal> sums;
  database().each(QStringLiteral("SELECT %1, %2 FROM %3").arg(summed.group, summed.amount, summed.table),
                  [&sums](std::vector<QVariant>&& cells) {
                    Decimal& sum = sums[cells[0].toString()];
                    sum = sum + Decimal::fromDouble(cells[1].toDouble());
                  });
  return sums;
}

// Compares the sums of the groups, and the total.
bool agree(const Summed& summed) {
  const QHash<QString, Decimal> exact = exactSums(summed);
  const QString sum = QStringLiteral("ROUND_EVEN(SUM(%1), 2) AS TOTAL FROM %2")
                          .arg(QLatin1String(summed.amount), QLatin1String(summed.table));
  int different = 0;
  Decimal total;
  const Recordset groups = OpenRs(QStringLiteral("SELECT %1, %2 GROUP BY %1").arg(summed.group, sum));
  for (const Row& row : groups) {
    const Decimal own = exact.value(row.at(0).toString());
    different += row.decimal("TOTAL") != own;
    total = total + own;
  }
  const Decimal whole = OpenRs(QStringLiteral("SELECT ") + sum).first().decimal("TOTAL");
  const bool held = different == 0 && groups.size() == exact.size() && whole == total;
  printRow(QStringLiteral("%1.%2").arg(QLatin1String(summed.table), QLatin1String(summed.amount)),
           {total.toString(), whole.toString(), QString::number(groups.size()),
            held ? QStringLiteral("in regula") : QStringLiteral("GRESIT")});
  return held;
}

}  // namespace

bool checkSums(Store store) {
  const OpenCompany company(copyOfCompany(store, CompanySize::MillionLines, QStringLiteral("sume.mdb")));
  printHeading(
      store, QStringLiteral("sums: un milion de sume"),
      {QStringLiteral("exact"), QStringLiteral("SUM"), QStringLiteral("grupe"), QStringLiteral("la ban")});
  bool held = true;
  for (const Summed& summed : kSums) held = agree(summed) && held;
  return held;
}

}  // namespace velmar::bench
