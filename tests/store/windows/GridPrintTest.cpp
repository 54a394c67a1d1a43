// Printed lists: every row once, headings and totals, columns that do not fit, the HTML copy.
#include "store/windows/GridPrint.h"

#include <QApplication>
#include <QFile>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QTimer>

#include "store/windows/TDBGridListare.h"
#include "TestCompany.h"
#include "util/Errors.h"
#include "util/windows/PrintOutput.h"

namespace velmar {
namespace {

/// The pages of a PDF as text.
QStringList pagesOf(const QString& path) {
  QProcess reader;
  reader.start("pdftotext", {"-layout", path, "-"});
  EXPECT_TRUE(reader.waitForFinished());
  QStringList pages = QString::fromUtf8(reader.readAllStandardOutput()).split(QChar::FormFeed);
  EXPECT_FALSE(pages.isEmpty());
  pages.removeLast();
  return pages;
}

class GridPrintTest : public testing::Test {
 protected:
  GridPrintTest() : grid_("grdDataGrid") {
    settings_.name = "Lista";
    settings_.header = R"(Lista articole\t\tdin depozit)";
    settings_.footer = R"(Editat \t\t Pagina: \p din \P)";
    settings_.rows = GridPrintSettings::Rows::All;
  }

  void fill(int rows) {
    grid_.setColumns({{"CODART", "Cod", CellFormat::Text, 10},
                      {"DENART", "Denumire", CellFormat::Text, 30},
                      {"PRET", "Pret", CellFormat::Number, 12}});
    Recordset articles(std::make_shared<Columns>(QStringList{"CODART", "DENART", "PRET"}));
    for (int i = 1; i <= rows; ++i)
      articles.append({QStringLiteral("R%1").arg(i, 5, 10, QLatin1Char('0')), "Surub <M6> & piulita", 1.25});
    grid_.setRecordset(std::move(articles));
  }

  QStringList printed() {
    const GridPrint job(grid_, settings_);
    const QString path = folder_.filePath("lista.pdf");
    writePdf(path, {}, job, nullptr);
    const QStringList pages = pagesOf(path);
    EXPECT_EQ(pages.size(), job.pageCount());
    return pages;
  }

  static int count(const QString& text, const QString& pattern) {
    return static_cast<int>(text.count(QRegularExpression(pattern)));
  }

