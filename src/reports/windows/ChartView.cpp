#include "reports/windows/ChartView.h"

#include <cmath>
#include <QtCharts/QAreaSeries>
#include <QtCharts/QBarCategoryAxis>
#include <QtCharts/QBarSeries>
#include <QtCharts/QBarSet>
#include <QtCharts/QLegend>
#include <QtCharts/QLineSeries>
#include <QtCharts/QPieSeries>
#include <QtCharts/QValueAxis>

#include "util/NumberText.h"

namespace velmar {

namespace {

constexpr int kMostSliceLabels = 30;
constexpr qreal kHalfStep = 0.5;

double figure(const ChartData& data, int row, int series) {
  return data.rows[row].decimal(data.fields[series]).toDouble();
}

QString labelOf(const ChartData& data, int row) { return data.rows[row].text("Eticheta"); }

}  // namespace

ChartView::ChartView(const QString& name, QWidget* parent) : QChartView(parent) {
  setObjectName(name);
  setRenderHint(QPainter::Antialiasing);
  chart()->legend()->setAlignment(Qt::AlignBottom);
  chart()->setLocalizeNumbers(true);
}

void ChartView::showData(const ChartData& figures, ChartShape shape, bool isRaised, bool showsPercent) {
  chart()->removeAllSeries();
  for (QAbstractAxis* axis : chart()->axes()) {
    chart()->removeAxis(axis);
    delete axis;
  }
  chart()->setTitle(figures.note.isEmpty() ? figures.title
                                           : figures.title + QStringLiteral(" (") + figures.note + u')');
  chart()->setDropShadowEnabled(isRaised);
  if (shape == ChartShape::Circle)
    addSlices(figures, showsPercent);
  else
    addSeries(figures, shape);
}

// A slice shows the size of its figure, with its sign in the label. Two columns are two slices of their sums.
void ChartView::addSlices(const ChartData& figures, bool showsPercent) {
  std::vector<std::pair<QString, double>> parts;
  if (figures.series.size() > 1) {
    for (int series = 0; series < figures.series.size(); ++series) {
      double sum = 0;
      for (int row = 0; row < figures.rows.size(); ++row) sum += figure(figures, row, series);
      parts.emplace_back(figures.series[series], sum);
    }
  } else {
    for (int row = 0; row < figures.rows.size(); ++row)
      parts.emplace_back(labelOf(figures, row), figure(figures, row, 0));
  }
  double whole = 0;
  for (const auto& [label, value] : parts) whole += std::abs(value);
  auto* pie = new QPieSeries;
  for (const auto& [label, value] : parts) {
    QString text = label + QStringLiteral(": ") + formatNumber(Decimal::fromDouble(value), 2);
    if (showsPercent && whole > 0)
      text += QStringLiteral(" (%1%)").arg(std::lround(std::abs(value) / whole * 100));
    pie->append(text, std::abs(value));
  }
  pie->setLabelsVisible(static_cast<int>(parts.size()) <= kMostSliceLabels);
  chart()->addSeries(pie);
}

void ChartView::addSeries(const ChartData& figures, ChartShape shape) {
  auto* labels = new QBarCategoryAxis;
  for (int row = 0; row < figures.rows.size(); ++row) {
    QString label = labelOf(figures, row);
    while (labels->categories().contains(label)) label += u' ';  // two partners may have one name
    labels->append(label);
  }
  auto* values = new QValueAxis;
  values->setLabelFormat(QStringLiteral("%.0f"));
  chart()->addAxis(labels, Qt::AlignBottom);
  chart()->addAxis(values, Qt::AlignLeft);
  const auto add = [&](QAbstractSeries* series) {
    chart()->addSeries(series);
    series->attachAxis(labels);
    series->attachAxis(values);
  };
  const auto line = [&](int column, bool isStepped) {
    auto* points = new QLineSeries;
    points->setName(figures.series[column]);
    for (int row = 0; row < figures.rows.size(); ++row) {
      if (isStepped) points->append(row - kHalfStep, figure(figures, row, column));
      points->append(isStepped ? row + kHalfStep : row, figure(figures, row, column));
    }
    points->setPointLabelsVisible(!isStepped && figures.rows.size() <= kMostSliceLabels);
    points->setPointLabelsFormat(QStringLiteral("@yPoint"));
    return points;
  };
  double least = 0, most = 0;
  for (int column = 0; column < figures.series.size(); ++column)
    for (int row = 0; row < figures.rows.size(); ++row) {
      least = std::min(least, figure(figures, row, column));
      most = std::max(most, figure(figures, row, column));
    }
  if (shape == ChartShape::Bars || shape == ChartShape::Combined) {
    auto* bars = new QBarSeries;
    for (int column = 0; column < figures.series.size(); ++column) {
      if (shape == ChartShape::Combined && column > 0) continue;
      auto* set = new QBarSet(figures.series[column]);
      for (int row = 0; row < figures.rows.size(); ++row) *set << figure(figures, row, column);
      bars->append(set);
    }
    bars->setLabelsVisible(figures.rows.size() * figures.series.size() <= kMostSliceLabels);
    bars->setLabelsPosition(QAbstractBarSeries::LabelsOutsideEnd);
    add(bars);
  }
  for (int column = 0; column < figures.series.size(); ++column) {
    if (shape == ChartShape::Lines || shape == ChartShape::Steps)
      add(line(column, shape == ChartShape::Steps));
    // With a single column its course lies over its bars.
    if (shape == ChartShape::Combined && (column > 0 || figures.series.size() == 1)) add(line(column, false));
    if (shape == ChartShape::Areas) {
      auto* area = new QAreaSeries(line(column, false));
      area->setName(figures.series[column]);
      area->upperSeries()->setParent(area);
      add(area);
    }
  }
  values->setRange(least, most > least ? most : least + 1);
  values->applyNiceNumbers();
}

}  // namespace velmar
