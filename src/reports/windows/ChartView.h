// Draws a labelled table of figures as a chart: bars, lines, areas, steps, bars with a line, or a circle.
#pragma once

#include <QtCharts/QChartView>

#include "reports/Charts.h"

namespace velmar {

enum class ChartShape { Bars, Lines, Areas, Steps, Combined, Circle };

class ChartView : public QChartView {
  Q_OBJECT
  Q_PROPERTY(QString text READ text)
 public:
  explicit ChartView(const QString& name, QWidget* parent = nullptr);

  /// `isRaised`: with a shadow, instead of three dimensions. `showsPercent`: on the slices of a circle.
  void showData(const ChartData& figures, ChartShape shape, bool isRaised, bool showsPercent);
  /// The title.
  QString text() const { return chart()->title(); }

 private:
  void addSlices(const ChartData& figures, bool showsPercent);
  void addSeries(const ChartData& figures, ChartShape shape);
};

}  // namespace velmar
