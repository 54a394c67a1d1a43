#include "util/windows/PrintOutput.h"

#include <algorithm>
#include <QDir>
#include <QHash>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QSaveFile>
#include <QScopeGuard>
#include <QStandardPaths>

#include "util/Errors.h"
#include "util/FileNames.h"
#include "util/FileRights.h"
#include "util/windows/SaveName.h"
#include "util/windows/WorkProgress.h"

namespace velmar {

namespace {

constexpr int kDotsPerInch = 1200;

QString theFolder;

QString fileNameOf(const PrintJob& job) {
  const QString name = asFileName(job.name().trimmed());
  return name.isEmpty() ? QStringLiteral("Lista") : name;
}

QString nextFile(const PrintJob& job) {
  static QHash<QString, int> counters;
  const QString name = fileNameOf(job);
  return QDir(theFolder).filePath(QStringLiteral("%1-%2.pdf").arg(name).arg(++counters[name]));
}

int lastPage(const PrintTarget& pages, const PrintJob& job, QWidget* parent) {
  const int end = countPages(job, parent) - 1;
  return pages.last < 0 ? end : std::min(pages.last, end);
}

// The painter begins at the corner of the sheet; the job keeps its margins itself.
QPageLayout wholeSheet(const PrintJob& job) {
  QPageLayout layout = job.pageLayout();
  layout.setMode(QPageLayout::FullPageMode);
  return layout;
}

// Draws all pages; throws Cancelled when the user cancels.
void paintAll(QPagedPaintDevice& device, qreal dotsPerInch, const PrintTarget& pages, const PrintJob& job,
              QWidget* parent) {
  const int last = lastPage(pages, job, parent);
  WorkProgress progress("Tiparire", parent);
  QPainter painter;
  if (!painter.begin(&device))
    throw StoreError(kFileFailure, QStringLiteral("Tiparirea nu a putut incepe. Verificati imprimanta."));
  for (int page = pages.first; page <= last; ++page) {
    const bool turned = page == pages.first || device.newPage();
    if (!turned) throw StoreError(kFileFailure, QStringLiteral("Tiparirea s-a intrerupt."));
    paintSheet(painter, job, page, dotsPerInch);
    progress.show(page + 1 - pages.first, last + 1 - pages.first);
  }
  if (!painter.end()) throw StoreError(kFileFailure, QStringLiteral("Tiparirea s-a intrerupt."));
}

void printOn(const PrintTarget& target, const PrintJob& job, QWidget* parent) {
  QPrinter printer(QPrinterInfo::printerInfo(target.printer), QPrinter::HighResolution);
  printer.setDocName(job.name());
  printer.setPageLayout(wholeSheet(job));
  printer.setFullPage(true);
  const bool copiesItself = printer.supportsMultipleCopies();
  if (copiesItself) printer.setCopyCount(target.copies);
  for (int copy = 0; copy < (copiesItself ? 1 : target.copies); ++copy) {
    try {
      paintAll(printer, printer.resolution(), target, job, parent);
    } catch (...) {
      printer.abort();
      throw;
    }
  }
}

QString askForPdf(const PrintJob& job, QWidget* parent) {
  const QDir documents(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
  const QString ending = QStringLiteral(".pdf");
  return askSaveName(parent, "Salvare ca PDF", documents.filePath(fileNameOf(job) + ending),
                     "Fisiere PDF (*.pdf)", [&ending](const QString& path, const QString& /*filter*/) {
                       return path.endsWith(ending, Qt::CaseInsensitive) ? path : path + ending;
                     });
}

}  // namespace

QFont printFont(QFont font, qreal points) {
  font.setPixelSize(std::max(1, qRound(points * kTwipsPerPoint)));
  font.setHintingPreference(QFont::PreferNoHinting);
  // Letters with any spacing are not joined to ligatures, which text copied out of a PDF would keep.
  constexpr qreal kLeastSpacing = 1.0 / 64;
  font.setLetterSpacing(QFont::AbsoluteSpacing, kLeastSpacing);
  return font;
}

void setPrintFolder(const QString& path) { theFolder = path; }

const QString& printFolder() { return theFolder; }

QStringList installedPrinters() {
  return theFolder.isEmpty() ? QPrinterInfo::availablePrinterNames() : QStringList();
}

QString sendTo(const PrintTarget& target, const PrintJob& job, QWidget* parent) {
  if (theFolder.isEmpty() && !target.printer.isEmpty()) {
    printOn(target, job, parent);
    return target.printer;
  }
  const QString path = theFolder.isEmpty() ? askForPdf(job, parent) : nextFile(job);
  if (!path.isEmpty()) writePdf(path, target, job, parent);
  return path;
}

void writePdf(const QString& path, const PrintTarget& pages, const PrintJob& job, QWidget* parent) {
  QSaveFile file(path);
  openPrivately(file);
  {
    QPdfWriter writer(&file);
    writer.setResolution(kDotsPerInch);
    writer.setTitle(job.name());
    writer.setCreator(QStringLiteral("Velmar"));
    writer.setPageLayout(wholeSheet(job));
    paintAll(writer, kDotsPerInch, pages, job, parent);
  }
  if (!file.commit()) throw notWritten(file);
}

void keepPreviewCopy(const PrintJob& job, QWidget* parent) {
  if (!theFolder.isEmpty()) writePdf(nextFile(job), {}, job, parent);
}

int countPages(const PrintJob& job, QWidget* parent) {
  constexpr int kSlice = 100;  // milliseconds
  if (!job.isCounted()) {
    WorkProgress progress("Numararea paginilor", parent);
    while (!job.isCounted()) progress.show(job.countOn(kSlice), 100);
  }
  return job.pageCount();
}

void paintSheet(QPainter& painter, const PrintJob& job, int page, qreal dotsPerInch) {
  painter.save();
  const auto restored = qScopeGuard([&painter] { painter.restore(); });
  painter.scale(dotsPerInch / kTwipsPerInch, dotsPerInch / kTwipsPerInch);
  job.paintPage(painter, page);
}

}  // namespace velmar
