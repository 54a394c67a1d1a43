#include "reports/windows/ChartView.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>
#include <QGraphicsLayout>
#include <QtCharts/QAreaSeries>
#include <QtCharts/QBarCategoryAxis>
#include <QtCharts/QBarSeries>
#include <QtCharts/QBarSet>
#include <QtCharts/QLegend>
#include <QtCharts/QLineSeries>
#include <QtCharts/QPieSeries>
#include <QtCharts/QValueAxis>

#include "reports/windows/ChartLabels.h"
#include "util/NumberText.h"

namespace velmar {

namespace {

constexpr qreal kHalfStep = 0.5;
constexpr qreal kBarWidth = 0.7;  // of the width of a row, for all its bars
constexpr qreal kEdge = 14;
constexpr qreal kMargin = 8;  // of the sheet in the view
constexpr int kTitlePixels = 14;
constexpr qreal kGap = 5;
constexpr int kAreaAlpha = 110;
constexpr qreal kNameWidth = 90;  // of a slice

const QRgb kColors[] = {0x1f77b4, 0xff7f0e, 0x2ca02c, 0xd62728, 0x9467bd, 0x8c564b,
                        0xe377c2, 0x7f7f7f, 0xbcbd22, 0x17becf, 0x3b3eac, 0x66aa00};

// Neighbours differ; after the last one the colours return lighter, then darker.
QColor colorOf(size_t index) {
  constexpr int kDarker = 150, kWhite = 255;
  const QColor color = QColor::fromRgb(kColors[index % std::size(kColors)]);
  const auto lighter = [](int part) { return (part + kWhite) / 2; };
  const size_t round = index / std::size(kColors) % 3;
  return round == 0   ? color
         : round == 1 ? QColor(lighter(color.red()), lighter(color.green()), lighter(color.blue()))
                      : color.darker(kDarker);
}

}  // namespace

ChartView::ChartView(const QString& name, QWidget* parent) : QChartView(parent) {
  setObjectName(name);
  setRenderHint(QPainter::Antialiasing);
  setViewportUpdateMode(FullViewportUpdate);
  chart()->legend()->hide();
  chart()->setBackgroundVisible(false);
}

void ChartView::showData(const ChartData& figures, const ChartLook& look) {
  chart()->removeAllSeries();
  for (QAbstractAxis* axis : chart()->axes()) {
    chart()->removeAxis(axis);
    delete axis;
  }
  data_ = figures;
  look_ = look;
  decimals_ = chartDecimals(figures);
  legend_.clear();
  rowLabels_.clear();
  pie_ = nullptr;
  viewport()->setToolTip({});
  title_ =
      figures.note.isEmpty() ? figures.title : figures.title + QStringLiteral(" (") + figures.note + u')';
  if (isCircle())
    addSlices();
  else
    addSeries();
  arrange();
  scene()->update();
}

std::unique_ptr<ChartView> ChartView::inSize(const QSize& size) const {
  auto view = std::make_unique<ChartView>(objectName());
  view->setFrameShape(NoFrame);
  view->resize(size);
  view->chart()->resize(size);
  view->setSceneRect({{0, 0}, QSizeF(size)});
  view->showData(data_, look_);
  view->chart()->layout()->activate();
  return view;
}

void ChartView::resizeEvent(QResizeEvent* event) {
  QChartView::resizeEvent(event);
  arrange();
}

// A slice shows the size of its figure, its label the sign. Neighbours too thin to be seen apart are drawn as
// one, since each costs more than all figures; the legend and the figures beside the chart have them all.
void ChartView::addSlices() {
  pie_ = new QPieSeries;
  QList<QPieSlice*> parts;
  constexpr size_t kMostEdges = 100;   // more would cover the slices
  constexpr double kThinnest = 0.001;  // of the circle: a pixel at its edge
  constexpr int kMostNamed = 10;       // of the slices in one part
  const std::vector<ChartSlice> figures = chartSlices(data_);
  double whole = 0;
  for (const ChartSlice& slice : figures) whole += std::abs(slice.figure.toDouble());
  double largest = 0;
  int inPart = 0;
  bool isOpen = false;  // the last part takes further thin slices
  for (const ChartSlice& slice : figures) {
    QString figure = formatNumber(slice.figure, 2);
    const QString percent = look_.showsPercent ? QStringLiteral("%1%").arg(slice.percent) : QString();
    if (look_.showsPercent) figure += QStringLiteral(" (") + percent + u')';
    legend_.push_back(
        {slice.label, figure, percent, std::abs(slice.figure.toDouble()), colorOf(legend_.size())});
    const double size = legend_.back().size;
    const QString text = slice.label + QStringLiteral(": ") + figure;
    const bool isThin = figures.size() > kMostEdges && size < whole * kThinnest;
    if (!isThin || !isOpen) {
      parts.append(new QPieSlice(text, size));
      parts.back()->setPen(figures.size() <= kMostEdges ? QPen(Qt::white, 1) : QPen(Qt::NoPen));
      parts.back()->setBrush(legend_.back().color);
      largest = size;
      inPart = 1;
    } else {
      QPieSlice* part = parts.back();
      part->setValue(part->value() + size);
      if (size > largest) part->setBrush(legend_.back().color);
      largest = std::max(largest, size);
      if (++inPart <= kMostNamed)
        part->setLabel(part->label() + (inPart == kMostNamed ? "\n..." : u'\n' + text));
    }
    isOpen = isThin && parts.back()->value() < whole * kThinnest;
  }
  pie_->append(parts);  // at once: each call arranges all slices
  connect(pie_, &QPieSeries::hovered, this, [this](QPieSlice* slice, bool isOver) {
    viewport()->setToolTip(isOver ? slice->label() : QString());
  });
  chart()->addSeries(pie_);
}

bool ChartView::isBar(int series) const {
  return look_.shape == ChartShape::Bars || (look_.shape == ChartShape::Combined && series == 0);
}

void ChartView::addSeries() {
  figures_.assign(data_.series.size(), {});
  for (int series = 0; series < data_.series.size(); ++series) {
    for (const Row& row : data_.rows)
      figures_[series].push_back(row.decimal(data_.fields[series]).toDouble());
    legend_.push_back({data_.series[series], {}, {}, 0, colorOf(series)});
  }
  for (const Row& row : data_.rows) rowLabels_.append(row.text("Eticheta"));
  addAxes();
  addBars();
  addCourses();
}

void ChartView::addAxes() {
  rows_ = new QBarCategoryAxis;
  QStringList categories;
  for (int row = 0; row < rowLabels_.size(); ++row) categories.append(QString::number(row));
  rows_->append(categories);
  rows_->setGridLineVisible(false);
  values_ = new QValueAxis;
  for (QAbstractAxis* axis : {static_cast<QAbstractAxis*>(rows_), static_cast<QAbstractAxis*>(values_)})
    axis->setLabelsVisible(false);
  chart()->addAxis(rows_, Qt::AlignBottom);
  chart()->addAxis(values_, Qt::AlignLeft);
}

void ChartView::addBars() {
  auto* bars = new QBarSeries;
  for (int series = 0; series < data_.series.size(); ++series) {
    if (!isBar(series)) continue;
    auto* set = new QBarSet(data_.series[series]);
    for (const double value : figures_[series]) *set << value;
    set->setColor(legend_[series].color);
    set->setBorderColor(legend_[series].color);
    bars->append(set);
  }
  bars->setBarWidth(kBarWidth);
  connect(bars, &QBarSeries::hovered, this, [this](bool isOver, int row, QBarSet* set) {
    const auto series = static_cast<int>(data_.series.indexOf(set->label()));
    viewport()->setToolTip(isOver ? rowLabels_[row] + QStringLiteral(": ") + figureText(row, series)
                                  : QString());
  });
  chart()->addSeries(bars);
  bars->attachAxis(rows_);
  bars->attachAxis(values_);
}

void ChartView::addCourses() {
  const bool isStepped = look_.shape == ChartShape::Steps;
  std::vector<int> order(data_.series.size());
  std::iota(order.begin(), order.end(), 0);
  // The larger area is drawn first: it would hide the smaller one.
  const auto sum = [this](int series) {
    return std::accumulate(figures_[series].begin(), figures_[series].end(), 0.0);
  };
  std::stable_sort(order.begin(), order.end(), [&](int a, int b) { return sum(a) > sum(b); });
  for (const int series : order) {
    // With a single column its course lies over its bars.
    if (isBar(series) && (look_.shape == ChartShape::Bars || data_.series.size() > 1)) continue;
    auto* points = new QLineSeries;
    points->setName(data_.series[series]);
    for (int row = 0; row < rowLabels_.size(); ++row) {
      if (isStepped) points->append(row - kHalfStep, figure(row, series));
      points->append(isStepped ? row + kHalfStep : row, figure(row, series));
    }
    // Over its own bars a line of their colour would not be seen.
    QColor color = isBar(series) ? colorOf(data_.series.size()) : legend_[series].color;
    points->setPen(QPen(color, 2));
    points->setPointsVisible(!isStepped);
    QAbstractSeries* shown = points;
    if (look_.shape == ChartShape::Areas) {
      auto* zero = new QLineSeries;  // negative figures are filled from it too
      zero->append(0, 0);
      zero->append(points->count() - 1, 0);
      auto* area = new QAreaSeries(points, zero);
      points->setParent(area);
      zero->setParent(area);
      area->setName(data_.series[series]);
      area->setPen(QPen(color, 2));
      color.setAlpha(kAreaAlpha);
      area->setBrush(color);
      shown = area;
    }
    chart()->addSeries(shown);
    shown->attachAxis(rows_);
    shown->attachAxis(values_);
  }
}

QFontMetricsF ChartView::metrics() const { return QFontMetricsF(ChartLabels::font(font())); }

QString ChartView::figureText(int row, int series) const {
  return formatNumber(data_.rows[row].decimal(data_.fields[series]), decimals_);
}

void ChartView::arrange() {
  if (legend_.empty()) return;
  const QRectF inner = sheet().adjusted(kEdge, kEdge, -kEdge, -kEdge);
  const QFontMetricsF letters{titleFont()};
  titleArea_ = letters.boundingRect(inner, Qt::AlignHCenter | Qt::TextWordWrap, title_);
  const QRectF body = inner.adjusted(0, titleArea_.height() + kEdge, 0, 0);
  if (isCircle())
    arrangeSlices(body);
  else
    arrangeSeries(body);
}

// The legend is at the right, in as many columns as it needs and the circle leaves.
void ChartView::arrangeSlices(const QRectF& body) {
  constexpr qreal kMostOfWidth = 0.62;
  constexpr qreal kLeastColumn = 190;
  constexpr qreal kLabelLines = 2.5;
  constexpr qreal kLeastPie = 0.3;
  const QFontMetricsF letters = metrics();
  qreal widest = 0;
  for (const Entry& entry : legend_)
    widest = std::max(widest, ChartLabels::entryWidth(letters, entry.name, entry.figure));
  const int lines = std::max(1, static_cast<int>(body.height() / (letters.height() + 2)));
  const qreal most = body.width() * kMostOfWidth;
  const int wanted = (static_cast<int>(legend_.size()) + lines - 1) / lines;
  legendColumns_ = std::clamp(wanted, 1, std::max(1, static_cast<int>(most / kLeastColumn)));
  const qreal width = std::min(most, (widest + 2 * kGap) * legendColumns_);
  legendArea_ = {body.right() - width, body.top(), width, body.height()};
  const QRectF area = body.adjusted(0, 0, -width - kGap, 0);
  chart()->setPlotArea(area);
  const qreal side = std::min(area.width(), area.height());
  qreal label = hasShortSliceLabels() ? 0 : kNameWidth;
  for (const Entry& entry : legend_) label = std::max(label, letters.horizontalAdvance(sliceFigure(entry)));
  const qreal free =
      std::min(area.width() - 2 * (label + 2 * kGap), area.height() - 2 * kLabelLines * letters.height());
  pie_->setPieSize(std::max(kLeastPie, free / side));
}

void ChartView::arrangeSeries(const QRectF& body) {
  constexpr qreal kMostOfHeight = 0.35;  // for the labels of the rows
  const QFontMetricsF letters = metrics();
  double least = 0, most = 0;
  qreal widestFigure = 0;
  const auto count = static_cast<int>(rowLabels_.size());
  for (int series = 0; series < data_.series.size(); ++series)
    for (int row = 0; row < count; ++row) {
      least = std::min(least, figure(row, series));
      most = std::max(most, figure(row, series));
      widestFigure = std::max(widestFigure, letters.horizontalAdvance(figureText(row, series)) + 3);
    }
  legendArea_ = {body.left(), body.bottom() - letters.height(), body.width(), letters.height()};

  scale_ = chartScale(least, most);
  const qreal left = std::max(letters.horizontalAdvance(scale_.text(scale_.first)),
                              letters.horizontalAdvance(scale_.text(scale_.last))) +
                     3 * kGap;
  const qreal slot = (body.width() - left) / count;

  qreal widestLabel = 0, widestWord = 0, wrapped = 0;
  for (const QString& label : rowLabels_) {
    widestLabel = std::max(widestLabel, letters.horizontalAdvance(label));
    for (const QString& word : label.split(u' '))
      widestWord = std::max(widestWord, letters.horizontalAdvance(word));
    wrapped = std::max(
        wrapped, letters.boundingRect(QRectF(0, 0, slot - 2 * kGap, 0), Qt::TextWordWrap, label).height());
  }
  rowText_ = widestLabel + 2 * kGap <= slot  ? RowText::Line
             : widestWord + 2 * kGap <= slot ? RowText::Wrapped
                                             : RowText::Upright;
  rowTextHeight_ = rowText_ == RowText::Line      ? letters.height()
                   : rowText_ == RowText::Wrapped ? wrapped
                                                  : widestLabel + 2;
  rowTextHeight_ = std::min(rowTextHeight_, body.height() * kMostOfHeight);

  const QRectF area(body.left() + left, body.top(), body.width() - left,
                    body.height() - rowTextHeight_ - letters.height() - 4 * kGap);
  chart()->setPlotArea(area);
  // The figures are written beyond the ends of the bars.
  const qreal bars = look_.shape == ChartShape::Bars       ? static_cast<qreal>(data_.series.size())
                     : look_.shape == ChartShape::Combined ? 1
                                                           : 0;
  hasUprightFigures_ = widestFigure > (bars > 1 ? slot * kBarWidth / bars : slot);
  const qreal beyond = (hasUprightFigures_ ? widestFigure : letters.height()) + 2 * kGap;
  const int sides = (most > 0 ? 1 : 0) + (least < 0 ? 1 : 0);
  const double perPixel = (most - least) / std::max(1.0, area.height() - sides * beyond);
  scale_ = chartScale(least < 0 ? least - beyond * perPixel : 0, most > 0 ? most + beyond * perPixel : 0);
  values_->setRange(scale_.step.toDouble() * scale_.first, scale_.step.toDouble() * scale_.last);
  values_->setTickCount(scale_.last - scale_.first + 1);
}

QRectF ChartView::sheet() const {
  return QRectF({0, 0}, chart()->size()).adjusted(kMargin, kMargin, -kMargin, -kMargin);
}

QFont ChartView::titleFont() const {
  QFont title = font();
  title.setPixelSize(kTitlePixels);
  return title;
}

// Few slices have their names beside them, many their percent or figure.
bool ChartView::hasShortSliceLabels() const {
  constexpr int kMostNames = 6;
  return static_cast<int>(legend_.size()) > kMostNames;
}

QString ChartView::sliceFigure(const Entry& slice) const {
  return hasShortSliceLabels() && !slice.percent.isEmpty() ? slice.percent : slice.figure;
}

void ChartView::drawBackground(QPainter* painter, const QRectF& exposed) {
  constexpr int kShadow = 6, kAlpha = 22;
  constexpr qreal kRound = 5;
  QChartView::drawBackground(painter, exposed);
  painter->setPen(Qt::NoPen);
  if (look_.isRaised) {
    painter->setBrush(QColor(0, 0, 0, kAlpha));
    for (int i = 1; i <= kShadow; ++i) painter->drawRoundedRect(sheet().translated(i, i), kRound, kRound);
  }
  painter->setBrush(Qt::white);
  painter->drawRoundedRect(sheet(), kRound, kRound);
}

void ChartView::drawForeground(QPainter* painter, const QRectF&) {
  if (legend_.empty()) return;
  ChartLabels labels(*painter, sheet().adjusted(2, 2, -2, -2), font());
  painter->setFont(titleFont());
  painter->drawText(titleArea_, Qt::AlignHCenter | Qt::TextWordWrap | Qt::TextDontClip, title_);
  painter->setFont(ChartLabels::font(font()));
  drawLegend(labels);
  if (isCircle()) {
    drawSliceLabels(labels);
  } else {
    drawAxes(labels, *painter);
    drawFigures(labels);
  }
}

void ChartView::drawLegend(ChartLabels& labels) const {
  const QFontMetricsF letters = metrics();
  if (!isCircle()) {
    qreal width = 0;
    for (const Entry& entry : legend_) width += ChartLabels::entryWidth(letters, entry.name, {}) + 4 * kGap;
    qreal left = legendArea_.center().x() - width / 2;
    for (const Entry& entry : legend_) {
      const qreal own = ChartLabels::entryWidth(letters, entry.name, {});
      labels.drawEntry({left, legendArea_.top(), own, legendArea_.height()}, entry.color, entry.name, {});
      left += own + 4 * kGap;
    }
    return;
  }
  const qreal width = legendArea_.width() / legendColumns_;
  const int lines = std::max(1, static_cast<int>(legendArea_.height() / (letters.height() + 2)));
  const auto count = static_cast<int>(legend_.size());
  const bool isWhole = count <= lines * legendColumns_;
  const int shown = isWhole ? count : lines * legendColumns_ - 1;
  const int used = std::min(lines, (count + legendColumns_ - 1) / legendColumns_);
  const qreal height =
      std::min(legendArea_.height() / used, 2 * letters.height());  // few entries are set apart
  const qreal top = legendArea_.center().y() - height * used / 2;
  const auto place = [&](int i) {
    const int column = i / used;
    return QRectF(legendArea_.left() + width * column + 2 * kGap, top + height * (i % used), width - 2 * kGap,
                  height);
  };
  for (int i = 0; i < shown; ++i)
    labels.drawEntry(place(i), legend_[i].color, legend_[i].name, legend_[i].figure);
  if (!isWhole) labels.drawEntry(place(shown), {}, QStringLiteral("si inca %1").arg(count - shown), {});
}

// The largest first: a label for which there is no room is in the legend alone.
void ChartView::drawSliceLabels(ChartLabels& labels) const {
  constexpr double kLeastShare = 0.02;
  const QFontMetricsF letters = metrics();
  const QRectF area = chart()->plotArea();
  const qreal radius = std::min(area.width(), area.height()) * pie_->pieSize() / 2;
  double whole = 0;
  for (const Entry& entry : legend_) whole += entry.size;
  std::vector<int> order(legend_.size());
  std::iota(order.begin(), order.end(), 0);
  std::vector<double> middles;
  double before = 0;
  for (const Entry& entry : legend_) {
    middles.push_back(before + entry.size / 2);
    before += entry.size;
  }
  std::stable_sort(order.begin(), order.end(),
                   [this](int a, int b) { return legend_[a].size > legend_[b].size; });
  for (const int i : order) {
    if (whole <= 0 || legend_[i].size < whole * kLeastShare) break;
    const double angle = 2 * std::numbers::pi * middles[i] / whole;
    const QPointF direction(std::sin(angle), -std::cos(angle));
    const QPointF point = area.center() + direction * (radius + kGap);
    constexpr double kNearlyUpright = 0.25;
    const Qt::Alignment side = (direction.y() < 0 ? Qt::AlignTop : Qt::AlignBottom) |
                               (std::abs(direction.x()) < kNearlyUpright ? Qt::AlignHCenter
                                : direction.x() < 0                      ? Qt::AlignLeft
                                                                         : Qt::AlignRight);
    const QString figure = sliceFigure(legend_[i]);
    const QString name = ChartLabels::shortened(letters, legend_[i].name, kNameWidth);
    const QList<LabelPlace> places{{point, side},
                                   {point, (side & Qt::AlignHorizontal_Mask) | Qt::AlignVCenter},
                                   {point + direction * letters.height(), side}};
    if (hasShortSliceLabels() || !labels.place(name + u'\n' + figure, places)) labels.place(figure, places);
  }
}

void ChartView::drawAxes(ChartLabels& labels, QPainter& painter) const {
  const QRectF area = chart()->plotArea();
  const QFontMetricsF letters = metrics();
  for (int mark = scale_.first; mark <= scale_.last; ++mark) {
    const qreal y = area.bottom() - area.height() * (mark - scale_.first) / (scale_.last - scale_.first);
    labels.place(scale_.text(mark), {{{area.left() - 2 * kGap, y}, Qt::AlignLeft}});
  }
  const qreal slot = area.width() / static_cast<qreal>(rowLabels_.size());
  const qreal top = area.bottom() + 2 * kGap;
  for (int row = 0; row < rowLabels_.size(); ++row) {
    const qreal middle = area.left() + slot * (row + kHalfStep);
    switch (rowText_) {
      case RowText::Line:
        labels.place(rowLabels_[row], {{{middle, top}, Qt::AlignBottom}});
        break;
      case RowText::Wrapped:
        painter.drawText(QRectF(middle - slot / 2 + kGap, top, slot - 2 * kGap, rowTextHeight_),
                         Qt::TextWordWrap | Qt::AlignHCenter | Qt::TextDontClip, rowLabels_[row]);
        break;
      case RowText::Upright:
        labels.place(ChartLabels::shortened(letters, rowLabels_[row], rowTextHeight_),
                     {{{middle, top}, Qt::AlignBottom, true}});
        break;
    }
  }
}

QPointF ChartView::position(int row, int series) const {
  const QRectF area = chart()->plotArea();
  const qreal slot = area.width() / static_cast<qreal>(rowLabels_.size());
  qreal within = kHalfStep;
  if (look_.shape == ChartShape::Bars)
    within += kBarWidth * ((series + kHalfStep) / static_cast<qreal>(data_.series.size()) - kHalfStep);
  const double first = values_->min(), last = values_->max();
  return {area.left() + slot * (row + within),
          area.bottom() - area.height() * (figure(row, series) - first) / (last - first)};
}

void ChartView::drawFigures(ChartLabels& labels) const {
  constexpr int kDark = 180;
  constexpr int kLines = 7;  // that a figure may be away from its point
  const QPointF line(0, metrics().height());
  const QRectF area = chart()->plotArea();
  // Of bars this narrow only some would have their figures.
  if (area.width() / static_cast<qreal>(rowLabels_.size()) < line.y() / 2) return;
  labels.keepInside({sheet().left() + kGap, area.top(), sheet().width() - 2 * kGap, area.height()});
  for (int series = 0; series < data_.series.size(); ++series) {
    // Figures of several series may be side by side.
    const QColor color = legend_.size() > 1 ? legend_[series].color.darker(kDark) : QColor();
    for (int row = 0; row < rowLabels_.size(); ++row) {
      const QPointF above = position(row, series) - QPointF(0, kGap / 2);
      const QPointF below = position(row, series) + QPointF(0, kGap / 2);
      const bool isNegative = figure(row, series) < 0;
      QList<LabelPlace> places;
      if (isBar(series))
        places = {
            {isNegative ? below : above, isNegative ? Qt::AlignBottom : Qt::AlignTop, hasUprightFigures_}};
      else
        for (int i = 0; i < kLines; ++i)
          places << LabelPlace{above - line * i, Qt::AlignTop, hasUprightFigures_}
                 << LabelPlace{below + line * i, Qt::AlignBottom, hasUprightFigures_};
      labels.place(figureText(row, series), places, color);
    }
  }
}

}  // namespace velmar
