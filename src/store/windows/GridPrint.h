// Prints the rows of a grid: its columns with headings and footers on each page, read from the list one page
// at a time.
#pragma once

#include <QMarginsF>
#include <vector>

#include "store/windows/TDBGrid.h"
#include "util/windows/PrintJob.h"

namespace velmar {

struct GridPrintSettings {
  enum class Rows { Selected, All };

  QString name;  ///< of the output files
  /// Texts of the page: "\t" moves to the next third of the line (left, middle, right), "\n" to the next
  /// line; "\p" is the page, "\P" the number of pages.
  QString header;
  QString footer;
  bool boldHeader = false;
  QPageLayout::Orientation orientation = QPageLayout::Portrait;
  QMarginsF margins = {10, 10, 10, 10};  ///< millimetres
  bool repeatHeads = true;               ///< on every page, else on the first
  bool repeatFooters = false;            ///< on every page, else under the last row
  bool wrapped = false;                  ///< long texts continue on further lines, else they are truncated
  Rows rows = Rows::Selected;
  QString key = {};          ///< key field of the rows
  QStringList columns = {};  ///< fields, from left to right; empty: the visible columns in their order
  QString htmlCopy = {};     ///< HTML file to which the same rows are written; empty: none
};

class GridPrint : public PrintJob {
 public:
  /// The grid must exist and be unchanged for the lifetime of the job.
  GridPrint(const TDBGrid& grid, const GridPrintSettings& settings);

  QString name() const override { return settings_.name; }
  QPageLayout pageLayout() const override { return layout_; }
  bool canSetPage() const override { return true; }
  void setPageLayout(const QPageLayout& layout) override;
  int pageCount() const override;
  void paintPage(QPainter& painter, int page) const override;
  QString pageText(int page) const override;

  /// Writes the rows as an HTML table; the file is written atomically.
  void writeHtml(const QString& path) const;

 private:
  /// A printed column; widths in twips at the full font size.
  struct Column {
    int section;
    QString caption;
    QString footer;
    bool right;
    qreal width;
  };

  /// A line of a row whose texts are wrapped.
  struct WrappedLine {
    QStringList texts;  ///< of columns_
    bool endsRow = false;
  };

  void takeColumns();
  qreal wantedWidth(int section, const Column& column) const;
  void arrange();
  void spreadColumns(qreal room);
  QList<int> repeatedColumns(qreal widest) const;
  void fillLine(qreal room);
  void wrapRows();
  int rowCount() const;
  int lineCount() const;
  int firstLineOf(int sheet) const;
  int linesOn(int sheet) const;
  int sheetCount() const;
  int bandCount() const { return static_cast<int>(bands_.size()); }
  QString cell(int row, const Column& column) const;
  QString lineText(int line, int column) const;
  void paintTexts(QPainter& painter, const QRectF& body, int page) const;
  void paintLine(QPainter& painter, const QString& text, const QRectF& room, int page) const;
  /// `whole`: a text that is too long is condensed instead of truncated.
  void paintCell(QPainter& painter, const QString& text, const Column& column, bool whole,
                 const QRectF& room) const;
  QRectF body() const;
  qreal headerHeight() const;
  qreal footerHeight() const;
  QFont letters(bool bold) const;

  const TDBGrid& grid_;
  GridPrintSettings settings_;
  QPageLayout layout_;
  QList<int> places_;  ///< of the selected rows
  QList<Column> columns_;
  QList<qreal> widths_;      ///< printed widths of columns_ at the full font size
  QList<QList<int>> bands_;  ///< the columns_ on each page, side by side
  qreal scale_ = 1;
  qreal rowHeight_ = 0;
  std::vector<WrappedLine> wrapped_;  ///< of all rows, when they are wrapped
  int firstLines_ = 1;                ///< lines of rows on the first sheet
  int laterLines_ = 1;                ///< lines of rows on each of the others
  bool hasFooters_ = false;
};

/// Shows the options and the preview, and writes the HTML copy. False when the user cancelled the options;
/// the copy is written even then.
bool printGrid(const TDBGrid& grid, const GridPrintSettings& settings, QWidget* parent);

}  // namespace velmar
