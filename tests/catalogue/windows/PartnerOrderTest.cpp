// Clicks on the headings of the partners: the order of the list, and the partner shown on the card.
#include <QHeaderView>
#include <QLineEdit>
#include <QtTest/QtTest>

#include "catalogue/windows/frmTerti.h"
#include "store/windows/TDBGrid.h"
#include "TestCompany.h"

namespace velmar {
namespace {

class PartnerOrderTest : public testing::Test {
 protected:
  PartnerOrderTest() {
    ExecutaSql(
        "INSERT INTO kt_ter (COD, NUME, TIP, ORAS) VALUES (1, 'ALFA', 'C', 'IASI'), (2, 'BETA', 'M', "
        "'ARAD'), "
        "(3, 'GAMA', 'C', 'IASI'), (4, 'DELTA', 'P', 'ARAD'), (5, 'FURNIZOR', 'F', 'ARAD')");
    ExecutaSql(
        "INSERT INTO kt_linii (NDI, NRLINIE, CONT, DEBIT, CREDIT, TERT) VALUES (1, 1, '4111', 100, 0, 1), "
        "(1, 2, '4111', 0, 9, 2), (2, 1, '4111', 20.5, 0, 3), (2, 2, '5121', 0, 0.5, 3)");
    form_ = std::make_unique<frmTerti>("C");
    grid_ = form_->findChild<TDBGrid*>("grdDataGrid");
    form_->resize(1100, 560);
    form_->show();
    QCoreApplication::processEvents();
  }

  void clickHeading(const QString& field, Qt::KeyboardModifiers keys = {}) {
    QHeaderView* header = grid_->horizontalHeader();
    for (int column = 0; column < header->count(); ++column)
      if (grid_->columns()[column].field == field) {
        grid_->scrollTo(grid_->model()->index(0, column));
        const QPoint at(header->sectionViewportPosition(column) + 20, header->height() / 2);
        return QTest::mouseClick(header->viewport(), Qt::LeftButton, keys, at);
      }
    ADD_FAILURE() << "no column " << qUtf8Printable(field);
  }

  QString names() const {
    QStringList all;
    for (int row = 0; row < grid_->rows().size(); ++row) all.append(grid_->rows().row(row).text("NUME"));
    return all.join(QLatin1Char(' '));
  }

  QString shown() const { return form_->findChild<QLineEdit*>("txtFields(1)")->text(); }

  TestCompany company_;
  std::unique_ptr<frmTerti> form_;
  TDBGrid* grid_ = nullptr;
};

TEST_F(PartnerOrderTest, HeadingsSortTheListAlsoByBalance) {
  EXPECT_EQ(names(), "ALFA BETA DELTA GAMA");
  clickHeading("SOLD");
  EXPECT_EQ(names(), "DELTA BETA GAMA ALFA");
  EXPECT_EQ(shown(), "DELTA");
  clickHeading("SOLD");
  EXPECT_EQ(names(), "ALFA GAMA BETA DELTA");
  EXPECT_EQ(shown(), "ALFA");
  // By several columns in the order of selection, which is kept by a refresh.
  clickHeading("ORAS");
  clickHeading("SOLD", Qt::ControlModifier);
  EXPECT_EQ(names(), "DELTA BETA GAMA ALFA");
  ExecutaSql("UPDATE kt_ter SET ORAS = 'ZALAU' WHERE COD = 2");
  QTest::keyClick(grid_, Qt::Key_F5);
  EXPECT_EQ(names(), "DELTA GAMA ALFA BETA");
}

}  // namespace
}  // namespace velmar
