// A report of 100,000 lines: its first page, counting its pages, all pages as a PDF compared with the same
// cells drawn by plain QPdfWriter calls from prepared texts; and the memory for ten times as many lines.
#include <malloc.h>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryDir>

#include "Benches.h"
#include "reports/windows/ObjectPainter.h"
#include "reports/windows/ReportJob.h"
#include "store/ListRows.h"
#include "util/windows/PrintOutput.h"

namespace velmar::bench {

namespace {

constexpr int kLines = 100'000;
constexpr int kFewLines = 10'000;
constexpr int kReportRounds = 3;
constexpr double kFirstPageAimMs = 300;
constexpr double kDrawingAim = 1 / 0.7;  // 0.7 of the lines per second of plain drawing
constexpr double kMemoryAimMiB = 20;
constexpr int kScreenDots = 96;  // per inch
constexpr int kPaperDots = 1200;

layout::Cell cell(double width, const QString& formula, bool isNumber) {
  layout::Cell made;
  made.width = width;
  made.formula = formula;
  made.borders = {true, false, true, true};
  if (isNumber) {
    made.style.align = layout::Align::Right;
    made.style.format = layout::Format::Number;
  }
  return made;
}

/// The list of articles with a computed column, a sum, and totals carried from page to page.
layout::Layout listLayout() {
  using layout::RowRole;
  layout::Table table;
  table.sums = {{QStringLiteral("Total"), QStringLiteral("PRETVFT"), -1}};
  const auto row = [&table](RowRole role, const std::vector<layout::Cell>& cells) {
    table.rows.push_back({role, 0, {}, 5, cells});
  };
  row(RowRole::Header,
      {cell(15, "'Nr.'", false), cell(25, "'Cod'", false), cell(75, "'Denumire'", false),
       cell(15, "'UM'", false), cell(25, "'Pret'", false), cell(30, "'Pret cu TVA'", false)});
  row(RowRole::Brought, {cell(130, "'Report'", false), cell(25, "Total", true)});
  row(RowRole::Line, {cell(15, "nLinie", false), cell(25, "CODART", false), cell(75, "DENART", false),
                      cell(15, "UM", false), cell(25, "PRETVFT", true), cell(30, "PRETVFT * 1.19", true)});
  row(RowRole::Carried, {cell(130, "'De reportat'", false), cell(25, "Total", true)});
  row(RowRole::Total, {cell(130, "'Total'", false), cell(25, "Total", true)});
  layout::Layout made;
  layout::Object object;
  object.frame = QRectF(12, 20, 185, 262);
  object.content = table;
  made.objects.push_back(object);
  layout::Object foot;
  foot.frame = QRectF(12, 285, 100, 5);
  foot.content = layout::Text{QStringLiteral("'Pagina ' + nPagina + ' din ' + nPagini"), {}};
  made.objects.push_back(foot);
  return made;
}

std::unique_ptr<ReportJob> reportOf(int lines) {
  ReportData data;
  data.fieldNames = {"CODART", "DENART", "UM", "PRETVFT"};
  data.fields = std::make_shared<ListRows>(
      ListQuery{data.fieldNames.join(QStringLiteral(", ")), "G_ARTMAG", "CODART"},
      Condition{QStringLiteral("CODART <= ?"), {QString::asprintf("A%06d", lines)}},
      QStringLiteral("CODART"));
  return std::make_unique<ReportJob>(QStringLiteral("lista.lst"), listLayout(), data);
}

/// The cells of the lines as texts, page by page.
class BarePages {
 public:
  BarePages(const RowSource& rows, int linesOnPage) : linesOnPage_(linesOnPage) {
    for (int i = 0; i < rows.size(); ++i) {
      const Row& row = rows.row(i);
      texts_.append({QString::number(i + 1), row.text("CODART"), row.text("DENART"), row.text("UM"),
                     row.text("PRETVFT"), row.text("PRETVFT") + QStringLiteral("9")});
    }
  }

  void write(const QString& path) const {
    QPdfWriter writer(path);
    writer.setResolution(kPaperDots);
    writer.setPageSize(QPageSize(QPageSize::A4));
    QPainter painter(&writer);
    painter.scale(kPaperDots / double(kTwipsPerInch), kPaperDots / double(kTwipsPerInch));
    painter.setFont(layout::fontOf({}));
    painter.setPen(QPen(Qt::black, layout::toTwips(0.2)));
    for (int line = 0; line < texts_.size(); ++line) {
      if (line > 0 && line % linesOnPage_ == 0) {
        writer.newPage();
        painter.resetTransform();
        painter.scale(kPaperDots / double(kTwipsPerInch), kPaperDots / double(kTwipsPerInch));
      }
      drawLine(painter, texts_[line], layout::toTwips(20 + 5 * (line % linesOnPage_)));
    }
  }

