// The grouping area above a grid: dragged headings sort the list and stay in place.
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QtTest/QtTest>
#include <QVBoxLayout>

#include "store/windows/extTDBGrid.h"
#include "store/windows/TDBGrid.h"
#include "TestCompany.h"
#include "util/Settings.h"

namespace velmar {
namespace {

class GroupingTest : public testing::Test {
 protected:
  GroupingTest() : grid_(new TDBGrid("grdDataGrid")), area_(new extTDBGrid("extTDBGrid1")) {
    form_.setObjectName("frmProba");
    auto* all = new QVBoxLayout(&form_);
    all->addWidget(area_);
    all->addWidget(grid_);
    grid_->setColumns({{"NR", "Nr", CellFormat::Integer, 8},
                       {"ORAS", "Oras", CellFormat::Text, 16},
                       {"NUME", "Nume", CellFormat::Text, 16}});
    grid_->setSortable();
    Recordset rows(std::make_shared<Columns>(QStringList{"NR", "ORAS", "NUME"}));
    rows.append({1, "Cluj", "Ana"});
    rows.append({2, "Arad", "Dan"});
    rows.append({3, "Cluj", "Ion"});
    rows.append({4, "Arad", "Eva"});
    grid_->setRecordset(std::move(rows));
    area_->setTDBGridName("grdDataGrid");
    form_.resize(700, 400);
    form_.show();
    QCoreApplication::processEvents();
  }

  QString numbers() const {
    QStringList all;
    for (int row = 0; row < grid_->rows().size(); ++row) all.append(grid_->rows().row(row).text("NR"));
    return all.join(QLatin1Char(' '));
  }

  QString heads() const {
    QStringList all;
    for (const int column : grid_->visibleColumns()) all.append(grid_->columns()[column].field);
    return all.join(QLatin1Char(' '));
  }

  /// Drags the heading of a column by that distance, with steps in between as by hand.
  void drag(int column, const QPoint& way) {
    QWidget* head = grid_->horizontalHeader()->viewport();
    const QPoint from(grid_->horizontalHeader()->sectionViewportPosition(column) + 20, head->height() / 2);
    QTest::mousePress(head, Qt::LeftButton, {}, from);
    for (int step = 1; step <= 8; ++step) {
      const QPoint at = from + way * step / 8;
      QMouseEvent move(QEvent::MouseMove, at, head->mapToGlobal(at), Qt::NoButton, Qt::LeftButton, {});
      QCoreApplication::sendEvent(head, &move);
    }
    QTest::mouseRelease(head, Qt::LeftButton, {}, from + way);
    QCoreApplication::processEvents();
  }

  /// Chooses the entry with that text in the next menu.
  static void choose(const QString& text) {
    QTimer::singleShot(0, qApp, [text] {
      auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      ASSERT_TRUE(menu);
      for (QAction* action : menu->actions())
        if (action->text().remove(QLatin1Char('&')) == text) {
          EXPECT_TRUE(action->isEnabled());
          menu->setActiveAction(action);
          return QTest::keyClick(menu, Qt::Key_Return);
        }
      ADD_FAILURE() << "no entry " << qUtf8Printable(text);
      menu->close();
    });
  }

  QWidget form_;
  TDBGrid* grid_;
  extTDBGrid* area_;
};

TEST_F(GroupingTest, DraggedHeadingsSortTheListAndKeepTheirPositions) {
  ASSERT_EQ(area_->grid(), grid_);
  drag(1, {10, -40});
  EXPECT_EQ(area_->groupColumns(), QStringList{"ORAS"});
  EXPECT_EQ(numbers(), "2 4 1 3");
  EXPECT_EQ(heads(), "NR ORAS NUME");
  // To the left, over another heading.
  drag(2, {-220, -40});
  EXPECT_EQ(heads(), "NR ORAS NUME");
  EXPECT_EQ(area_->groupColumns(), QStringList({"ORAS", "NUME"}));
  EXPECT_EQ(numbers(), "2 4 1 3");
  area_->setSortType(extTDBGrid::kDescending);
  area_->Sort();
  EXPECT_EQ(numbers(), "3 1 4 2");
  drag(1, {0, -40});
  EXPECT_EQ(area_->groupColumns().size(), 2);

  // A drag along the headings still moves a column.
  const auto kept = [] { return settings::look("frmProba/grdDataGrid").toMap().value("order").toList(); };
  EXPECT_TRUE(kept().isEmpty());
  drag(0, {300, 0});
  EXPECT_EQ(kept().value(0).toInt(), 1);
  EXPECT_EQ(heads().section(' ', 0, 0), "ORAS");
  EXPECT_EQ(area_->groupColumns().size(), 2);

  auto* chip = area_->findChild<QWidget*>("cmdGrup(0)");
  ASSERT_TRUE(chip);
  QTest::keyClick(chip, Qt::Key_Delete);
  QCoreApplication::processEvents();
  EXPECT_EQ(area_->groupColumns(), QStringList{"NUME"});
  EXPECT_EQ(numbers(), "3 4 2 1");
  QTest::mouseClick(area_->findChild<QWidget*>("cmdGrup(0)"), Qt::LeftButton);
  EXPECT_TRUE(area_->groupColumns().isEmpty());
  EXPECT_EQ(numbers(), "3 4 2 1");
}

TEST_F(GroupingTest, WithoutASortTypeTheOrderIsKept) {
  area_->setSortType(extTDBGrid::kUnsorted);
  drag(1, {0, -40});
  EXPECT_EQ(area_->groupColumns(), QStringList{"ORAS"});
  EXPECT_EQ(numbers(), "1 2 3 4");
}

TEST_F(GroupingTest, TheKeyboardReachesEverythingThroughTheMenu) {
  grid_->setCurrentIndex(grid_->model()->index(0, 1));
  const auto ask = [this](const QString& text) {
    choose(text);
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, {10, 10}, grid_->mapToGlobal(QPoint(10, 10)));
    QCoreApplication::sendEvent(grid_, &asked);
    QCoreApplication::processEvents();
  };
  ask("Ordoneaza descrescator");
  EXPECT_EQ(numbers(), "1 3 2 4");
  EXPECT_TRUE(area_->groupColumns().isEmpty());
  ask("Grupeaza dupa aceasta coloana");
  EXPECT_EQ(area_->groupColumns(), QStringList{"ORAS"});
  EXPECT_EQ(numbers(), "2 4 1 3");
  ask("Scoate gruparea");
  EXPECT_TRUE(area_->groupColumns().isEmpty());
}

}  // namespace
}  // namespace velmar
