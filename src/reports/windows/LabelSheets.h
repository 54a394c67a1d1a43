// Places the labels of a report job, each of which is one of its pages, on sheets.
#pragma once

#include "reports/windows/ReportJob.h"

namespace velmar {

/// How often each label is printed, and where the first one is placed.
struct LabelRun {
  int copies = 1;
  int firstPlace = 1;  ///< of the first sheet, by rows; the places before it are used already
};

class LabelSheets : public PrintJob {
 public:
  /// `labels` are those of the job's layout; the job must outlive this object. Throws RuleError when the
  /// sheet has no such first place.
  LabelSheets(const ReportJob& job, const layout::Page& label, const layout::Labels& labels,
              const LabelRun& run);

  QString name() const override { return job_.name(); }
  QPageLayout pageLayout() const override;
  int pageCount() const override { return sheetsFor(job_.pageCount()); }
  int knownPages() const override { return job_.knownPages() == 0 ? 0 : sheetsFor(job_.knownPages()); }
  bool isCounted() const override { return job_.isCounted(); }
  int countOn(int milliseconds) const override { return job_.countOn(milliseconds); }
  void paintPage(QPainter& painter, int page) const override;
  QString pageText(int page) const override;
  QStringList faults() const override { return job_.faults(); }

 private:
  int places() const { return labels_.columns * labels_.rows; }
  int sheetsFor(int labels) const;
  /// The label at that place of a sheet, -1: none.
  int labelAt(int sheet, int place) const;

  const ReportJob& job_;
  layout::Page label_;
  layout::Labels labels_;
  LabelRun run_;
};

}  // namespace velmar
