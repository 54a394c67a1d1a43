#include "util/Decimal.h"

#include <gtest/gtest.h>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>

#include "Printers.h"
#include "util/Errors.h"

namespace velmar {
namespace {

TEST(Decimal, TakesADoubleByItsShortestDigits) {
  EXPECT_EQ(Decimal::fromDouble(19.99), 19.99_dec);
  EXPECT_EQ(Decimal::fromDouble(1.005) * 100, 100.5_dec);
  EXPECT_EQ(Decimal::fromDouble(-0.1) - Decimal::fromDouble(0.2), -0.3_dec);
  EXPECT_EQ(Decimal::fromDouble(2251799813685248.5).toString(), "2251799813685248.5");
  EXPECT_EQ(Decimal::fromDouble(1e23).toString(), "100000000000000000000000");
  EXPECT_EQ(Decimal::fromDouble(-0.0).toString(), "0");
}

TEST(Decimal, RoundsTiesToTheEvenDigit) {
  EXPECT_EQ(Round(2.675_dec, 2), 2.68_dec);
  EXPECT_EQ(Round(0.125_dec, 2), 0.12_dec);
  EXPECT_EQ(Round(0.12500001_dec, 2), 0.13_dec);
  EXPECT_EQ(Round(-2.5_dec, 0), -2);
  EXPECT_EQ(Round(-3.5_dec, 0), -4);
  EXPECT_EQ(Round(-0.125_dec, 2), -0.12_dec);
  EXPECT_EQ(Round(9.995_dec, 2), 10);
  EXPECT_EQ(Round(7, 2), 7);
  EXPECT_EQ(Round(1e40_dec, 2), 1e40_dec);
  const Decimal vanished = Round(-0.004_dec, 2);
  EXPECT_TRUE(vanished.isZero());
  EXPECT_FALSE(vanished.isNegative());
  EXPECT_EQ(vanished.toString(), "0");
}

TEST(Decimal, RoundsTheVatOfALineAsByHand) {
  // 85 x 2.5 = 212.5; 19 percent of it is 40.375, a tie between 40.37 and 40.38.
  EXPECT_EQ(Round(Decimal(85) * 2.5_dec * 19 / 100, 2), 40.38_dec);
}

TEST(Decimal, ADivisionsRemainderDecidesNoTie) {
  // Cost 3 sold at 6.50: the mark-up is 116.666... percent, and cost times mark-up is exactly 6.5
  // again.
  const Decimal markUp = (6.5_dec - 3) / 3 * 100;
  EXPECT_EQ(Round(Decimal(3) * (1 + markUp / 100), 0), 6);
}

TEST(Decimal, RoundLooksAtTwentyEightDigitsOnly) {
  EXPECT_EQ(Round(0.125000000000000000000000000_dec + 1e-28_dec, 2), 0.13_dec);  // 26th significant digit
  EXPECT_EQ(Round(0.125_dec + 1e-29_dec, 2), 0.12_dec);                          // 29th
  EXPECT_EQ(Round(1234567890123456789012345678.5_dec, 1), 1234567890123456789012345678_dec);
  EXPECT_EQ(Round(9999999999999999999999999999.5_dec, 0), 10000000000000000000000000000_dec);
  EXPECT_EQ(Round(-1234567890123456789012345678900005_dec, 0), -1234567890123456789012345679000000_dec);
  EXPECT_EQ(Round(Decimal(2) / 3, 33), 0.6666666666666666666666666667_dec);
}

TEST(Decimal, DividingByZeroIsErrorEleven) {
  for (const Decimal& zero : {Decimal(), Decimal::fromDouble(-0.0), 1.10_dec - 1.1_dec, -Decimal(0)}) {
    for (const Decimal& dividend : {Decimal(5), Decimal(0)}) {
      try {
        (void)(dividend / zero);
        FAIL() << "no error";
      } catch (const ArithmeticError& error) {
        EXPECT_EQ(error.number(), 11);
        EXPECT_EQ(error.text(), "Impartire la zero");
      }
    }
  }
}

TEST(Decimal, RefusesValuesThatAreNotFinite) {
  EXPECT_THROW(Decimal::fromDouble(std::numeric_limits<double>::infinity()), ArithmeticError);
  EXPECT_THROW(Decimal::fromDouble(std::nan("")), ArithmeticError);
  EXPECT_THROW((1e400_dec).toDouble(), ArithmeticError);
  const Decimal large = 1e4000_dec;
  EXPECT_THROW(large * large, ArithmeticError);
}

TEST(Decimal, LongSumsStayExact) {
  Decimal sum;
  for (int line = 0; line < 100000; ++line) sum += Decimal::fromDouble(0.01);
  EXPECT_EQ(sum, 1000);

  // Lines of different sizes and signs, against whole numbers of bani.
  std::mt19937_64 random(176);
  std::uniform_int_distribution<qint64> bani(-99999999, 99999999);
  Decimal total;
  qint64 expected = 0;
  for (int line = 0; line < 1000000; ++line) {
    const qint64 amount = bani(random);
    expected += amount;
    total += Decimal::fromDouble(static_cast<double>(amount) / 100);
  }
  EXPECT_EQ(total * 100, expected);
}

TEST(Decimal, EveryDoubleIsConvertedBackUnchanged) {
  std::mt19937_64 random(2026);
  for (int trial = 0; trial < 100000; ++trial) {
    const std::uint64_t bits = random();
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    if (!std::isfinite(value)) continue;
    ASSERT_EQ(Decimal::fromDouble(value).toDouble(), value);
  }
  for (const double edge :
       {5e-324, 2.2250738585072014e-308, 1.7976931348623157e308, 9007199254740993.0, 1e22, 1e23})
    EXPECT_EQ(Decimal::fromDouble(-edge).toDouble(), -edge);
}

TEST(Decimal, ResultsOfThirtyFourDigitsRoundToTheNearestDouble) {
  std::mt19937_64 random(34);
  std::uniform_real_distribution<double> amount(-1e6, 1e6);
  for (int trial = 0; trial < 20000; ++trial) {
    const Decimal quotient = Decimal::fromDouble(amount(random)) / Decimal::fromDouble(amount(random));
    const std::string text = quotient.toString().toStdString();
    double nearest = 0;
    std::from_chars(text.data(), text.data() + text.size(), nearest);
    ASSERT_EQ(quotient.toDouble(), nearest) << text;
  }
  // Halfway between two doubles, and slightly to either side.
  EXPECT_EQ((9007199254740993_dec).toDouble(), 9007199254740992.0);
  EXPECT_EQ((9007199254740993.000000000000000001_dec).toDouble(), 9007199254740994.0);
  EXPECT_EQ((9007199254740994.999999999999999999_dec).toDouble(), 9007199254740994.0);
  EXPECT_EQ((9007199254740995_dec).toDouble(), 9007199254740996.0);
}

TEST(Decimal, ComparesByValueWithoutTrailingZeros) {
  EXPECT_EQ(6.50_dec, 6.5_dec);
  EXPECT_EQ(600_dec, 6e2_dec);
  EXPECT_EQ(0.00_dec, Decimal());
  EXPECT_LT(-1.5_dec, -1.49_dec);
  EXPECT_LT(-0.01_dec, 0);
  EXPECT_GT(10_dec, 9.999_dec);
  EXPECT_LE(1.10_dec, 1.1_dec);
  EXPECT_TRUE((-0.5_dec).isNegative());
  EXPECT_EQ((-0.5_dec).abs(), 0.5_dec);
  EXPECT_FALSE((Decimal(-3) * 0).isNegative());
  EXPECT_FALSE((-Decimal()).isNegative());
}

TEST(Decimal, WritesPlainNotation) {
  EXPECT_EQ((12.50_dec).toString(), "12.5");
  EXPECT_EQ((-0.001_dec).toString(), "-0.001");
  EXPECT_EQ((100_dec).toString(), "100");
  EXPECT_EQ((100.00_dec).toString(), "100");
  EXPECT_EQ((1e3_dec).toString(), "1000");
  EXPECT_EQ((Decimal(1) / 3).toString(), "0.3333333333333333333333333333333333");
  EXPECT_EQ(Decimal(std::numeric_limits<qint64>::min()).toString(), "-9223372036854775808");
}

TEST(Decimal, ReadsNumbersAndNothingElse) {
  EXPECT_EQ(Decimal::parse(u"-12.50"), -12.5_dec);
  EXPECT_EQ(Decimal::parse(u"+1.5E-3"), 0.0015_dec);
  EXPECT_EQ(Decimal::parse(u".5"), 0.5_dec);
  EXPECT_EQ(Decimal::parse(u"5."), 5);
  EXPECT_EQ(Decimal::parse(u"0000000000000000000000000000000000000000000.10"), 0.1_dec);
  EXPECT_EQ(Decimal::parse(u"-0")->isNegative(), false);
  const QString ones = "0." + QString(33, u'1');
  EXPECT_EQ(Decimal::parse(ones + "2" + QString(200, u'5')), Decimal::parse(ones + "3"));
  for (const QStringView text : std::initializer_list<QStringView>{
           u"", u" ", u".", u"-", u"+-1", u"--1", u"1.2.3", u"1,5", u"1 ", u"1e", u"1e+", u"e3", u"abc",
           u"inf", u"NaN", u"0x10", u"\u0661", u"1e99999"})
    EXPECT_FALSE(Decimal::parse(text)) << text.toUtf8().toStdString();
}

}  // namespace
}  // namespace velmar
