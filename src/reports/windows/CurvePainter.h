// Draws curves over two axes, on screen and on paper.
#pragma once

#include <optional>
#include <QColor>
#include <QList>
#include <QPointF>
#include <QRectF>

#include "reports/Layout.h"

class QPainter;

namespace velmar {

using layout::CurveAxes;
using layout::CurveMark;

/// A curve with its values.
struct CurveLine {
  /// In the order in which they are joined; nothing is a gap. A value beyond the axes is drawn at their end.
  QList<std::optional<QPointF>> points;
  QColor colour = Qt::black;
  CurveMark mark = CurveMark::Circle;
};

/// Draws the grid with its numbers, in the painter's font, and the curves into the frame. `pen` is the width
/// of a curve in the painter's units.
void drawCurves(QPainter& painter, const QRectF& frame, const CurveAxes& axes, const QList<CurveLine>& curves,
                double pen);

}  // namespace velmar
