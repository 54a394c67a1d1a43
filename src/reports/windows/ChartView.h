// Draws a labelled table of figures as a chart: bars, lines, areas, steps, bars with a line, or a circle.
#pragma once

#include <QtCharts/QChartView>

#include "reports/Charts.h"

class QAbstractSeries;
class QBarCategoryAxis;
class QPieSeries;
class QValueAxis;

namespace velmar {

class ChartLabels;

enum class ChartShape { Bars, Lines, Areas, Steps, Combined, Circle };

struct ChartLook {
  ChartShape shape = ChartShape::Bars;
  bool isRaised = false;      ///< with a shadow, instead of three dimensions
  bool showsPercent = false;  ///< on the slices of a circle
};

class ChartView : public QChartView {
  Q_OBJECT
  Q_PROPERTY(QString text READ text)
 public:
  explicit ChartView(const QString& name, QWidget* parent = nullptr);

  void showData(const ChartData& figures, const ChartLook& look);
  /// The title.
  QString text() const { return title_; }
  /// The same chart in that size, whatever the size in the window is.
  std::unique_ptr<ChartView> inSize(const QSize& size) const;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void drawBackground(QPainter* painter, const QRectF& exposed) override;
  /// All texts: Qt Charts cuts its own and draws them over each other.
  void drawForeground(QPainter* painter, const QRectF& exposed) override;

 private:
  struct Entry {
    QString name;
    QString figure;   ///< of a slice, as text
    QString percent;  ///< where it is asked for
    double size = 0;
    QColor color;
  };

  void addSlices();
  void addSeries();
  void addBars();
  void addCourses();
  void addAxes();
  /// Sets where the chart itself is, by what its texts need.
  void arrange();
  void arrangeSlices(const QRectF& body);
  void arrangeSeries(const QRectF& body);
  void drawLegend(ChartLabels& labels) const;
  void drawSliceLabels(ChartLabels& labels) const;
  void drawAxes(ChartLabels& labels, QPainter& painter) const;
  void drawFigures(ChartLabels& labels) const;
  QFontMetricsF metrics() const;
  QFont titleFont() const;
  QRectF sheet() const;
  bool hasShortSliceLabels() const;
  QString sliceFigure(const Entry& slice) const;
  bool isCircle() const { return look_.shape == ChartShape::Circle; }
  bool isBar(int series) const;
  double figure(int row, int series) const { return figures_[series][row]; }
  QString figureText(int row, int series) const;
  /// The position of a figure in the chart: of the end of its bar or of its point.
  QPointF position(int row, int series) const;

  ChartData data_;
  ChartLook look_;
  QString title_;
  int decimals_ = 2;
  std::vector<std::vector<double>> figures_;  // of each series, by row
  QStringList rowLabels_;
  std::vector<Entry> legend_;
  ChartScale scale_;
  QBarCategoryAxis* rows_ = nullptr;
  QValueAxis* values_ = nullptr;
  QPieSeries* pie_ = nullptr;

  // What arrange() found.
  QRectF titleArea_;
  QRectF legendArea_;
  int legendColumns_ = 1;
  enum class RowText { Line, Wrapped, Upright } rowText_ = RowText::Line;
  qreal rowTextHeight_ = 0;
  bool hasUprightFigures_ = false;
};

}  // namespace velmar