  QTemporaryDir folder_;
  TDBGrid grid_;
  GridPrintSettings settings_;
};

TEST_F(GridPrintTest, EveryRowIsPrintedOnceInOrderUnderTheHeadings) {
  for (const int rows : {0, 1, 40, 1000}) {
    fill(rows);
    const QStringList pages = printed();
    QStringList found;
    for (qsizetype i = 0; i < pages.size(); ++i) {
      EXPECT_EQ(count(pages[i], "Denumire"), 1);
      EXPECT_EQ(count(pages[i], "Lista articole .*din depozit"), 1);
      EXPECT_TRUE(pages[i].contains(QStringLiteral("Pagina: %1 din %2").arg(i + 1).arg(pages.size())));
      auto each = QRegularExpression("R\\d{5}").globalMatch(pages[i]);
      while (each.hasNext()) found.append(each.next().captured());
    }
    ASSERT_EQ(found.size(), rows);
    for (int i = 0; i < rows; ++i) ASSERT_EQ(found[i].mid(1).toInt(), i + 1);
    EXPECT_EQ(pages.size() > 1, rows == 1000);
  }
}

TEST_F(GridPrintTest, HeadingsAndTotalsRepeatOnlyAsConfigured) {
  fill(200);
  grid_.setFooter("PRET", "250,00");
  settings_.orientation = QPageLayout::Landscape;
  settings_.repeatFooters = true;
  const QStringList repeated = printed();
  ASSERT_GT(repeated.size(), 2);
  for (const QString& page : repeated) EXPECT_EQ(count(page, "250,00"), 1);

  settings_.repeatHeads = false;
  settings_.repeatFooters = false;
  QString all = printed().join(QString());
  EXPECT_EQ(count(all, "Denumire"), 1);
  EXPECT_EQ(count(all, "250,00"), 1);
  EXPECT_EQ(count(all, "R\\d{5}"), 200);

  settings_.columns = {"PRET", "codart"};
  all = printed().join(QString());
  EXPECT_EQ(count(all, "Pret +Cod"), 1);
  EXPECT_EQ(count(all, "Denumire|Surub"), 0);
}

// 35 columns of 12 characters do not fit a sheet in a legible font size.
TEST_F(GridPrintTest, ManyColumnsAreSpreadOverPagesThatRepeatTheKey) {
  QList<GridColumn> columns;
  QStringList fields;
  std::vector<QVariant> cells;
  for (int i = 0; i < 35; ++i) {
    fields.append(QStringLiteral("C%1").arg(i));
    columns.append({fields[i], QStringLiteral("Coloana%1.").arg(i), CellFormat::Text, 12});
    cells.emplace_back(i == 0 ? QStringLiteral("FAMILIE") : QStringLiteral("v%1.").arg(i));
  }
  // A heading as wide as its column is not truncated, at any resulting font size.
  columns[7].caption = "Judet pentru facturare";
  cells[30] = "CHEIE";
  settings_.key = "c30";
  grid_.setColumns(columns);
  Recordset wide((std::make_shared<Columns>(fields)));
  wide.append(cells);
  grid_.setRecordset(std::move(wide));
  const QStringList pages = printed();
  ASSERT_GT(pages.size(), 2);
  for (const QString& page : pages) EXPECT_EQ(count(page, "FAMILIE.* CHEIE"), 1) << qUtf8Printable(page);
  const QString all = pages.join(QString());
  EXPECT_EQ(count(all, "Judet pentru facturare"), 1);
  for (int i = 1; i < 35; ++i) {
    if (i == 7 || i == 30) continue;
    EXPECT_EQ(count(all, QStringLiteral("Coloana%1\\.").arg(i)), 1) << i;
    EXPECT_EQ(count(all, QStringLiteral("\\bv%1\\.").arg(i)), 1) << i;
  }
}

// A truncated number would be read as another number.
TEST_F(GridPrintTest, NumbersAreNeverTruncated) {
  grid_.setColumns({{"A", "A", CellFormat::Text, 4}, {"SUMA", "S", CellFormat::Number, 3}});
  Recordset rows(std::make_shared<Columns>(QStringList{"A", "SUMA"}));
  rows.append({"Text care nu incape in patru litere", 123456789.25});
  grid_.setRecordset(std::move(rows));
  const QString all = printed().join(QString());
  EXPECT_TRUE(all.contains("123.456.789,25")) << qUtf8Printable(all);
  EXPECT_FALSE(all.contains("patru"));
}

// 3 rows of 2,000 words are longer than a page; the code of 70 letters is longer than its column.
TEST_F(GridPrintTest, WrappedTextsAreWhole) {
  fill(0);
  const QString code = QString(35, u'A') + QString(35, u'B');
  QStringList words;
  for (int i = 1; i <= 2000; ++i) words.append(QStringLiteral("w%1").arg(i));
  Recordset rows(std::make_shared<Columns>(QStringList{"CODART", "DENART", "PRET"}));
  for (int i = 0; i < 3; ++i) rows.append({code, words.join(u' '), 1.25});
  grid_.setRecordset(std::move(rows));
  settings_.wrapped = true;
  const QStringList pages = printed();
  EXPECT_GT(pages.size(), 3);
  QString all;
  for (const QString& page : pages) {
    EXPECT_EQ(count(page, "Denumire"), 1);
    all += page;
  }
  QStringList found;
  for (auto each = QRegularExpression("w\\d+").globalMatch(all); each.hasNext();)
    found.append(each.next().captured());
  EXPECT_EQ(found, words + words + words);
  EXPECT_EQ(count(all, "1,25"), 3);
  EXPECT_EQ(count(all, "A"), 3 * 35);
  EXPECT_EQ(count(all, "B"), 3 * 35);
}

TEST_F(GridPrintTest, TheHtmlCopyIsWrittenAtomically) {
  fill(3);
  grid_.setFooter("PRET", "3,75");
  const GridPrint job(grid_, settings_);
  const QString path = folder_.filePath("Articole.htm");
  job.writeHtml(path);
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QString html = QString::fromUtf8(file.readAll());
  EXPECT_EQ(count(html, "<tr>"), 5);
  EXPECT_TRUE(
      html.contains("<td>R00002</td><td>Surub &lt;M6&gt; &amp; piulita</td><td class=\"n\">1,25</td>"));
  EXPECT_TRUE(html.contains("<th class=\"n\">3,75</th>"));
  EXPECT_FALSE(html.contains("Pagina"));
  EXPECT_THROW(job.writeHtml(folder_.filePath("lipsa/Articole.htm")), StoreError);
  EXPECT_THROW(writePdf(folder_.filePath("lipsa/x.pdf"), {}, job, nullptr), StoreError);
}

// Accepts the default options and closes the preview.
class Served : public QObject {
 public:
  Served() { qApp->installEventFilter(this); }
  bool eventFilter(QObject* watched, QEvent* event) override {
    const QString name = watched->objectName();
    const bool options = name == "frmOptiuniTiparire";
    if (event->type() == QEvent::Show && (options || name == "frmPrevizualizare"))
      QTimer::singleShot(0, watched, [watched, options] {
        watched->findChild<QPushButton*>(options ? "cmdOK" : "cmdInchide")->click();
      });
    return false;
  }
};

// 0.1 + 0.2 + a null + an empty cell; the whole list has 100.30 more.
TEST_F(GridPrintTest, TheButtonPrintsTheTotalsOfTheSelection) {
  MessageRecorder messages;
  const Served served;
  setPrintFolder(folder_.path());
  QWidget form;
  form.setObjectName("frmRapComisioane");
  form.setWindowTitle("Comisioane");
  TDBGridListare listing("TDBGridListare1", &form);
  auto* button = listing.findChild<QPushButton*>("cmdListare");
  EXPECT_EQ(button->text(), "Listare");
  button->click();
  listing.setTDBGrid(&grid_);
  button->click();
  const QStringList refused = messages.take();
  ASSERT_EQ(refused.size(), 2);
  EXPECT_TRUE(
      refused[0].startsWith("Eroare -2147221503 - Nu s-a setat TDBGrid controlulului in procedura "
                            "cmdListare_Click din User Control TDBGridListare Linia: "));
  EXPECT_TRUE(refused[1].startsWith("Eroare -2147221502 - Nu s-a setat FORM-ul controlulului"));

  grid_.setColumns({{"NUME", "Nume", CellFormat::Text, 20}, {"VAL", "Valoare", CellFormat::Number, 12}});
  Recordset rows(std::make_shared<Columns>(QStringList{"NUME", "VAL"}));
  for (const QVariant& value :
       {QVariant(0.1), QVariant(0.2), QVariant(), QVariant(QString()), QVariant(100.3)})
    rows.append({"Ion", value});
  grid_.setRecordset(std::move(rows));
  grid_.setSelectionMode(QAbstractItemView::ExtendedSelection);
  grid_.setFooter("VAL", "100,60");
  grid_.clearSelection();
  for (const int place : {0, 1, 2, 3})
    grid_.selectionModel()->select(grid_.model()->index(place, 0),
                                   QItemSelectionModel::Select | QItemSelectionModel::Rows);
  listing.setForm(&form);
  form.show();
  const QPalette before = grid_.palette();
  QString shown;
  QObject::connect(&listing, &TDBGridListare::EndPrint, [&] {
    EXPECT_TRUE(form.isMinimized());
    shown = grid_.footer("VAL");
    grid_.setFooter("VAL", "100,60");
  });
  button->click();
  EXPECT_EQ(messages.take(), QStringList());
  EXPECT_EQ(shown, "0,30");
  EXPECT_EQ(grid_.footer("VAL"), "100,60");
  EXPECT_TRUE(form.isMaximized());
  EXPECT_EQ(grid_.palette(), before);
  QString page = pagesOf(folder_.filePath("Comisioane-1.pdf")).join(QString());
  EXPECT_EQ(count(page, "Ion"), 4);
  EXPECT_EQ(count(page, "R ?A ?P ?O ?R ?T"), 1);  // the PDF reader reads spaced letters as one word
  EXPECT_EQ(count(page, "Editat de Tarvon .* Pagina: 1 din 1"), 1);
  EXPECT_EQ(count(page, "\\b0,30"), 1);

  grid_.clearSelection();
  button->click();
  page = pagesOf(folder_.filePath("Comisioane-2.pdf")).join(QString());
  EXPECT_EQ(shown, "0,00");
  EXPECT_EQ(count(page, "Ion"), 0);
  setPrintFolder({});
}

}  // namespace
}  // namespace velmar
