// The pages of reports. Figures are calculated by hand: line i (from 1) has i * 0.10 lei, so n lines have
// n * (n + 1) / 20 lei.
#include "reports/windows/ReportJob.h"

#include <gtest/gtest.h>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QTemporaryDir>

#include "Printers.h"
#include "reports/FullLayout.h"
#include "reports/windows/clsListLabel.h"
#include "TestCompany.h"
#include "util/NumberText.h"
#include "util/windows/PrintOutput.h"

namespace velmar::layout {
namespace {

Object sayingOf(const QString& formula, Pages pages = Pages::All) {
  return objectOf("Text", QRectF(10, 10, 100, 5), Text{formula, {}}, pages);
}

/// A table 50 mm high: ten rows of 5 mm.
Layout layoutOf(const Table& table, std::vector<Object> objects = {}) {
  Layout made;
  made.objects = std::move(objects);
  made.objects.push_back(objectOf("Tabel", QRectF(10, 100, 100, 50), table));
  return made;
}

Table listTable() {
  Table table;
  table.sums = {{"Suma", "VALOARE"}};
  table.rows = {
      rowOf(RowRole::Header, {cellOf(60, "'Denumire'")}),
      rowOf(RowRole::Brought, {cellOf(60, "'Report ' + numar(Suma)")}),
      rowOf(RowRole::Line, {cellOf(10, "nLinie"), cellOf(50, "DENUMIRE", true), cellOf(30, "VALOARE")}),
      rowOf(RowRole::Carried, {cellOf(60, "'De reportat ' + numar(Suma)")}),
      rowOf(RowRole::Total, {cellOf(60, "'Total ' + numar(Suma)")})};
  return table;
}

Recordset lines(int count, const std::function<void(int, std::vector<QVariant>&)>& change = {}) {
  Recordset rows(std::make_shared<Columns>(QStringList{"DENUMIRE", "VALOARE", "GRUPA", "SUBGRUPA"}));
  for (int i = 1; i <= count; ++i) {
    std::vector<QVariant> cells = {QStringLiteral("R%1").arg(i), i * 1.0 / 10, "A", "a"};
    if (change) change(i, cells);
    rows.append(cells);
  }
  return rows;
}

ReportData dataOf(const Recordset& rows) {
  ReportData data;
  data.fields = std::make_shared<RecordsetRows>(rows);
  data.fieldNames = rows.columns();
  return data;
}

QStringList pagesOf(const ReportJob& job) {
  QStringList pages;
  for (int page = 0; page < job.pageCount(); ++page) pages.append(job.pageText(page));
  return pages;
}

constexpr int kPixels = 4;  // to the millimetre

QImage painted(const ReportJob& job, int page) {
  QImage sheet(210 * kPixels, 297 * kPixels, QImage::Format_Grayscale8);
  sheet.fill(Qt::white);
  QPainter painter(&sheet);
  paintSheet(painter, job, page, 25.4 * kPixels);
  return sheet;
}

// Whether something is drawn in that rectangle, in mm.
bool isInked(const QImage& sheet, const QRect& area) {
  for (int y = area.top() * kPixels; y < (area.bottom() + 1) * kPixels; ++y)
    for (int x = area.left() * kPixels; x < (area.right() + 1) * kPixels; ++x)
      if (qGray(sheet.pixel(x, y)) < 128) return true;
  return false;
}

QString sumOf(int count) { return formatNumber(Decimal(count) * (count + 1) / 20, 2); }

// Header and total leave room for 8 lines on a single page; otherwise a page has header and carried row, from
// the second on also the brought row, and therefore 8 and 7 lines.
TEST(ReportJob, LinesAndSumsAreOnTheirPages) {
  const std::pair<int, int> cases[] = {{0, 1}, {1, 1}, {8, 1}, {9, 2}, {40, 6}, {400, 57}};
  for (const auto& [count, pages] : cases) {
    const ReportJob job("x.lst", layoutOf(listTable()), dataOf(lines(count)));
    ASSERT_EQ(job.pageCount(), pages) << count;
    const QStringList said = pagesOf(job);
    int line = 0;
    for (int page = 0; page < pages; ++page) {
      QStringList expected = {"Denumire"};
      if (page > 0) expected.append("Report " + sumOf(line));
      const int last = page == pages - 1 ? count : line + (page == 0 ? 8 : 7);
      while (line < last) {
        ++line;
        expected.append(QStringLiteral("%1 R%1 %2").arg(line).arg(editNumber(Decimal(line) / 10)));
      }
      expected.append((page == pages - 1 ? "Total " : "De reportat ") + sumOf(line));
      EXPECT_EQ(said[page], expected.join('\n')) << count << " lines, page " << page;
    }
  }
}

// On the page the number of pages needs three lines of the narrow cell until it is known, then four.
TEST(ReportJob, CountingThePagesMovesNoLine) {
  Table table = listTable();
  table.rows[0].cells[0] =
      cellOf(14, "'Pagina ' + nPagina + ' din ' + (nPagini == '...' ? nPagini : 'toate acestea')", true);
  const ReportJob job("x.lst", layoutOf(table), dataOf(lines(200)));
  EXPECT_LE(job.knownPages(), 1);
  const QString before = job.pageText(3);
  EXPECT_FALSE(job.isCounted());
  EXPECT_TRUE(before.startsWith("Pagina 4 din ...\n"));
  while (!job.isCounted()) job.countOn(1);
  EXPECT_EQ(job.pageText(3), QString(before).replace("...", "toate acestea"));
  QString all = pagesOf(job).join('\n');
  for (int i = 1; i <= 200; ++i) EXPECT_EQ(all.count(QStringLiteral("\n%1 R%1 ").arg(i)), 1) << i;
}

TEST(ReportJob, ALongNameMovesToTheNextPageAndOneHigherThanThePageIsTruncated) {
  const auto named = [](int at, int words) {
    return dataOf(lines(12, [=](int i, std::vector<QVariant>& cells) {
      if (i == at) cells[0] = QStringLiteral("denumire ").repeated(words).trimmed();
    }));
  };
  const QStringList pages = pagesOf(ReportJob("x.lst", layoutOf(listTable()), named(7, 25)));
  ASSERT_EQ(pages.size(), 3);
  EXPECT_TRUE(pages[0].contains("6 R6") && !pages[0].contains("7 denumire"));
  EXPECT_TRUE(pages[0].endsWith("De reportat 2,10"));
  EXPECT_EQ(pages[1].count("denumire"), 25);

  const ReportJob tall("x.lst", layoutOf(listTable(), {sayingOf("'antet'")}), named(3, 2000));
  const QStringList cut = pagesOf(tall);
  ASSERT_EQ(cut.size(), 4);
  EXPECT_TRUE(cut[1].contains("3 denumire") && !cut[1].contains("4 R4"));
  EXPECT_TRUE(cut[3].contains("12 R12") && cut[3].contains("Total 7,80"));
  // It is truncated at the end of the table, 150 mm from the top, and does not overwrite anything below it.
  const QImage sheet = painted(tall, 1);
  EXPECT_TRUE(isInked(sheet, {0, 120, 210, 29}));
  EXPECT_FALSE(isInked(sheet, {0, 156, 210, 141}));
}

TEST(ReportJob, GroupsBeginAndEndWithTheirOwnSums) {
  Table table;
  table.groups = {"GRUPA", "SUBGRUPA"};
  table.sums = {{"Tot", "VALOARE", -1}, {"SumaGrupa", "VALOARE", 0}, {"SumaSub", "VALOARE", 1}};
  table.rows = {rowOf(RowRole::GroupHeader, {cellOf(60, "'Grupa ' + GRUPA")}, 0),
                rowOf(RowRole::GroupHeader, {cellOf(60, "'Sub ' + SUBGRUPA")}, 1),
                rowOf(RowRole::Line, {cellOf(60, "DENUMIRE"), cellOf(20, "SumaGrupa")}),
                rowOf(RowRole::GroupFooter, {cellOf(60, "'=' + SUBGRUPA"), cellOf(20, "SumaSub")}, 1),
                rowOf(RowRole::GroupFooter, {cellOf(60, "'==' + GRUPA"), cellOf(20, "SumaGrupa")}, 0),
                rowOf(RowRole::Total, {cellOf(60, "'Total'"), cellOf(20, "Tot")})};
  table.rows[2].condition = "DENUMIRE != 'R2'";  // not shown, but counted
  const ReportJob job("x.lst", layoutOf(table), dataOf(lines(5, [](int i, std::vector<QVariant>& cells) {
                        cells[2] = i <= 3 ? "A" : "B";
                        cells[3] = i <= 2 ? "a" : "b";
                      })));
  EXPECT_EQ(pagesOf(job).join('\n').split('\n'),
            QStringList({"Grupa A", "Sub a", "R1 0,1", "=a 0,3", "Sub b", "R3 0,6", "=b 0,3", "==A 0,6",
                         "Grupa B", "Sub b", "R4 0,4", "R5 0,9", "=b 0,9", "==B 0,9", "Total 1,5"}));
  // The headers of group B are not alone at the end of a page.
  ASSERT_EQ(job.pageCount(), 2);
  EXPECT_TRUE(job.pageText(1).startsWith("Grupa B"));
}

TEST(ReportJob, EachRowOfTheVariablesIsAPageGroupAndNamesHaveTheirScopes) {
  Table table = listTable();
  table.rows[2].cells = {cellOf(20, "denumire"), cellOf(20, "Client"), cellOf(20, "Suma")};
  const Layout layout =
      layoutOf(table, {sayingOf("'Factura ' + NUMAR + ' ' + DENUMIRE + ' p.' + nPagina"),
                       sayingOf("'prima'", Pages::First), sayingOf("'urmatoarele'", Pages::Following),
                       sayingOf("'ultima ' + numar(suma, 1)", Pages::Last), sayingOf("VALOARE")});
  ReportData data = dataOf(lines(10));
  data.variables = Recordset(std::make_shared<Columns>(QStringList{"NUMAR", "CLIENT", "DENUMIRE"}));
  data.variables.append({7, "Ion", "antet"});
  data.variables.append({8, QVariant(), "antet"});
  data.hasVariables = true;
  data.extraVariables = {described("Client", "Ana")};
  const QStringList pages = pagesOf(ReportJob("x.lst", layout, data));
  ASSERT_EQ(pages.size(), 4);
  EXPECT_EQ(pages[0].split('\n', Qt::SkipEmptyParts).first(4),
            QStringList({"Factura 7 antet p.1", "prima", "Denumire", "R1 Ana 0,1"}));
  EXPECT_EQ(pages[1].split('\n', Qt::SkipEmptyParts),
            QStringList({"Factura 7 antet p.2", "urmatoarele", "ultima 5,5", "Denumire", "Report 3,60",
                         "R9 Ana 4,5", "R10 Ana 5,5", "Total 5,50"}));
  EXPECT_TRUE(pages[2].startsWith("Factura 8 antet p.3\nprima\n"));
  EXPECT_TRUE(pages[3].endsWith("R10 Ana 5,5\nTotal 5,50"));
}

TEST(ReportJob, ATableThatIsHiddenOrHasNoRoomStillEnds) {
  Layout layout = layoutOf(listTable(), {sayingOf("'antet'")});
  layout.objects.back().condition = "Tiparit";
  const ReportJob hidden("x.lst", layout, dataOf(lines(100)));
  EXPECT_EQ(pagesOf(hidden), QStringList("antet"));
  layout = layoutOf(listTable());
  layout.objects.back().frame.setHeight(0);
  EXPECT_GE(ReportJob("x.lst", layout, dataOf(lines(30))).pageCount(), 30);
  Table bare = listTable();
  bare.rows.clear();
  EXPECT_EQ(ReportJob("x.lst", layoutOf(bare), dataOf(lines(1000))).pageCount(), 1);
}

// 15 mm more are three rows; what is at the lower end of the table or below it moves down with it.
TEST(ReportJob, ATableIsLongerWhereItsConditionHoldsAndMovesWhatIsBelow) {
  Table table = listTable();
  table.extension = 15;
  table.extendsIf = "!CHITANTA";
  const Layout layout =
      layoutOf(table, {objectOf("Jos", QRectF(10, 150, 40, 2), Box{0, "#000000", "#000000", 0})});
  for (const bool receipt : {true, false}) {
    ReportData data = dataOf(lines(11));
    data.extraVariables = {described("CHITANTA", receipt)};
    const ReportJob job("x.lst", layout, data);
    EXPECT_EQ(job.pageCount(), receipt ? 2 : 1);
    EXPECT_EQ(isInked(painted(job, 0), {10, 165, 40, 2}), !receipt);
  }
}

TEST(ReportJob, ReportsWhatItCannotCompute) {
  Table table = listTable();
  table.rows[2].cells[2].formula = "VALOARE / (VALOARE - 0.3)";
  Layout layout = layoutOf(table, {sayingOf("VALOARE + "), sayingOf("NEDEFINIT"), sayingOf("")});
  layout.objects[0].name = "Total";
  const ReportJob job("x.lst", layout, dataOf(lines(3)));
  EXPECT_TRUE(job.faults().isEmpty());
  EXPECT_TRUE(job.pageText(0).contains("3 R3 \n"));
  EXPECT_EQ(job.faults(), QStringList({"Text Total", "Tabel Tabel, rand 3 (Linie), celula 3"}));
}

// 50 wide letters take less than the 7 mm of their frame, and nothing is drawn below it.
TEST(ReportJob, AWrappedTextStaysInItsFrame) {
  ReportData data;
  data.variables = lines(1);
  data.hasVariables = true;
  for (const int letters : {50, 5000}) {
    Layout layout;
    layout.objects = {sayingOf(QStringLiteral("'%1'").arg(QString(letters, 'W')))};
    layout.objects[0].frame = QRectF(10, 10, 45, 7);
    std::get<Text>(layout.objects[0].content).style.wraps = true;
    const QImage sheet = painted(ReportJob("x.lst", layout, data), 0);
    EXPECT_TRUE(isInked(sheet, {10, 14, 45, 3}));
    EXPECT_FALSE(isInked(sheet, {0, 17, 210, 280}) || isInked(sheet, {55, 10, 155, 7})) << letters;
  }
}

// 400 lines in two groups through a real PDF: every line once, the sums of lines with 2.5 * (i / 10) lei.
TEST(ReportJob, APdfContainsTheTextOfThePages) {
  Recordset rows(std::make_shared<Columns>(QStringList{"DENUMIRE", "COD", "CANT", "PRET", "GRUPA"}));
  for (int i = 1; i <= 400; ++i)
    rows.append({QStringLiteral("Surub %1").arg(i), QStringLiteral("C%1").arg(i), 2.5, i * 1.0 / 10,
                 i <= 150 ? "A" : "B"});
  ReportData data = dataOf(rows);
  data.extraVariables = {described("NUMFAC", 1234), described("DATAFAC", QDate(2026, 11, 25))};
  const ReportJob job("FacturaProba.lst", fullLayout(), data);
  EXPECT_EQ(job.name(), "FacturaProba");
  EXPECT_EQ(job.pageLayout().pageSize().id(), QPageSize::A4);
  const QTemporaryDir folder;
  const QString path = folder.filePath("x.pdf");
  writePdf(path, {}, job, nullptr);
  QProcess reader;
  reader.start("pdftotext", {"-layout", path, "-"});
  ASSERT_TRUE(reader.waitForFinished());
  const QString said = QString::fromUtf8(reader.readAllStandardOutput());
  for (int i = 1; i <= 400; ++i) EXPECT_EQ(said.count(QStringLiteral("<C%1>").arg(i)), 1) << i;
  EXPECT_EQ(said.count("Factura 1234 & anexe"), job.pageCount());
  EXPECT_EQ(said.count("5941234567899"), 1);  // 3 * 34 + 29 = 131
  // 2.5 * 0.1 * (1 + ... + 150) = 2831.25; up to 400 it is 20050.
  EXPECT_TRUE(said.contains("2.831,25") && said.contains("17.218,75"));
  EXPECT_EQ(said.count("20.050,00"), 1);
  EXPECT_TRUE(said.contains(QStringLiteral("Pagina %1 din %1").arg(job.pageCount())));
  EXPECT_EQ(said.count("25.11.2026"), job.pageCount());
}

TEST(ReportJob, DamagedLayoutsArePaintedOrRefused) {
  const QByteArray whole = write(fullLayout());
  std::mt19937 random(7);  // NOLINT(cert-msc51-cpp): the same files in every run
  ReportData data = dataOf(lines(60));
  QImage sheet(200, 300, QImage::Format_RGB32);
  int painted = 0;
  for (int i = 0; i < 600; ++i) {
    try {
      const ReportJob job("x.lst", read(damaged(whole, random)), data);
      QPainter painter(&sheet);
      paintSheet(painter, job, job.pageCount() - 1, 20);
      ++painted;
    } catch (const LayoutError&) {
    }
  }
  EXPECT_GT(painted, 20);
}

TEST(ListLabel, PrintsOnlyExistingDataAndReportsErrors) {
  MessageRecorder messages;
  const QTemporaryDir folder;
  save(folder.filePath("Proba.LST"), layoutOf(listTable()));
  setPrintFolder(folder.path());
  clsListLabel nothing(nullptr);
  nothing.setFileName(folder.filePath("Proba.LST"));
  EXPECT_FALSE(nothing.Print_Preview(clsListLabel::Preview));
  ReportData noVariables;
  noVariables.hasVariables = true;
  nothing.setData(noVariables);
  EXPECT_FALSE(nothing.Print_Preview(clsListLabel::Preview));

  clsListLabel report(nullptr);
  report.setFileName(folder.path().replace('/', '\\') + "\\proba.lst");
  EXPECT_EQ(report.FileName(), folder.filePath("Proba.LST"));
  report.setFields(lines(0));
  report.AddVarsFromRecordset(lines(1), {"VALOARE"});
  report.AddVarsFromRecordset(Recordset());

  QFile damagedFile(folder.filePath("Stricat.lst"));
  ASSERT_TRUE(damagedFile.open(QIODevice::WriteOnly));
  damagedFile.write("<report>\n<text bold=\"poate\"/></report>");
  damagedFile.close();
  report.setFileName(damagedFile.fileName());
  EXPECT_FALSE(report.Print_Preview(clsListLabel::Print));
  const QStringList messagesShown = messages.take();
  ASSERT_EQ(messagesShown.size(), 1);
  EXPECT_TRUE(messagesShown[0].contains("Stricat.lst") && messagesShown[0].contains("Linia 2, coloana"))
      << qUtf8Printable(messagesShown[0]);
  report.setFileName(folder.filePath("lipsa.lst"));
  EXPECT_THROW(report.Print_Preview(clsListLabel::Preview), StoreError);
  setPrintFolder({});
}

TEST(ReportData, TypesOfValuesAndNames) {
  EXPECT_EQ(GetLLTip(QVariant(1.5).metaType()), LLTip::Number);
  EXPECT_EQ(GetLLTip(QVariant(qlonglong(1)).metaType()), LLTip::Number);
  EXPECT_EQ(GetLLTip(QMetaType::fromType<Decimal>()), LLTip::Number);
  EXPECT_EQ(GetLLTip(QVariant(QMetaType(QMetaType::Double)).metaType()), LLTip::Number);  // a null
  EXPECT_EQ(GetLLTip(QVariant(QDate()).metaType()), LLTip::Date);
  EXPECT_EQ(GetLLTip(QVariant(true).metaType()), LLTip::Boolean);
  EXPECT_EQ(GetLLTip(QVariant("x").metaType()), LLTip::Text);
  EXPECT_EQ(GetLLTip(QMetaType()), LLTip::Text);
  EXPECT_EQ(static_cast<unsigned>(LLTip::Date), 0x4000008U);
  EXPECT_EQ(reportValue({"D", LLTip::Date, 46351.0}), QVariant(QDate(2026, 11, 25)));

  // The first row has no price; the column is numeric nevertheless.
  ReportData data = dataOf(lines(2, [](int i, std::vector<QVariant>& cells) {
    if (i == 1) cells[1] = QVariant();
  }));
  data.extraFields = {described("Nou", true)};
  const ReportValues fields = definedFields(data);
  ASSERT_EQ(fields.size(), 5U);
  EXPECT_EQ(fields[1].name, "VALOARE");
  EXPECT_EQ(fields[1].type, LLTip::Number);
  EXPECT_TRUE(fields[1].value.isNull());
  EXPECT_EQ(fields[4].type, LLTip::Boolean);
}

}  // namespace
}  // namespace velmar::layout
