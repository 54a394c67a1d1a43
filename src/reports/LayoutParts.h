// The parts of a layout that can be selected (the page, its objects, the rows and cells of its table) and
// their positions on the sheet in the designer.
#pragma once

#include "reports/Layout.h"

namespace velmar::layout {

/// Indices of the object, its row and the cell of that row. Without an object it is the page.
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

/// Whether the part exists in the layout.
bool has(const Layout& layout, const Part& part);
/// Those of the parts that exist in the layout.
Parts existing(const Layout& layout, const Parts& parts);

/// The kinds of objects in the order of Object::content.
enum class Kind { Text, Line, Box, Picture, BarCode, Curve, Table };

Kind kindOf(const Object& object);
/// "Text", "Linie", ...
QString kindName(Kind kind);
/// "Antet de grupa", ...
QString roleName(RowRole role);
/// The name of a part in messages and lists: "Text CLIENT", "Tabel LINII, rand 2 (Linie), celula 3".
QString nameOf(const Layout& layout, const Part& part);

/// The rows of a table in the order of their roles on paper.
std::vector<int> rowsInOrder(const Table& table);

/// The rows of a table, each followed by its cells: one below the other from the top of the table, with their
/// minimum heights. Empty for any other object.
struct PlacedPart {
  Part part;
  QRectF frame;
};
std::vector<PlacedPart> placesIn(const Layout& layout, int object);

/// The frame of a part; for the page, the whole sheet.
QRectF frameOf(const Layout& layout, const Part& part);

/// The part at that position: the topmost object whose frame, enlarged by `tolerance` mm, contains it, and
/// with `inside` the row or cell of a table. The page if there is none.
Part partAt(const Layout& layout, const QPointF& place, double tolerance, bool inside);

/// The objects entirely within the rectangle.
Parts objectsIn(const Layout& layout, const QRectF& area);

/// The next part in tab order: the next object, or the next cell of its table; `step` is 1 or -1.
Part nextPart(const Layout& layout, const Part& from, int step);

/// The cell in that direction within the table (columns to the right, rows downwards); `cell` if there is
/// none.
Part neighbour(const Layout& layout, const Part& cell, int right, int down);

}  // namespace velmar::layout
