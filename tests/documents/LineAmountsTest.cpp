// The amounts of a line: what follows a changed VAT rate, what remains as typed, what is refused.
#include <gtest/gtest.h>

#include "store/Database.h"
#include "Trade.h"
#include "util/Errors.h"

namespace velmar {
namespace {

QString stored(const QString& sql) {
  const Recordset found = OpenRs(sql);
  return found.isEmpty() ? QStringLiteral("-") : found.first().decimal("V").toString();
}

TEST(LineAmountsTest, AllLinesFollowAChangedRateAndNothingElseChangesATypedVat) {
  Trade trade("MP");
  trade.article("S", "18", true, false);
  // The rate of an invoice changes to 0 and is not saved: 18 without VAT.
  DocumentEditor sale("FC");
  Trade::draft(sale, trade.sale("1"), {Trade::out("S", "1")});
  EXPECT_EQ(sale.total("VALOARETVA").toString(), "3.42");
  TypedTexts header = sale.headerTexts();
  header.insert("BATVA1", "12");
  EXPECT_TRUE(sale.headerTyped(header));
  EXPECT_EQ(sale.total("VALOARETVA"), Decimal(0));
  EXPECT_EQ(stored("SELECT VALOARETVA AS V FROM G_LFACCL WHERE NUMFAC = '1'"), "3.42");
  ASSERT_TRUE(Trade::validate(sale));
  EXPECT_EQ(Trade::note("1"), QStringList({"1 C 707 18", "1 D 411 18"}));
  EXPECT_EQ(stored("SELECT TOTALTVA AS V FROM G_DOCUME WHERE ID = 'FC1'"), "0");
  EXPECT_EQ(stored("SELECT VALOARETTI AS V FROM G_LFACCL WHERE NUMFAC = '1'"), "18");

  // A purchase of 30 with a typed VAT of 5.71: saving keeps it, and so does changing to 9 % and back.
  DocumentEditor purchase("FF");
  Trade::draft(purchase, trade.purchase("2"), {Trade::bought("S", "3", "10", "18")});
  purchase.setNumber(0, "VALOARETVA", "5.71");
  header = purchase.headerTexts();
  purchase.save(header);
  TypedTexts lower = header;
  lower.insert("BATVA1", "7");
  purchase.headerTyped(lower);
  EXPECT_EQ(purchase.total("VALOARETVA").toString(), "2.7");
  purchase.headerTyped(header);
  EXPECT_EQ(purchase.total("VALOARETVA").toString(), "5.71");
  // Header and lines are stored in one transaction.
  ExecutaSql("ALTER TABLE G_LFACFU RENAME TO G_LFACFU_X");
  EXPECT_ANY_THROW(purchase.save(lower));
  ExecutaSql("ALTER TABLE G_LFACFU_X RENAME TO G_LFACFU");
  EXPECT_EQ(stored("SELECT BATVA1 AS V FROM G_FACFUR WHERE NUMFAC = '2'"), "1");
  purchase.save(lower);
  EXPECT_EQ(stored("SELECT BATVA1 AS V FROM G_FACFUR WHERE NUMFAC = '2'"), "7");
  EXPECT_EQ(stored("SELECT VALOARETVA AS V FROM G_LFACFU WHERE NUMFAC = '2'"), "2.7");
  // A line typed under a rate that is not saved yet also stores the header and the other lines.
  purchase.headerTyped(header);
  purchase.setNumber(0, "CANT", "4");
  EXPECT_EQ(stored("SELECT BATVA1 AS V FROM G_FACFUR WHERE NUMFAC = '2'"), "1");
  EXPECT_EQ(stored("SELECT VALOARETVA AS V FROM G_LFACFU WHERE NUMFAC = '2'"), "7.6");
}

// The header of these kinds has a percent: 60 at 9 percent, changed and not saved.
TEST(LineAmountsTest, LinesFollowAPercentThatIsNotSaved) {
  Trade trade("MP");
  trade.article("S", "30", true, false);
  for (const auto& [kind, lines] : {std::pair("PR", "G_LPROFO"), std::pair("CC", "G_LCOMCL")}) {
    DocumentEditor editor(kind);
    Trade::draft(editor, {{editor.kind().numberColumn, "1"}, {"CODCLI", QString::number(trade.customer)}},
                 {Trade::out("S", "2")});
    TypedTexts header = editor.headerTexts();
    const QString percent = editor.kind().field(HeaderFieldType::Percent)->key();
    header.insert(percent, "9");
    ASSERT_TRUE(editor.checkValidation(header));
    EXPECT_EQ(editor.total("VALOARETVA").toString(), "5.4");
    editor.validate(header);
    const QString table = lines;
    EXPECT_EQ(stored("SELECT SUM(VALOARETVA) AS V FROM " + table), "5.4");
    EXPECT_EQ(stored(QString("SELECT SUM(VALTVA) AS V FROM G_LDOCUM WHERE DOCID LIKE '%1%'").arg(kind)),
              "5.4");
  }
}

TEST(LineAmountsTest, TypedAmountsAreKeptAndImpossibleOnesRefused) {
  Trade trade("MP");
  trade.article("S", "60", true, false);
  DocumentEditor sale("FC");
  Trade::draft(sale, trade.sale("1"), {Trade::out("S", "1")});
  sale.setNumber(0, "ValoareFTCuDiscount", "50");
  sale.checkValidation(sale.headerTexts());
  EXPECT_EQ(sale.total("VALOARETTI").toString(), "59.5");
  sale.setNumber(0, "CANT", "2.12345");
  EXPECT_EQ(stored("SELECT CANT AS V FROM G_LFACCL"), "2.123");
  // 60 and 50 percent off.
  ExecutaSql(
      "INSERT INTO \"Articole - Discounturi\" (CodArticol, CantMin, CantMax, Discount) VALUES ('S', 3, 9, "
      "60)");
  ExecutaSql("INSERT INTO \"Terti - Discounturi\" (CODTert, Discount) VALUES (?, 50)", {trade.customer});
  const QString tooHigh = "Discounturile depasesc 100% pentru articolul S !";
  EXPECT_EQ(sale.check(0, "CANT", "5", false).text, tooHigh);
  EXPECT_FALSE(sale.check(0, "CANT", "2", false).refused);
  ExecutaSql("UPDATE G_LFACCL SET DiscountArticol = 60, DiscountClient = 50, ValoareFTCuDiscount = -6");
  EXPECT_TRUE(sale.followStored(sale.headerTexts()));
  try {
    Trade::validate(sale);
    FAIL() << "a price below 0";
  } catch (const RuleError& error) {
    EXPECT_EQ(error.text(), tooHigh);
  }

  TypedTexts voucher = trade.consumption("3");
  voucher.insert("BATVA1", "19,5");
  trade.article("M", "5");
  trade.validated("FF", trade.purchase("4"), {Trade::bought("M", "2", "3", "5")});
  trade.validated("BC", voucher, {Trade::out("M", "1")});
  EXPECT_EQ(stored("SELECT BATVA1 AS V FROM G_BONCON"), "19.5");
}

}  // namespace
}  // namespace velmar
