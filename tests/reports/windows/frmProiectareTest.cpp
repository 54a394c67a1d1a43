// The designer, operated with mouse and keyboard; layouts with faults.
#include "reports/windows/frmProiectare.h"

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QtTest/QtTest>

#include "reports/FullLayout.h"
#include "reports/LayoutProperties.h"
#include "reports/windows/LayoutPage.h"
#include "reports/windows/NameList.h"
#include "reports/windows/PropertyGrid.h"
#include "TestCompany.h"

namespace velmar {
namespace {

using namespace layout;

ReportData invoiceData() {
  ReportData data;
  data.variables = Recordset(std::make_shared<Columns>(QStringList{"CLIENT", "NRFAC", "TOTALFAC"}));
  data.variables.append({"ALFA SRL", 17, 119.0});
  data.hasVariables = true;
  Recordset lines(std::make_shared<Columns>(QStringList{"DENUMIRE", "CANT", "PRET"}));
  lines.append({"Suruburi", 10.0, 2.5});
  lines.append({"Piulite", 4.0, 18.75});
  data.fields = std::make_shared<RecordsetRows>(lines);
  data.fieldNames = lines.columns();
  return data;
}

class DesignerTest : public testing::Test {
 protected:
  DesignerTest() : window(invoiceData(), nullptr) {
    window.show();
    window.resize(1366, 768);
    QCoreApplication::processEvents();
  }

  QString path(const QString& name) const { return folder.filePath(name); }
  template <typename Widget>
  Widget* find(const char* name) const {
    return window.findChild<Widget*>(QLatin1String(name));
  }
  LayoutPage* page() const { return find<LayoutPage>("pagina"); }
  PropertyGrid* grid() const { return find<PropertyGrid>("grdProprietati"); }
  void click(const char* button) { find<QPushButton>(button)->click(); }
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(page(), key, modifiers);
  }

  QPoint pixel(double x, double y) const { return page()->toScreen({x, y}).toPoint(); }

  // Positions in millimetres on the sheet.
  void drag(QPointF from, QPointF to, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* view = page()->viewport();
    QTest::mousePress(view, Qt::LeftButton, modifiers, pixel(from.x(), from.y()));
    QTest::mouseMove(view, pixel((from.x() + to.x()) / 2, (from.y() + to.y()) / 2));
    QTest::mouseMove(view, pixel(to.x(), to.y()));
    QTest::mouseRelease(view, Qt::LeftButton, modifiers, pixel(to.x(), to.y()));
  }
  void clickAt(double x, double y, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::mouseClick(page()->viewport(), Qt::LeftButton, modifiers, pixel(x, y));
  }

  // Types a property and leaves the cell with Enter.
  void type(const QString& property, const QString& text) {
    grid()->editProperty(property);
    auto* editor = grid()->findChild<QLineEdit*>();
    ASSERT_TRUE(editor) << qUtf8Printable(property);
    editor->selectAll();
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::processEvents();
  }

  QByteArray saved(const QString& file) const {
    QFile stored(file);
    return stored.open(QIODevice::ReadOnly) ? stored.readAll() : QByteArray();
  }
  void write(const QString& file, const QByteArray& text) {
    QFile stored(file);
    ASSERT_TRUE(stored.open(QIODevice::WriteOnly));
    stored.write(text);
  }
  QStringList faults() const {
    QStringList texts;
    const auto* list = find<QListWidget>("lstGreseli");
    for (int i = 0; i < list->count(); ++i) texts.append(list->item(i)->text());
    return texts;
  }

