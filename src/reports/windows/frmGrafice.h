// "Grafice": charts of the accounting notes, with their figures.
#pragma once

#include <QDialog>

#include "reports/Charts.h"
#include "reports/windows/ChartView.h"

class QCheckBox;
class QComboBox;
class QLabel;

namespace velmar {

class DateBox;
class NumberBox;
class SearchCombo;
class TDBGrid;

class frmGrafice : public QDialog {
  Q_OBJECT
 public:
  explicit frmGrafice(QWidget* parent = nullptr);

 private:
  QWidget* choices();
  void show(const ChartData& figures);
  void draw();
  void print();
  void savePicture();
  /// The chart that is shown; throws RuleError when none is.
  ChartView* shownChart() const;
  void run(const QString& name, const std::function<void()>& work);

  QComboBox* cmbMod_;
  QComboBox* cmbTip_;
  NumberBox* TextValoare_;
  QCheckBox* CheckProcent_;
  DateBox* DTPDeLa_;
  DateBox* DTPLa_;
  SearchCombo* cboCont_;
  ChartView* MSChart_;
  ChartView* MSChartPie_;
  TDBGrid* DataGrid_;
};

}  // namespace velmar
