// What can be printed: pages that are drawn from their data each time they are wanted. Preview, printer and
// PDF take the same drawing, so a job of thousands of pages needs no more memory than one of a single page.
#pragma once

#include <QFont>
#include <QPageLayout>
#include <QStringList>

class QPainter;
class QWidget;

namespace velmar {

/// A page is drawn in twips, 1440 to the inch: fine enough that letters stand where their widths say on any
/// device.
inline constexpr int kTwipsPerInch = 1440;
inline constexpr int kTwipsPerPoint = 20;
inline constexpr qreal kTwipsPerMillimetre = kTwipsPerInch / 25.4;

/// The font in a size of the page.
QFont printFont(QFont font, qreal points);

class PrintJob {
 public:
  virtual ~PrintJob() = default;

  /// Names the files that are made of it: "Articole", "FacturiCLIFull".
  virtual QString name() const = 0;
  /// Sheet, orientation and margins.
  virtual QPageLayout pageLayout() const = 0;
  /// Whether the user may choose another layout; setPageLayout() then takes it, and the pages are counted
  /// anew.
  virtual bool canSetPage() const { return false; }
  virtual void setPageLayout(const QPageLayout&) {}
  /// At least 1; told without drawing the pages. May take its time, where pages have to be counted: see
  /// countPages() in PrintOutput.h.
  virtual int pageCount() const = 0;
  /// How many pages have been counted so far, and whether these are all.
  virtual int knownPages() const { return pageCount(); }
  virtual bool isCounted() const { return true; }
  /// Counts on for about that time; gives how far it is, in percent.
  virtual int countOn(int milliseconds) const {
    Q_UNUSED(milliseconds)
    return 100;
  }
  /// Draws the page, counted from 0. The origin is the upper left corner of the sheet, the unit the twip.
  virtual void paintPage(QPainter& painter, int page) const = 0;
  /// The words of a page, for the search in the preview.
  virtual QString pageText(int page) const = 0;
  /// Names of what could not be computed on the pages drawn so far.
  virtual QStringList faults() const { return {}; }
};

/// What is asked and shown on the way to the paper.
enum class PrintWay {
  Print,           ///< the options, then the printer
  Preview,         ///< the preview, from which the user may print
  SetUpAndPreview  ///< the options, then the preview
};

/// Takes a job down the way. False when the user gave up before a page was printed or shown.
bool printAndPreview(PrintJob& job, PrintWay way, QWidget* parent);

}  // namespace velmar
