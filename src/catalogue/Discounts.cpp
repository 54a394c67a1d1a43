#include "catalogue/Discounts.h"

#include <limits>

#include "config/Session.h"
#include "store/Database.h"
#include "store/Records.h"
#include "store/RoundedSql.h"
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

// Lines of an invoice that is still a draft; takes the invoice's number.
const QString kDraftLines =
    QStringLiteral("NUMFAC IN (SELECT NUMFAC FROM G_FACCLI WHERE NUMFAC = ? AND VALIDAT = 0)");

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

int recomputeInvoiceDiscounts(const QString& number, const Decimal& partnerPercent) {
  Transaction transaction(database());
  ExecutaSql("UPDATE G_LFACCL SET DiscountClient = ?, DiscountArticol = 0 WHERE " + kDraftLines,
             {partnerPercent, number});
  // Bands of one article do not overlap; where a file brings some that do, the first one counts.
  ExecutaSql(
      "UPDATE G_LFACCL SET DiscountArticol = COALESCE(B.Discount, 0) FROM \"Articole - Discounturi\" B "
      "WHERE B.CODArticol = G_LFACCL.CODART AND G_LFACCL.CANT BETWEEN B.CantMin AND B.CantMax AND "
      "NOT EXISTS (SELECT E.ID_Discount FROM \"Articole - Discounturi\" E WHERE "
      "E.CODArticol = G_LFACCL.CODART AND G_LFACCL.CANT BETWEEN E.CantMin AND E.CantMax AND "
      "(E.CantMin < B.CantMin OR (E.CantMin = B.CantMin AND E.ID_Discount < B.ID_Discount))) AND " +
          kDraftLines,
      {number});
  const QString price =
      roundedSql(QStringLiteral("PRETFT * (100 - DiscountArticol - DiscountClient) / 100.0"), "?");
  const int lines = ExecutaSql(
      QStringLiteral("UPDATE G_LFACCL SET ValoareFTCuDiscount = %1 WHERE %2").arg(price, kDraftLines),
      {session().NrZec, number});
  transaction.commit();
  return lines;
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
