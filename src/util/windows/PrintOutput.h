// Outputs pages to a printer or a PDF file.
#pragma once

#include <QStringList>

#include "util/windows/PrintJob.h"

namespace velmar {

/// The output device and the pages to print.
struct PrintTarget {
  QString printer;  ///< empty: a PDF file
  int copies = 1;   ///< of a printer
  int first = 0;
  int last = -1;  ///< -1: to the end
};

/// Redirects prints and previews to PDF files in that folder, named after the job and a counter, without
/// dialogs for printer or file name; an empty path ends this.
void setPrintFolder(const QString& path);
const QString& printFolder();

/// The printers of this computer.
QStringList installedPrinters();

/// Prints, or asks for the name of a PDF file and writes it. Returns the file's path or the printer's name,
/// empty when the user cancelled. Throws StoreError on a failure of the printer or the folder.
QString sendTo(const PrintTarget& target, const PrintJob& job, QWidget* parent);

/// Writes a PDF file atomically.
void writePdf(const QString& path, const PrintTarget& pages, const PrintJob& job, QWidget* parent);

/// Stores a copy of the previewed pages in the print folder, if one is set.
void keepPreviewCopy(const PrintJob& job, QWidget* parent);

/// Counts the pages, and shows the progress if that takes long. Throws Cancelled when the user cancels.
int countPages(const PrintJob& job, QWidget* parent);

/// Draws a page on a device of that resolution.
void paintSheet(QPainter& painter, const PrintJob& job, int page, qreal dotsPerInch);

}  // namespace velmar
