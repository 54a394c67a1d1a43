// Long lists of a browser window: the first rows at once, the others behind the work.
#include <QLabel>
#include <QPushButton>
#include <QtTest/QtTest>

#include "documents/windows/frmLDoc.h"
#include "store/windows/TDBGrid.h"
#include "TestCompany.h"

namespace velmar {
namespace {

class BrowserFormTest : public testing::Test {
 protected:
  BrowserFormTest() {
    ExecutaSql(
        "WITH RECURSIVE NUMBERS(N) AS (SELECT 1 UNION ALL SELECT N + 1 FROM NUMBERS WHERE N < 2500) "
        "INSERT INTO G_DOCUME (ID, TIP, TIPIE, DATADOC, TOTALFT) "
        "SELECT 'BC' || N, 'BC', 'E', '2026-01-02', 1 FROM NUMBERS");
  }
  void open() {
    window_ = std::make_unique<frmLDoc>();
    grid_ = window_->findChild<TDBGrid*>("grdParent");
    window_->show();
  }
  QString count() const { return window_->findChild<QLabel*>("lblNoRecs")->text(); }
  int shown() const { return grid_->rows().size(); }

  TestCompany company_;
  std::unique_ptr<frmLDoc> window_;
  TDBGrid* grid_ = nullptr;
};

TEST_F(BrowserFormTest, ALongListIsReadToItsEndBehindTheWork) {
  open();
  EXPECT_EQ(shown(), 100);  // a page
  EXPECT_EQ(count(), "...");
  grid_->selectPlace(50);
  const QString current = grid_->currentRecord()->text("ID");
  EXPECT_TRUE(QTest::qWaitFor([this] { return count() == "2.500"; }));
  EXPECT_EQ(shown(), 2500);
  EXPECT_EQ(grid_->currentRecord()->text("ID"), current);
  // A current record behind the first rows is still current when the list is read again.
  grid_->selectPlace(2400);
  const QString late = grid_->currentRecord()->text("ID");
  window_->findChild<QPushButton*>("cmdCautare")->click();
  EXPECT_EQ(grid_->currentRecord()->text("ID"), late);
}

TEST_F(BrowserFormTest, ACommandOnAllRowsDoesNotMissTheLastOnes) {
  open();
  grid_->selectAll();
  EXPECT_EQ(grid_->selectedPlaces().size(), 2500);
  // What a colleague adds before the read has ended is in the list, once.
  open();
  ExecutaSql("INSERT INTO G_DOCUME (ID, TIP, TIPIE, DATADOC) VALUES ('AA1', 'AA', 'E', '2026-02-01')");
  EXPECT_TRUE(QTest::qWaitFor([this] { return count() == "2.501"; }));
  EXPECT_EQ(grid_->rows().row(0).text("ID"), "AA1");
  // A window that is closed meanwhile gives nothing back.
  open();
  QTest::qWait(1);
  window_.reset();
  QTest::qWait(50);
}

}  // namespace
}  // namespace velmar
