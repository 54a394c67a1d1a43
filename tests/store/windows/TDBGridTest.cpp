// How the columns of a grid share its width.
#include <gtest/gtest.h>

#include "store/windows/TDBGrid.h"

namespace velmar {
namespace {

TEST(TDBGridWidths, SumsAreFullyVisibleAndTheNameColumnShrinks) {
  TDBGrid grid("TDBGrid1");
  grid.setColumns({{"COD", "Cod", CellFormat::Text, 10},
                   {"NUME", "Denumire", CellFormat::Text, 60},
                   {"TOTAL", "Total", CellFormat::Number, 8},
                   {"COST", "Cost", CellFormat::Number, 20}});
  grid.setKeptInView("TOTAL", "NUME");
  grid.resize(480, 200);
  grid.show();
  const auto end = [&grid] { return grid.columnViewportPosition(2) + grid.columnWidth(2); };
  EXPECT_LE(end(), grid.viewport()->width());

  const QString tenThousandMillions = "10.000.000.000,00";
  grid.setFooter("TOTAL", tenThousandMillions);
  QFont bold = grid.font();
  bold.setBold(true);
  EXPECT_GE(grid.columnWidth(2), QFontMetrics(bold).horizontalAdvance(tenThousandMillions) + 8);
  EXPECT_LE(end(), grid.viewport()->width()) << "still in view";
}

}  // namespace
}  // namespace velmar
