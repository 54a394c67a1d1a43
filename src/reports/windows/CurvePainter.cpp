#include "reports/windows/CurvePainter.h"

#include <algorithm>
#include <cmath>
#include <QFontMetricsF>
#include <QPainter>

namespace velmar {

namespace {

constexpr int kMostTicks = 50;     // of an axis
constexpr double kMarkSize = 2.6;  // in widths of the curve

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

// Every how many ticks have a number: those that are `least` apart, even steps from 0 (or from the first
// tick) to the end of the scale that is farther from 0. Neighbours are `apart`.
qsizetype numberStep(const QList<double>& values, double apart, double least, bool isDoubling) {
  const qsizetype count = values.size();
  if (count < 2) return 1;
  const qsizetype zero = isDoubling ? 0 : std::max<qsizetype>(0, values.indexOf(0));
  const bool isEndFirst = std::abs(values.first()) > std::abs(values.last());
  const qsizetype reach = isEndFirst && zero > 0 ? zero : count - 1 - zero;
  for (qsizetype step = 1; step < reach; ++step)
    if (reach % step == 0 && apart * double(step) >= least) return step;
  return std::max<qsizetype>(1, reach);
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
  const auto widestOf = [&metrics](const QList<double>& values) {
    double widest = 0;
    for (const double value : values) widest = std::max(widest, metrics.horizontalAdvance(numberText(value)));
    return widest;
  };
  const double widest = widestOf(up);
  const double gap = metrics.averageCharWidth();
  // Marks at the edge stay clear of the numbers, and those of both axes clear of each other.
  const double mark = pen * (kMarkSize + 1);
  const double below = std::max(mark, metrics.height() / 2);
  const double right = across.isEmpty() ? 0 : metrics.horizontalAdvance(numberText(across.last())) / 2;
  const QRectF area = frame.adjusted(widest + gap + mark, std::max(mark, metrics.height() / 2 + gap / 2),
                                     -std::max(mark, right + gap), -below - metrics.height());
  if (area.width() <= 0 || area.height() <= 0) return painter.restore();
  const Plot plot(area, axes);
  const QColor text = painter.pen().color();
  QColor lines = text;
  lines.setAlphaF(0.25F);
  const auto apart = [](double size, const QList<double>& values) {
    return values.size() > 1 ? size / double(values.size() - 1) : size;
  };
  const auto draw = [&](const QList<double>& values, bool isDoubling, double step, double least, auto&& line,
                        auto&& number) {
    const qsizetype every = numberStep(values, step, least, isDoubling);
    const qsizetype zero = isDoubling ? 0 : std::max<qsizetype>(0, values.indexOf(0));
    for (qsizetype i = 0; i < values.size(); ++i) {
      painter.setPen(QPen(lines, pen / 3));
      line(values[i]);
      painter.setPen(text);
      if ((i - zero) % every == 0) number(values[i], numberText(values[i]));
    }
  };
  draw(
      across, axes.doubling, apart(area.width(), across), widestOf(across) + gap,
      [&](double value) {
        painter.drawLine(QPointF(plot.x(value), area.top()), QPointF(plot.x(value), area.bottom()));
      },
      [&](double value, const QString& shown) {
        const double width = metrics.horizontalAdvance(shown);
        painter.drawText(QRectF(plot.x(value) - width, area.bottom() + below, 2 * width, metrics.height()),
                         Qt::AlignHCenter | Qt::AlignTop, shown);
      });
  draw(
      up, false, apart(area.height(), up), metrics.height(),
      [&](double value) {
        painter.drawLine(QPointF(area.left(), plot.y(value)), QPointF(area.right(), plot.y(value)));
      },
      [&](double value, const QString& shown) {
        painter.drawText(
            QRectF(frame.left(), plot.y(value) - metrics.height() / 2, widest + gap / 2, metrics.height()),
            Qt::AlignRight | Qt::AlignVCenter, shown);
      });
  for (const CurveLine& curve : curves) drawCurve(painter, plot, curve, pen);
  painter.restore();
}

}  // namespace velmar
