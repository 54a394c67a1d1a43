// The parts of a layout that can be chosen: the page, its objects, and the rows and cells of its table; where
// they stand on the sheet while the layout is drawn.
#pragma once

#include "reports/Layout.h"

namespace velmar::layout {

/// By places: which object, which row of it, which cell of that. Without an object it is the page.
struct Part {
  int object = -1;
  int row = -1;
  int cell = -1;

  bool isPage() const { return object < 0; }
  bool isObject() const { return object >= 0 && row < 0; }
  bool isRow() const { return row >= 0 && cell < 0; }
  bool isCell() const { return cell >= 0; }
  bool operator==(const Part&) const = default;
};

using Parts = std::vector<Part>;

/// Whether the layout has that part.
bool has(const Layout& layout, const Part& part);
/// The parts that the layout has of these.
Parts existing(const Layout& layout, const Parts& parts);

/// The kinds of objects in the order of Object::content.
enum class Kind { Text, Line, Box, Picture, BarCode, Table };

Kind kindOf(const Object& object);
/// "Text", "Linie", ...
QString kindName(Kind kind);
/// "Antet de grupa", ...
QString roleName(RowRole role);
/// How messages and lists call a part: "Text CLIENT", "Tabel LINII, rand 2 (Linie), celula 3".
QString nameOf(const Layout& layout, const Part& part);

/// The rows of a table in the order in which the roles come on paper.
std::vector<int> rowsInOrder(const Table& table);

/// The rows of a table and behind each its cells: rows below one another from the top of their table, as high
/// as they are at least. Nothing for an object that is no table.
struct PlacedPart {
  Part part;
  QRectF frame;
};
std::vector<PlacedPart> placesIn(const Layout& layout, int object);

/// Where a part stands; the page is the whole sheet.
QRectF frameOf(const Layout& layout, const Part& part);

/// What stands at that place: the topmost object whose frame, widened by `tolerance` mm, holds it; `inside`
/// looks for the row or cell of a table as well. The page when nothing does.
Part partAt(const Layout& layout, const QPointF& place, double tolerance, bool inside);

/// The objects that lie wholly in the rectangle.
Parts objectsIn(const Layout& layout, const QRectF& area);

/// The part that Tab goes to: the next object, or the next cell of its table; `step` is 1 or -1.
Part nextPart(const Layout& layout, const Part& from, int step);

/// The cell in that direction within the table (columns to the right, rows downwards); the same where there
/// is none.
Part neighbour(const Layout& layout, const Part& cell, int right, int down);

}  // namespace velmar::layout
