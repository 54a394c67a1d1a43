// Sums over the rows of a list.
#include "store/ListRows.h"

#include <gtest/gtest.h>

#include "Printers.h"
#include "util/Errors.h"

namespace velmar {
namespace {

TEST(ListRowsTest, SumsAreExactAndIgnoreEmptyCells) {
  Recordset recordset(std::make_shared<Columns>(QStringList{"CANT", "NUME"}));
  recordset.append({0.1, "1.5"});
  recordset.append({0.2, " "});
  recordset.append({QVariant(), QVariant()});
  recordset.append({1e15, "abc"});
  const RecordsetRows rows(std::move(recordset));
  const QList<TotalledField> quantity{TotalledField{"CANT"}};
  const std::vector<Decimal> sums = sumsOf(rows, {0, 1, 2}, {TotalledField{"cant"}, TotalledField{"NUME"}});
  EXPECT_EQ(sums[0], 0.3_dec);
  EXPECT_EQ(sums[1], 1.5_dec);
  EXPECT_EQ(sumsOf(rows, {3, 0}, quantity)[0], 1000000000000000.1_dec);
  const TotalledField turned{"CANT", [](const Row& row) { return row.text("NUME").isEmpty() ? 0 : -1; }};
  EXPECT_EQ(sumsOf(rows, {0, 1, 2}, {turned})[0], -0.3_dec);
  EXPECT_EQ(sumsOf(rows, {}, quantity)[0], Decimal());
  EXPECT_THROW(sumsOf(rows, {3}, {TotalledField{"NUME"}}), StoreError);
}

}  // namespace
}  // namespace velmar
