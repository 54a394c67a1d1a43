// The rows of a report in a list: sorted by their headings, with sums at the foot, exported, and each with
// the way to its document, article or partner.
#pragma once

#include <QWidget>

#include "reports/StockReports.h"

namespace velmar {

class TDBGrid;

class frmEcran : public QWidget {
  Q_OBJECT
 public:
  frmEcran(const StockReport& report, Recordset rows, QWidget* parent = nullptr);
  QSize sizeHint() const override { return {1160, 480}; }

 private:
  void showTotals();
  /// Opens the document or order of the current row, else its article, else the documents of its partner.
  void openSource();
  void openDeviceOrder(const Row& row);

  ReportLinks links_;
  std::vector<ReportColumn> columns_;
  TDBGrid* grid_;
};

}  // namespace velmar
