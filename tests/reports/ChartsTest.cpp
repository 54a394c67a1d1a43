#include "reports/Charts.h"

#include <gtest/gtest.h>

namespace velmar {
namespace {

TEST(Charts, MarksOfAnAxisIncludeAllFiguresAndZero) {
  const auto marks = [](double least, double most) {
    const ChartScale scale = chartScale(least, most);
    return QStringList{scale.text(scale.first), scale.text(scale.first + 1), scale.text(scale.last)};
  };
  EXPECT_EQ(marks(0, 40000), QStringList({"0", "10.000", "40.000"}));
  EXPECT_EQ(marks(12, 40001), QStringList({"0", "10.000", "50.000"}));
  EXPECT_EQ(marks(-5000.4, 20000), QStringList({"-10.000", "0", "20.000"}));
  EXPECT_EQ(marks(-7, -3), QStringList({"-8", "-6", "0"}));
  EXPECT_EQ(marks(0, 0.5), QStringList({"0,00", "0,10", "0,50"}));
  EXPECT_EQ(marks(0, 1e12), QStringList({"0", "200.000.000.000", "1.000.000.000.000"}));
  EXPECT_EQ(marks(0, 0), QStringList({"0,00", "0,01", "0,01"}));
}

TEST(Charts, SlicesHaveSharesOfTheFiguresWithoutSigns) {
  ChartData data;
  data.fields = {"DEBITUL"};
  data.series = {"DEBITUL"};
  data.rows = Recordset(std::make_shared<Columns>(QStringList{"Eticheta", "DEBITUL", "CREDITUL"}));
  data.rows.append({"ALFA", 30.0, 5.0});
  data.rows.append({"BETA", -10.0, 3.5});
  const std::vector<ChartSlice> partners = chartSlices(data);
  ASSERT_EQ(partners.size(), 2U);
  EXPECT_EQ(partners[1].label, "BETA");
  EXPECT_EQ(partners[1].figure, Decimal(-10));
  EXPECT_EQ(partners[0].percent, 75);
  EXPECT_EQ(partners[1].percent, 25);
  EXPECT_EQ(chartDecimals(data), 0);
  // Two columns are two slices of their sums: 20 and 8.5.
  data.fields = {"DEBITUL", "CREDITUL"};
  data.series = {"Cheltuieli", "Venituri"};
  const std::vector<ChartSlice> sums = chartSlices(data);
  ASSERT_EQ(sums.size(), 2U);
  EXPECT_EQ(sums[0].label, "Cheltuieli");
  EXPECT_EQ(sums[1].figure.toDouble(), 8.5);
  EXPECT_EQ(sums[0].percent, 70);
  EXPECT_EQ(chartDecimals(data), 2);
}

}  // namespace
}  // namespace velmar
