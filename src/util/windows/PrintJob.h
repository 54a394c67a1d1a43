// The interface of print jobs, whose pages are drawn from their data each time they are needed. Preview,
// printer and PDF use the same drawing, and a job of thousands of pages needs no more memory than one of a
// single page.
#pragma once

#include <QFont>
#include <QPageLayout>
#include <QStringList>

class QPainter;
class QWidget;

namespace velmar {

/// Pages are drawn in twips, 1440 per inch: fine enough for exact positions of letters on any device.
inline constexpr int kTwipsPerInch = 1440;
inline constexpr int kTwipsPerPoint = 20;
inline constexpr qreal kTwipsPerMillimetre = kTwipsPerInch / 25.4;

/// The font in a size of the page.
QFont printFont(QFont font, qreal points);

class PrintJob {
 public:
  virtual ~PrintJob() = default;

  /// The name of the output files: "Articole", "FacturiCLIFull".
  virtual QString name() const = 0;
  /// Sheet, orientation and margins.
  virtual QPageLayout pageLayout() const = 0;
  /// Whether the user may choose another page layout with setPageLayout(), after which pages are counted
  /// again.
  virtual bool canSetPage() const { return false; }
  virtual void setPageLayout(const QPageLayout&) {}
  /// At least 1; determined without drawing the pages. May take long if pages have to be counted: see
  /// countPages() in PrintOutput.h.
  virtual int pageCount() const = 0;
  /// The number of pages counted so far, and whether these are all.
  virtual int knownPages() const { return pageCount(); }
  virtual bool isCounted() const { return true; }
  /// Continues counting for about that time; returns the progress in percent.
  virtual int countOn(int milliseconds) const {
    Q_UNUSED(milliseconds)
    return 100;
  }
  /// Draws the page, counted from 0. The origin is the upper left corner of the sheet, the unit the twip.
  virtual void paintPage(QPainter& painter, int page) const = 0;
  /// The text of a page, for the search in the preview.
  virtual QString pageText(int page) const = 0;
  /// Names of what could not be computed on the pages drawn so far.
  virtual QStringList faults() const { return {}; }
};

/// The dialogs shown before printing.
enum class PrintWay {
  Print,           ///< the options, then the printer
  Preview,         ///< the preview, from which the user may print
  SetUpAndPreview  ///< the options, then the preview
};

/// Prints or previews a job. False when the user cancelled before a page was printed or shown.
bool printAndPreview(PrintJob& job, PrintWay way, QWidget* parent);

}  // namespace velmar
