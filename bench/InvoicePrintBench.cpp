// A customer invoice of 20 lines as a PDF file: reading, layout and writing, compared with the bare
// statements that read it and with drawing the same number of texts into a PDF.
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryDir>

#include "Bare.h"
#include "Benches.h"
#include "config/Session.h"
#include "documents/Listing.h"
#include "reports/windows/ReportJob.h"
#include "shell/ApplicationFolder.h"
#include "util/windows/PrintOutput.h"

namespace velmar::bench {

namespace {

constexpr int kDotsPerInch = 1200;
constexpr int kFrameTexts = 75;  // of the layout, without the lines

constexpr const char* kHeader =
    "SELECT F.NUMFAC, F.CODCLI, C.PROCENT, F.OBS, F.DATAFAC, F.CODDEVIZA, F.CURS, T.NUME FROM G_FACCLI F "
    "JOIN kt_cote C ON F.BATVA1 = C.COD LEFT JOIN kt_ter T ON T.COD = F.CODCLI WHERE F.NUMFAC = ?";
constexpr const char* kLines =
    "SELECT F.NRLINIE, F.DENUMIRE, F.UM, F.CANT, F.ValoareFTCuDiscount, F.VALOAREFT, F.VALOARETVA "
    "FROM G_LFACCL F JOIN G_ARTMAG A ON F.CODART = A.CODART WHERE F.NUMFAC = ? ORDER BY F.NRLINIE";
constexpr int kColumns = 7;

void printOurs(const QString& number, const QString& path) {
  const ListingKind& kind = listingKind(QStringLiteral("FC"));
  const QString file = listingFile(kind, {});
  const ReportJob job(file, layout::load(file), listingData(kind, readListed({&kind, number}), {}));
  writePdf(path, {}, job, nullptr);
}

void printBare(BareStatement& header, BareStatement& lines, const std::string& number, const QString& path) {
  QPdfWriter writer(path);
  writer.setResolution(kDotsPerInch);
  QPainter painter(&writer);
  int y = 0;
  const auto draw = [&painter, &y](int x, const QString& text) {
    painter.drawText(QRect(x, y, 4000, 300), 0, text);
  };
  header.bind(1, std::string_view(number)).step();
  for (int i = 0; i < kFrameTexts; ++i, y += 150) draw(i % 2 * 4000, QString::fromUtf8(header.text(7)));
  header.reset();
  lines.bind(1, std::string_view(number));
  while (lines.step()) {
    for (int column = 0; column < kColumns; ++column) {
      const std::string_view cell = lines.text(column);
      draw(column * 1300, QString::fromUtf8(cell.data(), static_cast<qsizetype>(cell.size())));
    }
    y += 200;
  }
  lines.reset();
}

}  // namespace

bool measureInvoicePrint(Store store) {
  const QString path = copyOfCompany(store, CompanySize::Trade, QStringLiteral("tiparire.mdb"));
  BareConnection bare(path);
  const OpenCompany company(path);
  const QTemporaryDir folder;
  prepareApplicationFolder(folder.path());
  BareStatement header = bare.prepare(kHeader);
  BareStatement lines = bare.prepare(kLines);
  Times ours, plain;
  for (int round = 0; round < kRounds; ++round) {
    const QString number = draftNumber(kSmallDocument, round);
    ours.add(timed([&] { printOurs(number, folder.filePath(QStringLiteral("factura.pdf"))); }));
    plain.add(timed(
        [&] { printBare(header, lines, number.toStdString(), folder.filePath(QStringLiteral("gol.pdf"))); }));
  }
  printHeading(store, QStringLiteral("print: o factura de 20 de linii in PDF"),
               {QStringLiteral("Velmar"), QStringLiteral("SQL si PDF"), QStringLiteral("raport")});
  const double times = ours.median() / plain.median();
  noteRatio(QStringLiteral("print: factura in PDF"), store, times);
  printRow(QStringLiteral("factura in PDF"),
           {milliseconds(ours.median()), milliseconds(plain.median()), ratio(times, kNoAim)});
  return true;
}

}  // namespace velmar::bench