 private:
  static void drawLine(QPainter& painter, const QStringList& texts, qreal top) {
    constexpr double kWidths[] = {15, 25, 75, 15, 25, 30};
    qreal left = layout::toTwips(12);
    for (qsizetype i = 0; i < texts.size(); ++i) {
      const QRectF square(left, top, layout::toTwips(kWidths[i]), layout::toTwips(5));
      painter.drawText(square.adjusted(40, 0, -40, 0), i < 4 ? Qt::AlignLeft : Qt::AlignRight, texts[i]);
      painter.drawLine(square.topLeft(), square.bottomLeft());
      painter.drawLine(square.topRight(), square.bottomRight());
      painter.drawLine(square.bottomLeft(), square.bottomRight());
      left = square.right();
    }
  }

  int linesOnPage_;
  QList<QStringList> texts_;
};

// The peak memory of the process since the last call to forgetPeak(), in MiB.
double peak() {
  QFile status(QStringLiteral("/proc/self/status"));
  if (!status.open(QIODevice::ReadOnly)) return 0;
  for (const QByteArray& line : status.readAll().split('\n'))
    if (line.startsWith("VmHWM:")) return line.simplified().split(' ').value(1).toDouble() / 1024;
  return 0;
}

void forgetPeak() {
  malloc_trim(0);
  QFile refs(QStringLiteral("/proc/self/clear_refs"));
  if (refs.open(QIODevice::WriteOnly)) refs.write("5");
}

// Writes all pages of that many lines; returns the peak memory meanwhile.
double peakOf(int lines, const QString& path) {
  forgetPeak();
  const auto job = reportOf(lines);
  writePdf(path, {}, *job, nullptr);
  return peak();
}

}  // namespace

bool measureReports(Store store) {
  const QString path = companyWithArticles(store, kLines);
  const OpenCompany company(path);
  const QTemporaryDir folder;
  const QString file = folder.filePath(QStringLiteral("lista.pdf"));

  // The engine's cache of the company's file is not memory of the report, so it is filled before both
  // measurements.
  reportOf(kLines)->pageCount();
  const double few = peakOf(kFewLines, file);
  const double many = peakOf(kLines, file);

  Times first, counted, written, bare;
  int pages = 0;
  bool held = true;
  for (int round = 0; round < kReportRounds; ++round) {
    QImage sheet(794, 1123, QImage::Format_RGB32);
    std::unique_ptr<ReportJob> job;
    first.add(timed([&] {
      job = reportOf(kLines);
      QPainter painter(&sheet);
      paintSheet(painter, *job, 0, kScreenDots);
    }));
    counted.add(timed([&] { pages = job->pageCount(); }));
    written.add(timed([&] { writePdf(file, {}, *job, nullptr); }));
    held = held && job->pageText(pages - 1).contains(QStringLiteral("%1 A").arg(kLines));
    const ListRows rows(
        {QStringLiteral("CODART, DENART, UM, PRETVFT"), QStringLiteral("G_ARTMAG"), QStringLiteral("CODART")},
        {}, QStringLiteral("CODART"));
    const BarePages drawn(rows, (kLines + pages - 1) / pages);
    bare.add(timed([&] { drawn.write(file); }));
  }

  printHeading(store, QStringLiteral("reports: o lista de 100.000 de randuri, %1 pagini").arg(pages),
               {QStringLiteral("Velmar"), QStringLiteral("desen simplu"), QStringLiteral("raport")});
  printRow(
      QStringLiteral("prima pagina"),
      {milliseconds(first.median()) + (first.median() > kFirstPageAimMs ? QStringLiteral(" !") : QString()),
       QString(), QStringLiteral("<= %1 ms").arg(kFirstPageAimMs)});
  printRow(QStringLiteral("numararea paginilor"), {milliseconds(counted.median()), {}, {}});
  const double times = written.median() / bare.median();
  noteRatio(QStringLiteral("reports: toate paginile"), store, times, kDrawingAim);
  printRow(QStringLiteral("toate paginile"),
           {milliseconds(written.median()), milliseconds(bare.median()), ratio(times, kDrawingAim)});
  const auto perSecond = [](double ms) { return QString::number(qRound(kLines / ms * 1000)); };
  printRow(QStringLiteral("randuri pe secunda"), {perSecond(written.median()), perSecond(bare.median()),
                                                  ratio(bare.median() / written.median(), kNoAim)});
  printRow(
      QStringLiteral("MiB peste 10.000 de randuri"),
      {QString::number(many - few, 'f', 1) + (many - few > kMemoryAimMiB ? QStringLiteral(" !") : QString()),
       QString(), QStringLiteral("<= %1").arg(kMemoryAimMiB)});
  return held;
}

}  // namespace velmar::bench
