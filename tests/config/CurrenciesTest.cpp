#include "config/Currencies.h"

#include "config/Lookups.h"
#include "store/Records.h"
#include "TestCompany.h"

namespace velmar {
namespace {

class CurrenciesTest : public ::testing::Test {
 protected:
  static void enter(const QDate& day, const Decimal& rate) {
    Row row = rowOf("DATA CURS");
    row.set("DATA", day);
    row.set("CURS", rate);
    enterRate("EUR", row);
  }

  TestCompany company_;
  const QDate today_{2026, 3, 15};
  const QDate yesterday_{2026, 3, 14};
};

TEST_F(CurrenciesTest, TheRateOfTheNewestDayIsReplacedThatOfAnOlderDayAdded) {
  enter(today_, 4.9765_dec);
  enter(today_, 4.98_dec);
  EXPECT_EQ(newestRates("EUR").size(), 1);
  EXPECT_EQ(Curs("EUR", today_), 4.98_dec);
  enter(yesterday_, 5.2_dec);
  enter(yesterday_, 4.9_dec);
  EXPECT_EQ(newestRates("EUR").size(), 3);
  EXPECT_EQ(Curs("EUR", yesterday_), 4.9_dec) << "the one entered last is valid, not the highest";
  EXPECT_EQ(newestRates("EUR", 2)[1].decimal("CURS"), 4.9_dec);
  EXPECT_EQ(ratesOf("EUR", yesterday_).size(), 2);
  EXPECT_TRUE(newestRates("USD").isEmpty());
}

TEST_F(CurrenciesTest, OfSeveralRatesOfTheNewestDayTheValidOneIsReplaced) {
  enter(today_, 5);
  enter(yesterday_, 4);
  enter(yesterday_, 4.1_dec);
  ExecutaSql("DELETE FROM kt_val2 WHERE DATA = ?", {today_});
  enter(yesterday_, 4.2_dec);
  EXPECT_EQ(Curs("EUR", yesterday_), 4.2_dec);
  EXPECT_EQ(newestRates("EUR").size(), 2);
}

TEST_F(CurrenciesTest, RatesOfADeletedCurrencyAreKept) {
  enter(today_, 5);
  removeCurrency("EUR");
  EXPECT_EQ(Curs("EUR", today_), 5);
}

}  // namespace
}  // namespace velmar
