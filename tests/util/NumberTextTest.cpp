#include "util/NumberText.h"

#include <gtest/gtest.h>

#include "Printers.h"

namespace velmar {
namespace {

TEST(NumberText, ShowsNumbersTheRomanianWay) {
  EXPECT_EQ(formatNumber(1234.5_dec, 2), "1.234,50");
  EXPECT_EQ(formatNumber(-3, 2), "-3,00");
  EXPECT_EQ(formatNumber(999, 0), "999");
  EXPECT_EQ(formatNumber(-999, 0), "-999");
  EXPECT_EQ(formatNumber(-1000, 0), "-1.000");
  EXPECT_EQ(formatNumber(1234567890.126_dec, 2), "1.234.567.890,13");
  EXPECT_EQ(formatNumber(999999.995_dec, 2), "1.000.000,00");
  EXPECT_EQ(formatNumber(0.125_dec, 2), "0,12");
  EXPECT_EQ(formatNumber(-0.004_dec, 2), "0,00");
  EXPECT_EQ(formatNumber(0, 3), "0,000");
}

TEST(NumberText, AnEditorShowsNoGroupsAndNoTrailingZeros) {
  EXPECT_EQ(editNumber(1234.50_dec), "1234,5");
  EXPECT_EQ(editNumber(1234.5_dec, 2), "1234,50");
  EXPECT_EQ(editNumber(-0.1255_dec, 2), "-0,1255");
  EXPECT_EQ(editNumber(100, 0), "100");
}

TEST(NumberText, ReadsCommaAndPointAlike) {
  EXPECT_EQ(parseNumber(u"1,5"), 1.5_dec);
  EXPECT_EQ(parseNumber(u"1.5"), 1.5_dec);
  EXPECT_EQ(parseNumber(u"1.234"), 1.234_dec);
  EXPECT_EQ(parseNumber(u"1,234"), 1.234_dec);
  EXPECT_EQ(parseNumber(u"  -12,50 "), -12.5_dec);
  EXPECT_EQ(parseNumber(u"007"), 7);
  EXPECT_EQ(parseNumber(u"12,"), 12);
  EXPECT_EQ(parseNumber(u",5"), 0.5_dec);
}

TEST(NumberText, RefusesTextsThatAreNotNumbers) {
  for (const QStringView text :
       std::initializer_list<QStringView>{u"", u"  ", u"1.234,5", u"1,234.5", u"1,2,3", u"abc", u"1e3",
                                          u"1E3", u"--1", u"1 000", u",", u"-", u"12 lei"})
    EXPECT_FALSE(parseNumber(text)) << text.toUtf8().toStdString();
}

TEST(NumberText, TheTextOfAnEditorIsReadBackUnchanged) {
  for (const Decimal& value : {1234567.891_dec, -0.05_dec, Decimal(0), Decimal(1) / 7, 1e20_dec})
    EXPECT_EQ(parseNumber(editNumber(value)), value);
}

TEST(NumberText, RecognizesNumericDocumentNumbers) {
  for (const QStringView text : std::initializer_list<QStringView>{u"12", u" 00012 ", u"-3", u"+4.5", u"1e3",
                                                                   u".5", u"12345678901234567890"})
    EXPECT_TRUE(isNumericText(text)) << text.toUtf8().toStdString();
  for (const QStringView text : std::initializer_list<QStringView>{u"", u" ", u"A12", u"12A", u"12/3", u"1 2",
                                                                   u"1,5", u"1.2.3", u"e3", u"-", u"."})
    EXPECT_FALSE(isNumericText(text)) << text.toUtf8().toStdString();
}

TEST(NumberText, DatesAreDayMonthYear) {
  EXPECT_EQ(formatDate(QDate(2026, 12, 31)), "31.12.2026");
  EXPECT_EQ(formatDate(QDate(2027, 2, 3)), "03.02.2027");
  EXPECT_EQ(formatDate(QDate()), "");
}

}  // namespace
}  // namespace velmar
