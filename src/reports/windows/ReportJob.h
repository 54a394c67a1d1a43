// Paginates and draws a report from a layout and its data. The start of each page is determined in one pass
// over the lines; each page is then drawn separately, so that a report of thousands of pages needs the memory
// of one.
#pragma once

#include <QImage>

#include "reports/Evaluation.h"
#include "reports/Layout.h"
#include "reports/LayoutParts.h"
#include "util/windows/PrintJob.h"

namespace velmar {

class ReportJob : public PrintJob {
 public:
  /// `file`: the layout's path, which determines the job's name and the folder of pictures.
  ReportJob(const QString& file, layout::Layout layout, const ReportData& data);

  /// Whether there is nothing to print: neither a row of variables nor a record set of lines.
  bool isEmpty() const { return evaluation_.setCount() == 0; }

  QString name() const override;
  QPageLayout pageLayout() const override;
  int pageCount() const override;
  int knownPages() const override { return static_cast<int>(sheets_.size()); }
  bool isCounted() const override { return isCounted_; }
  int countOn(int milliseconds) const override;
  void paintPage(QPainter& painter, int page) const override;
  QString pageText(int page) const override;
  QStringList faults() const override;
  /// The texts of all bar codes that are shown without bars, since their kind of code cannot represent them.
  QStringList textsWithoutBars() const;

 private:
  /// A position in the pass over the data.
  struct Position {
    int set = 0;
    int line = 0;    ///< the next one
    int blocks = 0;  ///< passed so far
    int step = 0;    ///< number of groups already checked for closing before that line
    bool opensSet = true;
    std::vector<QVariant> groups;  ///< of the previous line
    std::vector<Decimal> sums;     ///< up to the previous line
  };
  struct PageEnd {
    Position end;
    bool closesSet;
  };
  struct Sheet {
    Position start;
    std::vector<Decimal> sums;  ///< at its end
    int blocks = 0;             ///< passed at its end
    bool closesSet = false;
  };
  /// A row with the texts of its cells.
  struct FilledRow {
    const layout::TableRow* row;
    QStringList texts;
    qreal height;
  };
  using FilledRows = std::vector<FilledRow>;
  /// Rows that must be on the same page, and the position after them.
  struct Block {
    FilledRows rows;
    qreal height = 0;
    bool isLast = false;
    bool isTotal = false;
    Position next;
  };
  /// The formulas of a row, by their numbers.
  struct RowFormulas {
    int condition = -1;
    std::vector<int> cells;
  };
  /// The formulas of an object.
  struct ObjectFormulas {
    int condition = -1;
    int content = -1;
    int x = -1, y = -1;  ///< of a curve
  };
  class Flow;

  void addFormulas();
  /// The frame of an object in that page group, in twips.
  QRectF frameOf(size_t object, int set) const;
  bool countSheet() const;
  Sheet sheet(int page) const;
  layout::Place placeOf(const Position& position, int line, int page) const;
  bool isShown(int condition, const layout::Place& place) const;
  FilledRows filled(layout::RowRole role, int group, const layout::Place& place, bool withTexts) const;
  Block nextBlock(const Position& at, int page, bool withTexts) const;
  std::optional<Block> closingBlock(const Position& at, int firstClosed, int page, bool withTexts) const;
  Block lineBlock(const Position& at, const std::vector<QVariant>& groups, int firstOpened, int page,
                  bool withTexts) const;
  std::vector<QVariant> groupsAt(const layout::Place& place) const;
  void addToSums(std::vector<Decimal>& sums, int firstOpened, const layout::Place& place) const;
  PageEnd flow(const Position& start, int page, const Sheet* counted, Flow* out) const;
  bool hasTable(const layout::Place& place) const;
  QList<std::optional<QPointF>> pointsOf(const ObjectFormulas& formulas, const layout::Place& place) const;
  void putObject(size_t object, const Sheet& sheet, const layout::Place& place, Flow& out) const;
  void putPage(int page, Flow& out) const;
  QImage picture(const QString& path) const;

  QString file_;
  layout::Layout layout_;
  const layout::Table* table_;
  size_t tableObject_ = 0;  ///< index of the table among the objects, if there is one
  layout::Evaluation evaluation_;
  std::vector<RowFormulas> rowFormulas_;
  std::vector<ObjectFormulas> objectFormulas_;
  std::vector<int> groupFormulas_;
  std::vector<int> sumFormulas_;
  int extendsIf_ = -1;
  layout::Parts formulaParts_;  ///< the part of each formula
  mutable std::vector<Sheet> sheets_;
  mutable Position next_;
  mutable bool isCounted_ = false;
  mutable QHash<QString, QImage> pictures_;
};

}  // namespace velmar
