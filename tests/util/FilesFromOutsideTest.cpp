#include <gtest/gtest.h>

#include "config/BankRates.h"
#include "util/Errors.h"
#include "util/WorkingDays.h"
#include "util/ZipText.h"
#include "Zipped.h"

namespace velmar {

namespace {

TEST(FilesFromOutside, ArchivesHaveLimits) {
  const auto entries = unzipped(zipped({{"../../etc/a.xml", "<a/>"}, {"b/", ""}, {"b\\c.xml", "<c/>"}}));
  ASSERT_EQ(entries.size(), 2U);
  EXPECT_EQ(entries[0].name, "a.xml");
  EXPECT_EQ(entries[1].name, "c.xml");
  EXPECT_EQ(entries[1].content, "<c/>");
  EXPECT_THROW(unzipped(zipped({{"a.xml", "<a/>"}}, true)), RuleError);
  EXPECT_THROW(unzipped(zipped({{"bomb.xml", QByteArray(21LL * 1024 * 1024, ' ')}})), RuleError);
  std::vector<std::pair<const char*, QByteArray>> many;
  std::vector<std::string> names;
  for (int i = 0; i < 1001; ++i) names.push_back(std::to_string(i));
  for (const std::string& name : names) many.emplace_back(name.c_str(), "x");
  EXPECT_THROW(unzipped(zipped(many)), RuleError);
  QByteArray damaged = zipped({{"a.xml", "<a/>"}});
  for (qsizetype i = 0; i < damaged.size(); ++i) {
    QByteArray changed = damaged;
    changed[i] = static_cast<char>(changed[i] ^ 0x5A);
    try {
      unzipped(changed);
    } catch (const RuleError&) {  // most of them
    }
  }
}

TEST(FilesFromOutside, WorkingDaysSkipHolidays) {
  // Easter by the tables of the church.
  for (const QDate& easter :
       {QDate(2024, 5, 5), QDate(2025, 4, 20), QDate(2026, 4, 12), QDate(2027, 5, 2), QDate(2030, 4, 28)})
    EXPECT_EQ(orthodoxEaster(easter.year()), easter);
  EXPECT_EQ(workingDaysAfter(QDate(2026, 4, 8), 1), QDate(2026, 4, 9));
  EXPECT_EQ(workingDaysAfter(QDate(2026, 4, 9), 1), QDate(2026, 4, 14));     // Good Friday to Easter Monday
  EXPECT_EQ(workingDaysAfter(QDate(2026, 5, 29), 1), QDate(2026, 6, 2));     // Pentecost, 1 June
  EXPECT_EQ(workingDaysAfter(QDate(2025, 12, 22), 5), QDate(2025, 12, 31));  // Christmas
}

TEST(FilesFromOutside, RatesHoldOverHolidays) {
  const auto file = [](const QByteArray& cubes) {
    return "<DataSet xmlns='https://www.bnr.ro/xsd'><Body><OrigCurrency>RON</OrigCurrency>" + cubes +
           "</Body></DataSet>";
  };
  // The rates of Maundy Thursday hold until Tuesday after Easter.
  const QByteArray thursday =
      "<Cube date='2026-04-09'><Rate currency='HUF' multiplier='100'>1.25</Rate><Rate "
      "currency='USD'>4.5</Rate></Cube>";
  const auto rates = bankRates(file(thursday), {"HUF"}, false);
  ASSERT_EQ(rates.size(), 5U);
  EXPECT_EQ(rates.front().date, QDate(2026, 4, 10));
  EXPECT_EQ(rates.back().date, QDate(2026, 4, 14));
  EXPECT_EQ(rates.back().rate, *Decimal::parse(QStringLiteral("0.0125")));
  EXPECT_EQ(bankRates(file(thursday), {"HUF"}, true).back().date, QDate(2026, 4, 13));
  for (const QByteArray& bad : {QByteArray("<DataSet/>"), file(""), file("<Cube date='x'/>"),
                                file("<Cube date='2026-04-09'><Rate currency='HUF'>-1</Rate></Cube>"),
                                file("<Cube date='1990-01-01'><Rate currency='HUF'>1</Rate></Cube><Cube "
                                     "date='2026-04-09'><Rate currency='HUF'>1</Rate></Cube>")})
    EXPECT_THROW(bankRates(bad, {"HUF"}, false), RuleError) << bad.toStdString();
  // Only the values of the company's currencies matter.
  const QByteArray mixed = file(
      "<Cube date='2026-04-09'>\n<Rate currency='XDR'>-</Rate><Rate currency='HUF' "
      "multiplier='100'>1.25</Rate>\n"
      "<Rate currency='usd'>4,x</Rate></Cube>");
  EXPECT_EQ(bankRates(mixed, {"HUF"}, false).size(), 5U);
  try {
    bankRates(mixed, {"HUF", "USD"}, false);
    ADD_FAILURE() << "a rate that is no number was taken";
  } catch (const RuleError& rule) {
    EXPECT_TRUE(rule.text().contains("valutei USD, linia 3: \"4,x\"")) << rule.text().toStdString();
  }
}

}  // namespace

}  // namespace velmar