  const QTemporaryDir folder;
  MessageRecorder messages;
  frmProiectare window;
};

TEST_F(DesignerTest, SeveralObjectsAreSelectedAlignedCopiedAndEditedAtOnce) {
  const QString file = path("trei.lst");
  Layout layout;
  for (const QRectF& frame : {QRectF(20, 20, 30, 5), QRectF(33, 40, 50, 8), QRectF(90, 60, 10, 6)})
    layout.objects.push_back({"", frame, "", Pages::All, Text{"CLIENT", {}}});
  save(file, layout);
  window.open(file);
  drag({15, 15}, {88, 50});  // the rubber band holds the first two
  clickAt(95, 63, Qt::ControlModifier);
  press(Qt::Key_L, Qt::ControlModifier);
  press(Qt::Key_W, Qt::ControlModifier);
  // A refused text remains, and nothing else happens until it is corrected.
  grid()->editProperty("points");
  auto* editor = grid()->findChild<QLineEdit*>();
  editor->selectAll();
  QTest::keyClicks(editor, "doua");
  click("cmdSalvare");
  QCoreApplication::processEvents();
  EXPECT_EQ(messages.take(), QStringList("\"Marime litera\" trebuie sa fie un numar intre 1 si 500."));
  EXPECT_EQ(editor->text(), "doua");
  clickAt(150, 150);
  QCoreApplication::processEvents();
  messages.take();
  EXPECT_EQ(editor->text(), "doua");
  QTest::keyClicks(editor, "12,5");
  QTest::keyClick(editor, Qt::Key_Return);
  page()->setFocus();
  press(Qt::Key_C, Qt::ControlModifier);
  press(Qt::Key_V, Qt::ControlModifier);
  press(Qt::Key_Escape);
  press(Qt::Key_Tab);  // from the first object again
  press(Qt::Key_Delete);
  click("cmdSalvare");

  layout = load(file);
  ASSERT_EQ(layout.objects.size(), 5U);
  for (const Object& object : layout.objects)
    EXPECT_EQ(std::get<Text>(object.content).style.font.points, 12.5);
  EXPECT_EQ(layout.objects[0].frame, QRectF(20, 40, 30, 8));
  EXPECT_EQ(layout.objects[1].frame, QRectF(20, 60, 30, 6));
  EXPECT_EQ(layout.objects[2].frame, QRectF(25, 25, 30, 5));
  EXPECT_TRUE(messages.isEmpty());
}

TEST_F(DesignerTest, CellsAreEditedWithTheKeyboard) {
  const QString file = path("tabel.lst");
  window.open(file);
  click("cmdTabel");
  press(Qt::Key_Return);
  auto* names = find<NameList>("lstNume");
  for (const char* name : {"CANT", "PRET"}) {
    names->setCurrentItem(names->findItems(name, Qt::MatchExactly).first());
    QTest::keyClick(names, Qt::Key_Return);
  }
  // The cell of PRET is selected: a sum below it, and the price wider by five grid lines.
  for (int i = 0; i < 5; ++i) press(Qt::Key_Right, Qt::ShiftModifier);
  press(Qt::Key_Left, Qt::AltModifier);  // before the quantity
  press(Qt::Key_Escape);
  press(Qt::Key_Escape);
  type("sums.0", "VALOARE = CANT * PRET");
  click("cmdSalvare");
  const layout::Table table = *load(file).table();
  ASSERT_EQ(table.rows[1].cells.size(), 2U);
  EXPECT_EQ(table.rows[1].cells[0].formula, "PRET");
  EXPECT_EQ(table.rows[1].cells[0].width, 30);
  EXPECT_EQ(table.rows[0].cells[1].width, 30);  // its header has the same width
  ASSERT_EQ(table.sums.size(), 1U);
  EXPECT_EQ(table.sums[0].name, "VALOARE");
  EXPECT_EQ(names->findItems("VALOARE", Qt::MatchExactly).size(), 1);
}

TEST_F(DesignerTest, DamagedTextIsShownWithTheErrorAndCorrected) {
  const QString file = path("stricat.lst");
  const QByteArray damaged = "<report>\n  <text formula=\"CLIENT\" points=\"mare\"/>\n</report>\n";
  write(file, damaged);
  window.open(file);
  auto* text = find<QPlainTextEdit>("txtText");
  EXPECT_TRUE(text->isVisible());
  EXPECT_EQ(text->toPlainText(), QString::fromUtf8(damaged));
  EXPECT_EQ(text->textCursor().blockNumber(), 1);
  ASSERT_EQ(faults().size(), 1);
  EXPECT_TRUE(faults()[0].startsWith("Linia 2, coloana ")) << qUtf8Printable(faults()[0]);

  // The page cannot be edited until the text is valid; saving does not change the file.
  auto* tabs = find<QTabWidget>("tabPagina");
  tabs->setCurrentIndex(0);
  EXPECT_TRUE(text->isVisible());
  click("cmdSalvare");
  EXPECT_EQ(messages.take().size(), 2);
  EXPECT_EQ(saved(file), damaged);
  text->setPlainText(QString::fromUtf8(damaged).replace("mare", "14"));
  tabs->setCurrentIndex(0);
  EXPECT_TRUE(page()->isVisible());
  EXPECT_TRUE(faults().isEmpty());
  EXPECT_TRUE(window.isWindowModified());
  click("cmdSalvare");
  EXPECT_EQ(std::get<Text>(load(file).objects.at(0).content).style.font.points, 14);
  EXPECT_TRUE(messages.isEmpty());
}

TEST_F(DesignerTest, UnknownNamesAndInvalidFormulasAreMarkedButAllowed) {
  const QString file = path("necunoscut.lst");
  Layout layout;
  layout.objects.push_back({"A", QRectF(20, 20, 30, 5), "", Pages::All, Text{"client + CLENT", {}}});
  layout.objects.push_back({"B", QRectF(20, 30, 30, 5), "", Pages::All, Text{"1 + * 2", {}}});
  save(file, layout);
  window.open(file);
  ASSERT_EQ(faults().size(), 2);
  EXPECT_EQ(faults()[0], "Text A, Formula, coloana 10: Numele CLENT nu este definit");
  EXPECT_TRUE(faults()[1].startsWith("Text B, Formula, coloana ")) << qUtf8Printable(faults()[1]);
  auto* list = find<QListWidget>("lstGreseli");
  emit list->itemActivated(list->item(0));
  auto* editor = grid()->findChild<QLineEdit*>();
  ASSERT_TRUE(editor);
  EXPECT_EQ(editor->cursorPosition(), 9);
  QTest::keyClick(editor, Qt::Key_Delete);
  QTest::keyClick(editor, Qt::Key_Return);
  click("cmdSalvare");
  EXPECT_EQ(std::get<Text>(load(file).objects.at(0).content).formula, "client + LENT");
  // The preview prints what can be computed.
  find<QTabWidget>("tabPagina")->setCurrentIndex(1);
  QCoreApplication::processEvents();
  EXPECT_TRUE(messages.isEmpty());
}

TEST_F(DesignerTest, FiveThousandDamagedFilesAreOpened) {
  constexpr int kFiles = 5000;
  constexpr int kPreviewed = 10;  // of the readable ones, one in so many
  window.resize(500, 400);
  std::mt19937 random(20260315);  // NOLINT(cert-msc51-cpp): the same files in every run
  const QByteArray whole = layout::write(fullLayout());
  const QString file = path("sir.lst");
  auto* tabs = find<QTabWidget>("tabPagina");
  int damaged = 0, readable = 0;
  for (int i = 0; i < kFiles; ++i) {
    write(file, layout::damaged(whole, random));
    window.open(file);
    if (find<QPlainTextEdit>("txtText")->isVisible()) {
      ++damaged;
      ASSERT_EQ(faults().size(), 1);
      continue;
    }
    ++readable;
    page()->viewport()->repaint();
    if (readable % kPreviewed == 0) tabs->setCurrentIndex(1);
  }
  EXPECT_GT(damaged, kFiles / 2);
  EXPECT_GT(readable, kFiles / 50);
  for (const QString& message : messages.take()) ADD_FAILURE() << qUtf8Printable(message);
}

}  // namespace
}  // namespace velmar
