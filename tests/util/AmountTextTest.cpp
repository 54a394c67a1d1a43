#include "util/AmountText.h"

#include <gtest/gtest.h>

#include "Printers.h"

namespace velmar {
namespace {

QString words(const Decimal& amount, QString currency = "ROL") { return SumaText(amount, currency); }

TEST(AmountText, JoinsTheWordsOfTheWholePart) {
  EXPECT_EQ(words(0), " leu");
  EXPECT_EQ(words(1), "un leu");
  EXPECT_EQ(words(2), "doi lei");
  EXPECT_EQ(words(10), "zece lei");
  EXPECT_EQ(words(11), "unsprezece lei");
  EXPECT_EQ(words(14), "paisprezece lei");
  EXPECT_EQ(words(17), "saptisprezece lei");
  EXPECT_EQ(words(18), "optisprezece lei");
  EXPECT_EQ(words(21), "douazecisiun lei");
  EXPECT_EQ(words(60), "saizeci lei");
  EXPECT_EQ(words(101), "osutaun lei");
  EXPECT_EQ(words(212), "douasutedoisprezece lei");
  EXPECT_EQ(words(666), "sasesutesaizecisisase lei");
  EXPECT_EQ(words(1000), "omie lei");
  EXPECT_EQ(words(1001), "omieunu lei");
  EXPECT_EQ(words(1021), "omiedouazecisiunu lei");
  EXPECT_EQ(words(1234), "omiedouasutetreizecisipatru lei");
  EXPECT_EQ(words(2000), "douamii lei");
  EXPECT_EQ(words(2002), "douamiidoi lei");
  EXPECT_EQ(words(10000), "zecemii lei");
  EXPECT_EQ(words(21000), "douazecisiomii lei");
  EXPECT_EQ(words(101000), "osutaomii lei");
}

TEST(AmountText, NamesTheLargeGroups) {
  EXPECT_EQ(words(1000000), "unmlion lei");
  EXPECT_EQ(words(1000001), "unmlionunu lei");
  EXPECT_EQ(words(22001000), "douazecisidouamilioaneomie lei");
  EXPECT_EQ(words(1000000000), "unmiliard lei");
  EXPECT_EQ(words(qint64(2000000000)), "douamiliarde lei");
  EXPECT_EQ(words(qint64(1000000000000)), "untrilion lei");
  EXPECT_EQ(words(qint64(2000000000003)), "douatrei lei");  // several of the fifth group have no word
  EXPECT_EQ(words(*Decimal::parse(u"999999999999999.99")),
            "nouasutenouazecisinoua"
            "nouasutenouazecisinouamiliarde"
            "nouasutenouazecisinouamilioane"
            "nouasutenouazecisinouamii"
            "nouasutenouazecisinoua lei si nouazecisinoua bani");
  EXPECT_EQ(words(qint64(1000000000000000)), "un lei");  // a sixth group neither
}

TEST(AmountText, EveryCurrencyHasItsWords) {
  EXPECT_EQ(words(2.50_dec, "RON"), "doi lei noi si cincizeci bani");
  EXPECT_EQ(words(1.01_dec, "RON"), "un leu nou si un ban");
  EXPECT_EQ(words(0.21_dec, "ROL"), " leu si douazecisiunu bani");
  EXPECT_EQ(words(3.10_dec, "ROL"), "trei lei si zece bani");
  EXPECT_EQ(words(1.01_dec, "USD"), "un USS si un US cent");
  EXPECT_EQ(words(12.02_dec, "usd"), "doisprezece USD si doi US centi");
  EXPECT_EQ(words(1.01_dec, "EUR"), "un EUR si un EUR cent");
  EXPECT_EQ(words(5.19_dec, "EUR"), "cinci EUR si nouasprezece EUR centi");
  EXPECT_EQ(words(1.01_dec, "GBP"), "un GBP si un GB pence");
  EXPECT_EQ(words(7.62_dec, "GBP"), "sapte GBP si saizecisidoi GB pences");
  EXPECT_EQ(words(7.05_dec, "CHF"), "sapte si cinci");
  EXPECT_EQ(words(7, ""), "sapte");

  QString currency = "eur";
  SumaText(1, currency);
  EXPECT_EQ(currency, "EUR");
}

TEST(AmountText, RoundsFirstAndWritesTheSign) {
  EXPECT_EQ(words(1.995_dec), "doi lei");  // the tie goes to the even digit
  EXPECT_EQ(words(1.985_dec), "un leu si nouazecisiopt bani");
  EXPECT_EQ(words(0.999_dec), "un leu");
  EXPECT_EQ(words(-2.50_dec, "RON"), "minus doi lei noi si cincizeci bani");
  EXPECT_EQ(words(-0.004_dec), " leu");
}

}  // namespace
}  // namespace velmar
