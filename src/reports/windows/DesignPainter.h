// Draws a layout in the designer: the objects as on paper with their formulas in place of values, and over
// them frames, grid, rulers, faults and the selection.
#pragma once

#include <optional>
#include <QPainter>
#include <QPalette>

#include "reports/LayoutEdits.h"

namespace velmar::layout {

inline constexpr int kRulerSize = 18;  ///< pixels
inline constexpr int kHandleSize = 7;

/// The view of a layout.
struct DesignView {
  const Layout& layout;
  const Parts& chosen;
  const Parts& faulty;
  Grid grid;
  QPointF origin;    ///< of the sheet, in pixels of the viewport
  double scale = 1;  ///< pixels per millimetre
  QRect viewport;
  QPalette palette;
  bool hasFocus = false;
  std::optional<QRectF> band;     ///< while selecting or drawing, in millimetres
  std::optional<QPointF> dropAt;  ///< drop position of a dragged name
};

QRectF toPixels(const DesignView& view, const QRectF& frame);

/// The handles of a frame: the sides that each one drags and its position.
std::vector<std::pair<int, QPointF>> handlesOf(const QRectF& pixels, const Part& part);

class DesignPainter {
 public:
  DesignPainter(QPainter& painter, const DesignView& view) : painter_(painter), view_(view) {}

  void paint();

 private:
  void paintSheet();
  void paintGrid();
  void paintObjects();
  void paintObject(const Object& object);
  void paintTable(int place, const Object& object, const Table& table);
  void paintRoles(int place, const Table& table);
  void paintFaulty();
  void paintChosen();
  void paintDrop();
  void paintRulers();
  void paintRuler(bool across);

  QPainter& painter_;
  const DesignView& view_;
};

}  // namespace velmar::layout
