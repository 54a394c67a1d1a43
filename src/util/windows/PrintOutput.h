// Where pages go: to a printer, or into a PDF file.
#pragma once

#include <QStringList>

#include "util/windows/PrintJob.h"

namespace velmar {

/// Which pages go where.
struct PrintTarget {
  QString printer;  ///< empty: a PDF file
  int copies = 1;   ///< of a printer
  int first = 0;
  int last = -1;  ///< -1: to the end
};

/// Prints and previews go as PDF files into that folder from now on, named after the job and a counter, and
/// neither a printer nor a file name is asked for; empty ends it.
void setPrintFolder(const QString& path);
const QString& printFolder();

/// The printers of this machine.
QStringList installedPrinters();

/// Prints, or asks for the file of a PDF and writes it. Gives the file's path or the printer's name, empty
/// when the user gave up. Throws StoreError when the printer or the folder refuses.
QString sendTo(const PrintTarget& target, const PrintJob& job, QWidget* parent);

/// Writes a PDF file, whole or not at all.
void writePdf(const QString& path, const PrintTarget& pages, const PrintJob& job, QWidget* parent);

/// Leaves a copy of what a preview shows in the print folder, if there is one.
void keepPreviewCopy(const PrintJob& job, QWidget* parent);

/// Counts the pages, and shows how far it is where that takes long. Throws Cancelled when the user gives up.
int countPages(const PrintJob& job, QWidget* parent);

/// Draws a page on a device of that resolution.
void paintSheet(QPainter& painter, const PrintJob& job, int page, qreal dotsPerInch);

}  // namespace velmar
