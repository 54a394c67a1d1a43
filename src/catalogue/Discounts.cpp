#include "catalogue/Discounts.h"

#include <limits>

#include "store/Database.h"
#include "store/Records.h"
#include "util/Errors.h"

namespace velmar {

namespace {

constexpr int kHundred = 100;

int wholePercent(const Recordset& found) {
  if (found.isEmpty()) return 0;
  const Decimal percent = Round(found.first().decimal("Discount"), 0);
  if (percent.abs() > Decimal(std::numeric_limits<int>::max()))
    throw ArithmeticError(kOverflow, QStringLiteral("Discountul depaseste limitele de calcul"));
  return static_cast<int>(percent.toDouble());
}

}  // namespace

int DiscountArticol(const QString& code, const Decimal& quantity) {
  const Decimal pieces = Round(quantity, 0);
  return wholePercent(
      OpenRs("SELECT Discount FROM \"Articole - Discounturi\" WHERE CODArticol = ? AND CantMin <= ? AND "
             "CantMax >= ? ORDER BY CantMin, ID_Discount LIMIT 1",
             {code, pieces, pieces}));
}

int DiscountTert(qint64 code) {
  return wholePercent(
      OpenRs("SELECT Discount FROM \"Terti - Discounturi\" WHERE CODTert = ? ORDER BY CODTert", {code}));
}

DiscountedLine discountedLine(const Decimal& unitPrice, const Decimal& articlePercent,
                              const Decimal& partnerPercent, const Decimal& quantity, int decimals) {
  DiscountedLine line;
  line.ValoareFTCuDiscount = Round(unitPrice * (1 - (articlePercent + partnerPercent) / kHundred), decimals);
  line.VALOAREFT = Round(line.ValoareFTCuDiscount * quantity, decimals);
  return line;
}

std::optional<Decimal> partnerDiscount(qint64 code) {
  const Row row = record(companyTable("Terti - Discounturi"), code);
  if (row.isEmpty() || row.isNull("Discount")) return std::nullopt;
  return row.decimal("Discount");
}

void setPartnerDiscount(qint64 code, const std::optional<Decimal>& percent) {
  const Table& table = companyTable("Terti - Discounturi");
  Transaction transaction(database());
  deleteRecord(table, code);
  if (percent) {
    Row row = rowOf("CODTert Discount");
    row.set("CODTert", code);
    row.set("Discount", *percent);
    insertRecord(table, row);
  }
  transaction.commit();
}

}  // namespace velmar
