// How the columns of a grid share its width; its tool tips.
#include <gtest/gtest.h>
#include <QHeaderView>
#include <QStandardItemModel>

#include "store/windows/TDBGrid.h"

namespace velmar {
namespace {

TEST(TDBGridWidths, SumsAreFullyVisibleAndTheNameColumnShrinks) {
  TDBGrid grid("TDBGrid1");
  grid.setColumns({{"COD", "Cod", CellFormat::Text, 10},
                   {"NUME", "Denumire", CellFormat::Text, 60},
                   {"TOTAL", "Total", CellFormat::Number, 8},
                   {"COST", "Cost", CellFormat::Number, 20}});
  grid.setKeptInView("TOTAL", {"NUME"});
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

TEST(TDBGridWidths, OtherColumnsLeaveTheNameReadable) {
  QStandardItemModel cells(1, 4);
  TDBGrid grid("TDBGrid1");
  grid.setModel(&cells);
  grid.setColumns({{"CANT", "Cantitate", CellFormat::Number, 8},
                   {"DENUMIRE", "Denumire", CellFormat::Text, 60},
                   {"PRET", "Pret unitar valuta", CellFormat::Number, 10},
                   {"TOTAL", "Total", CellFormat::Number, 12}});
  grid.setKeptInView("TOTAL", {"DENUMIRE"});
  grid.resize(410, 200);
  grid.show();
  cells.setItem(0, 0, new QStandardItem("1.234.567,000"));
  const QFontMetrics font = grid.fontMetrics();
  EXPECT_GE(grid.columnWidth(0), font.horizontalAdvance("1.234.567,000") + 8) << "not cut";
  EXPECT_GE(grid.columnWidth(1), font.averageCharWidth() * 15);
  EXPECT_LT(grid.columnWidth(2), font.horizontalAdvance("Pret unitar valuta"));
  EXPECT_GE(grid.horizontalHeader()->height(), 2 * font.lineSpacing()) << "a heading on two lines";
}

TEST(TDBGridWidths, SeveralNamesGiveWayForTheLastColumn) {
  TDBGrid grid("TDBGrid1");
  grid.setColumns({{"CLIENT", "Client", CellFormat::Text, 40},
                   {"ARTICOL", "Articol", CellFormat::Text, 40},
                   {"VALOARE", "Valoare", CellFormat::Number, 14},
                   {"TVA", "TVA", CellFormat::Number, 14}});
  grid.setKeptInView("TVA", {"CLIENT", "ARTICOL"});
  grid.resize(500, 200);
  grid.show();
  EXPECT_LE(grid.columnViewportPosition(3) + grid.columnWidth(3), grid.viewport()->width());
  EXPECT_NEAR(grid.columnWidth(0), grid.columnWidth(1), 2);
  EXPECT_GE(grid.columnWidth(0), grid.fontMetrics().averageCharWidth() * 9);
}

// A text from outside is shown as it is, not as markup.
TEST(TDBGrid, ToolTipsAreNoMarkup) {
  TDBGrid grid("TDBGrid1");
  grid.setColumns({{"A", "A", CellFormat::Text, 4}});
  Recordset rows(std::make_shared<Columns>(QStringList{"A"}));
  for (const char* text : {"<b>x</b> & y", "a < b & c"}) rows.append({text});
  grid.setRecordset(std::move(rows));
  const auto toolTip = [&grid](int row) {
    return grid.model()->index(row, 0).data(Qt::ToolTipRole).toString();
  };
  EXPECT_EQ(toolTip(0), "<qt>&lt;b&gt;x&lt;/b&gt; &amp; y</qt>");
  EXPECT_EQ(toolTip(1), "a < b & c");
}

}  // namespace
}  // namespace velmar
