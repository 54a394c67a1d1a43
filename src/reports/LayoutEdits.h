// Editing of layouts: moving, resizing, aligning, adding and removing parts on the grid and within the sheet;
// undo steps.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <QPointF>

#include "reports/LayoutParts.h"
#include "reports/ReportData.h"

namespace velmar::layout {

// Lengths are in millimetres. Objects remain within the sheet; one that is already outside can only be moved
// closer. Selections are in the order in which their parts were selected: the first is the reference for the
// others.

/// The grid to which positions snap.
struct Grid {
  double step = 1;
  bool on = true;

  /// The nearest grid line; without a grid, rounded to hundredths of a millimetre.
  double snapped(double value) const;
  /// The next grid line in that direction (1 or -1), so that the first step aligns a part with the grid.
  double next(double value, int direction) const;
};

/// The length of a fine step.
inline constexpr double kFineStep = 0.1;

/// Sides of a frame that can be dragged.
enum Side { kLeftSide = 1, kTopSide = 2, kRightSide = 4, kBottomSide = 8 };

/// The frame between two positions of the mouse.
QRectF drawnFrame(const QPointF& from, const QPointF& to, const Grid& grid);

/// Moves the objects; the first one's corner snaps to the grid, the others keep their distance to it.
void move(Layout& layout, const Parts& parts, const QPointF& by, const Grid& grid);
/// Moves the objects by one grid line, or a fine step.
void nudge(Layout& layout, const Parts& parts, int right, int down, bool fine, const Grid& grid);
/// Drags sides (of Side) of an object's frame, the right side of a cell or the lower one of a row.
void size(Layout& layout, const Part& part, int sides, const QPointF& by, const Grid& grid);
/// Resizes each part by a grid line, or a fine step, at its right and lower side.
void nudgeSize(Layout& layout, const Parts& parts, int wider, int higher, bool fine, const Grid& grid);

enum class Alignment { Left, Right, Top, Bottom, Centre, Middle };

/// Aligns the objects with the first one's side; Centre and Middle with its axes.
void align(Layout& layout, const Parts& parts, Alignment alignment);
/// Sets the width (or height) of all objects, or all cells, to that of the first.
void equalise(Layout& layout, const Parts& parts, bool width);
/// Puts the objects behind all others, or in front of them; returns their new positions.
Parts reorder(Layout& layout, const Parts& parts, bool toFront);

/// Adds an object of that kind, with its default size if the frame is empty. Throws RuleError when the layout
/// cannot contain another one, as for a second table.
Part add(Layout& layout, Kind kind, const QRectF& frame);
/// Adds a text object that shows a name of the data.
Part addText(Layout& layout, const clsFieldVarDescription& name, const QPointF& at);
/// Adds a name of the data where it was dropped. In the table's Line row: a cell there and in the rows with
/// as many cells. In another row: a cell of that row only. Elsewhere: a text object.
Part addName(Layout& layout, const clsFieldVarDescription& name, const QPointF& at);
/// As addName(), before or after a cell. For a row, after its last cell; for a table, after the last one of
/// its Line row.
Part addNameAt(Layout& layout, const clsFieldVarDescription& name, const Part& place, bool before);

/// Rows and cells of a table. Each function returns the part to select afterwards.
Part addRow(Layout& layout, const Part& table, RowRole role);
Part addCell(Layout& layout, const Part& place);
Part moveCell(Layout& layout, const Part& cell, int by);

/// Removes the parts; returns the parts to select afterwards.
Parts remove(Layout& layout, Parts parts);

/// The objects as a separate layout, for the clipboard.
QByteArray copied(const Layout& layout, const Parts& parts);
/// Adds the objects of such a text, with an offset if their position is occupied. Throws RuleError.
Parts paste(Layout& layout, const QByteArray& text);
Parts duplicate(Layout& layout, const Parts& parts);

/// A snapshot of a layout and its selection.
struct State {
  std::shared_ptr<const Layout> layout;
  Parts chosen;
};

/// An undo step.
struct Edit {
  QString text;   ///< "Mutare"
  QString joins;  ///< equal, not empty keys on the same parts: the steps are merged
  State before;
  State after;
};

/// Changes a copy of the layout and returns the parts to select afterwards.
using Change = std::function<Parts(Layout&)>;

/// The undo step of the change; empty when it changes nothing. Errors of the change are passed on.
std::optional<Edit> edited(const State& state, const QString& text, const QString& joins,
                           const Change& change);

/// Merges `next` into `edit` if their `joins` allow it.
bool join(Edit& edit, const Edit& next);

}  // namespace velmar::layout
