#include "reports/windows/CurvePainter.h"

#include <algorithm>
#include <cmath>
#include <QFontMetricsF>
#include <QPainter>

namespace velmar {

namespace {

constexpr int kMostTicks = 50;  // of an axis

QList<double> ticks(double least, double most, double step, bool isDoubling) {
  QList<double> values;
  const bool goesOn = isDoubling ? least > 0 : step > 0;
  for (double value = least; value <= most * (1 + 1e-9) && values.size() < kMostTicks;
       value = isDoubling ? value * 2 : value + step) {
    values.append(value);
    if (!goesOn) break;
  }
  return values;
}

class Plot {
 public:
  Plot(const QRectF& area, const CurveAxes& axes) : area_(area), axes_(axes) {}

  double x(double value) const {
    value = std::clamp(value, axes_.leastX, std::max(axes_.leastX, axes_.mostX));
    const double share = axes_.doubling && axes_.leastX > 0
                             ? std::log2(value / axes_.leastX) / std::log2(axes_.mostX / axes_.leastX)
                             : (value - axes_.leastX) / (axes_.mostX - axes_.leastX);
    return area_.left() + area_.width() * (std::isfinite(share) ? share : 0);
  }

  double y(double value) const {
    value = std::clamp(value, axes_.leastY, std::max(axes_.leastY, axes_.mostY));
    const double share = (value - axes_.leastY) / (axes_.mostY - axes_.leastY);
    const double down = std::isfinite(share) ? share : 0;
    return area_.top() + area_.height() * (axes_.growsDown ? down : 1 - down);
  }

 private:
  QRectF area_;
  const CurveAxes& axes_;
};

QString numberText(double value) { return QString::number(value, 'g', 6); }

void drawMark(QPainter& painter, const QPointF& at, CurveMark mark, double size) {
  switch (mark) {
    case CurveMark::None:
      return;
    case CurveMark::Dot:
      painter.setBrush(painter.pen().color());
      painter.drawEllipse(at, size / 2, size / 2);
      break;
    case CurveMark::Circle:
      painter.setBrush(Qt::white);
      painter.drawEllipse(at, size, size);
      break;
    case CurveMark::Cross:
      painter.drawLine(at + QPointF(-size, -size), at + QPointF(size, size));
      painter.drawLine(at + QPointF(-size, size), at + QPointF(size, -size));
      break;
  }
  painter.setBrush(Qt::NoBrush);
}

void drawCurve(QPainter& painter, const Plot& plot, const CurveLine& curve, double pen) {
  constexpr double kMarkSize = 2.6;  // of the width of the curve
  painter.setPen(QPen(curve.colour, pen));
  std::optional<QPointF> before;
  QList<QPointF> marks;
  for (const auto& point : curve.points) {
    if (!point) {
      before.reset();
      continue;
    }
    const QPointF at(plot.x(point->x()), plot.y(point->y()));
    if (before) painter.drawLine(*before, at);
    before = at;
    marks.append(at);
  }
  for (const QPointF& at : marks) drawMark(painter, at, curve.mark, pen * kMarkSize);
}

}  // namespace

void drawCurves(QPainter& painter, const QRectF& frame, const CurveAxes& axes, const QList<CurveLine>& curves,
                double pen) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  const QFontMetricsF metrics(painter.font());
  const QList<double> across = ticks(axes.leastX, axes.mostX, axes.stepX, axes.doubling);
  const QList<double> up = ticks(axes.leastY, axes.mostY, axes.stepY, false);
  double widest = 0;
  for (const double value : up) widest = std::max(widest, metrics.horizontalAdvance(numberText(value)));
  const double gap = metrics.averageCharWidth();
  const double right = across.isEmpty() ? 0 : metrics.horizontalAdvance(numberText(across.last())) / 2;
  const QRectF area =
      frame.adjusted(widest + 2 * gap, metrics.height() / 2 + gap / 2, -right - gap, -metrics.height() - gap);
  if (area.width() <= 0 || area.height() <= 0) return painter.restore();
  const Plot plot(area, axes);
  const QColor text = painter.pen().color();
  QColor lines = text;
  lines.setAlphaF(0.25F);
  double free = frame.left();  // numbers that would overlap are left out
  for (const double value : across) {
    const double at = plot.x(value);
    painter.setPen(QPen(lines, pen / 3));
    painter.drawLine(QPointF(at, area.top()), QPointF(at, area.bottom()));
    const double width = metrics.horizontalAdvance(numberText(value));
    if (at - width / 2 < free) continue;
    painter.setPen(text);
    painter.drawText(QRectF(at - width, area.bottom() + gap / 2, 2 * width, metrics.height()),
                     Qt::AlignHCenter | Qt::AlignTop, numberText(value));
    free = at + width / 2 + gap;
  }
  double last = -1;
  for (const double value : up) {
    const double at = plot.y(value);
    painter.setPen(QPen(lines, pen / 3));
    painter.drawLine(QPointF(area.left(), at), QPointF(area.right(), at));
    if (last >= 0 && std::abs(at - last) < metrics.height()) continue;
    painter.setPen(text);
    painter.drawText(QRectF(frame.left(), at - metrics.height() / 2, widest + gap, metrics.height()),
                     Qt::AlignRight | Qt::AlignVCenter, numberText(value));
    last = at;
  }
  for (const CurveLine& curve : curves) drawCurve(painter, plot, curve, pen);
  painter.restore();
}

}  // namespace velmar
