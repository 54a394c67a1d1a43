// Drawing a layout: what moving, sizing, aligning, adding and removing its parts comes to, on the grid and
// within the sheet; and the steps by which it is undone.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <QPointF>

#include "reports/LayoutParts.h"
#include "reports/ReportData.h"

namespace velmar::layout {

// Lengths are millimetres. What is drawn stays within the sheet; an object that stands outside already may
// only come nearer. Selections are in the order in which their parts were chosen: the first is the measure
// for the others.

/// What places are drawn to.
struct Grid {
  double step = 1;
  bool on = true;

  /// The nearest line; off the grid, the nearest hundredth of a millimetre.
  double snapped(double value) const;
  /// The next line in that direction (1 or -1), so that a first step brings a part onto the grid.
  double next(double value, int direction) const;
};

/// How far a fine step goes.
inline constexpr double kFineStep = 0.1;

/// The sides of a frame that are dragged.
enum Side { kLeftSide = 1, kTopSide = 2, kRightSide = 4, kBottomSide = 8 };

/// The frame between two places of the mouse.
QRectF drawnFrame(const QPointF& from, const QPointF& to, const Grid& grid);

/// Moves the objects; the first one's corner lands on the grid, the others keep their distance to it.
void move(Layout& layout, const Parts& parts, const QPointF& by, const Grid& grid);
/// Moves the objects by one line of the grid, or a fine step.
void nudge(Layout& layout, const Parts& parts, int right, int down, bool fine, const Grid& grid);
/// Drags sides (of Side) of an object's frame, the right side of a cell or the lower one of a row.
void size(Layout& layout, const Part& part, int sides, const QPointF& by, const Grid& grid);
/// Makes each part larger or smaller by a line of the grid, or a fine step, at its right and lower side.
void nudgeSize(Layout& layout, const Parts& parts, int wider, int higher, bool fine, const Grid& grid);

enum class Alignment { Left, Right, Top, Bottom, Centre, Middle };

/// Brings the objects to the first one's side; Centre and Middle to its axes.
void align(Layout& layout, const Parts& parts, Alignment alignment);
/// Gives all objects, or all cells, the first one's width (or height).
void equalise(Layout& layout, const Parts& parts, bool width);
/// Draws the objects behind all others, or over them; gives their new places.
Parts reorder(Layout& layout, const Parts& parts, bool toFront);

/// Adds an object of that kind; an empty frame gives it its usual size there. Throws RuleError where the
/// layout has no room for it, as for a second table.
Part add(Layout& layout, Kind kind, const QRectF& frame);
/// Adds a text object that shows a name of the data.
Part addText(Layout& layout, const clsFieldVarDescription& name, const QPointF& at);
/// Adds a name of the data where it was dropped: in the table's row of lines a cell, with one above and below
/// it in the other rows that have as many; in another row a cell of that alone; elsewhere a text object.
Part addName(Layout& layout, const clsFieldVarDescription& name, const QPointF& at);
/// As addName() in front of or behind a cell; behind the last one of a row, or of a table's row of lines.
Part addNameAt(Layout& layout, const clsFieldVarDescription& name, const Part& place, bool before);

/// Rows and cells of a table. Each gives the part to choose after it.
Part addRow(Layout& layout, const Part& table, RowRole role);
Part addCell(Layout& layout, const Part& place);
Part moveCell(Layout& layout, const Part& cell, int by);

/// Removes the parts; gives what to choose after it.
Parts remove(Layout& layout, Parts parts);

/// The objects as a layout of their own, for the clipboard.
QByteArray copied(const Layout& layout, const Parts& parts);
/// Adds the objects of such a text, moved a little where one stands at their place already. Throws RuleError.
Parts paste(Layout& layout, const QByteArray& text);
Parts duplicate(Layout& layout, const Parts& parts);

/// A layout as it stands at one moment, and what is chosen in it.
struct State {
  std::shared_ptr<const Layout> layout;
  Parts chosen;
};

/// One step that can be undone.
struct Edit {
  QString text;   ///< "Mutare"
  QString joins;  ///< steps of one kind on the same parts become one; empty: never
  State before;
  State after;
};

/// Makes a change of a copy and gives the parts to choose after it.
using Change = std::function<Parts(Layout&)>;

/// The step that the change makes, nothing when it changes nothing. What the change throws goes on.
std::optional<Edit> edited(const State& state, const QString& text, const QString& joins,
                           const Change& change);

/// Takes `next` into `edit` when both are steps of one movement.
bool join(Edit& edit, const Edit& next);

}  // namespace velmar::layout
