// What a list window does by itself: it follows the changes of others, and its card does not truncate a
// record.
#include <QCoreApplication>
#include <QLineEdit>
#include <QVBoxLayout>

#include "store/windows/ListForm.h"
#include "TestCompany.h"
#include "util/windows/Controls.h"

namespace velmar {
namespace {

class Journals : public ListForm {
 public:
  Journals() : ListForm("frmProba", "Proba", nullptr) {
    auto* grid = new EntryGrid("grdDataGrid", EntryGrid::Refused::Reverted, "frmProba");
    grid->setColumns({{"COD", "Cod"}, {"TITLU", "Titlu", CellFormat::Text, 30}});
    const ListQuery query{"COD, TITLU", "kt_jur", "COD"};
    setList(grid, "COD", [query] { return std::make_unique<ListRows>(query, Condition(), "COD"); },
            {"kt_jur"});
    title = card().add("TITLU", makeTextBox("txtTitlu", 5));
    layOut(searchRow({"COD"}), title, {});
  }

  int rowCount() const { return list()->rows().size(); }
  const Card& shown() const { return card(); }
  void begin() { startNew(); }

  QLineEdit* title;
};

class ListFormTest : public testing::Test {
 protected:
  ListFormTest() { ExecutaSql("DELETE FROM kt_jur"); }

  static void add(const QString& code, const QString& title) {
    ExecutaSql("INSERT INTO kt_jur (COD, TITLU) VALUES (?, ?)", {code, title});
  }

  TestCompany company_;
};

TEST_F(ListFormTest, FollowsChangesAlsoWhileHidden) {
  Journals form;
  form.show();
  add("A", "Unu");
  QCoreApplication::processEvents();
  EXPECT_EQ(form.rowCount(), 1);

  form.hide();
  add("B", "Doi");
  QCoreApplication::processEvents();
  EXPECT_EQ(form.rowCount(), 1);
  form.show();
  EXPECT_EQ(form.rowCount(), 2);
  add("C", "Trei");
  QCoreApplication::processEvents();
  EXPECT_EQ(form.rowCount(), 3);
}

TEST_F(ListFormTest, ATextLongerThanItsBoxIsNotTruncated) {
  add("A", "Un titlu lung");
  Journals form;
  EXPECT_EQ(form.title->text(), "Un titlu lung");
  EXPECT_EQ(form.shown().text("TITLU"), "Un titlu lung");
  EXPECT_FALSE(form.shown().isChanged());
  form.begin();
  EXPECT_EQ(form.title->maxLength(), 5);
}

}  // namespace
}  // namespace velmar
