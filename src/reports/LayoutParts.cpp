#include "reports/LayoutParts.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace velmar::layout {

namespace {

const Table* tableOf(const Layout& layout, const Part& part) {
  if (part.object < 0 || part.object >= static_cast<int>(layout.objects.size())) return nullptr;
  return std::get_if<Table>(&layout.objects[static_cast<size_t>(part.object)].content);
}

const TableRow& rowOf(const Table& table, int row) { return table.rows[static_cast<size_t>(row)]; }

// Rows may extend beyond the frame of their table.
QRectF wholeFrame(const Object& object) {
  QRectF frame = object.frame;
  if (const auto* table = std::get_if<Table>(&object.content)) {
    double height = 0;
    for (const TableRow& row : table->rows) {
      height += row.height;
      double width = 0;
      for (const Cell& cell : row.cells) width += cell.width;
      frame.setWidth(std::max(frame.width(), width));
    }
    frame.setHeight(std::max(frame.height(), height));
  }
  return frame;
}

Part partInTable(const Layout& layout, int object, const QPointF& place) {
  Part found = {object, -1, -1};
  for (const PlacedPart& each : placesIn(layout, object)) {
    const QRectF& at = each.frame;
    const bool within =
        place.x() >= at.left() && place.x() < at.right() && place.y() >= at.top() && place.y() < at.bottom();
    if (within) found = each.part;  // a cell follows its row
  }
  return found;
}

// The tab order: objects, or the cells of a table when `from` is a cell.
Parts stopsOf(const Layout& layout, const Part& from) {
  Parts stops;
  const Table* table = tableOf(layout, from);
  if (table && from.row >= 0) {
    for (const int row : rowsInOrder(*table)) {
      const int cells = static_cast<int>(rowOf(*table, row).cells.size());
      if (cells == 0) stops.push_back({from.object, row, -1});
      for (int cell = 0; cell < cells; ++cell) stops.push_back({from.object, row, cell});
    }
    return stops;
  }
  for (int i = 0; i < static_cast<int>(layout.objects.size()); ++i) stops.push_back({i, -1, -1});
  return stops;
}

}  // namespace

bool has(const Layout& layout, const Part& part) {
  if (part.object < 0) return part.row < 0 && part.cell < 0;
  if (part.object >= static_cast<int>(layout.objects.size())) return false;
  if (part.row < 0) return part.cell < 0;
  const Table* table = tableOf(layout, part);
  if (!table || part.row >= static_cast<int>(table->rows.size())) return false;
  return part.cell < static_cast<int>(rowOf(*table, part.row).cells.size());
}

Parts existing(const Layout& layout, const Parts& parts) {
  Parts found;
  std::copy_if(parts.begin(), parts.end(), std::back_inserter(found),
               [&layout](const Part& part) { return has(layout, part); });
  return found;
}

Kind kindOf(const Object& object) { return static_cast<Kind>(object.content.index()); }

QString kindName(Kind kind) {
  static const std::array kNames = {"Text", "Linie", "Chenar", "Imagine", "Cod de bare", "Curba", "Tabel"};
  return QLatin1String(kNames[static_cast<size_t>(kind)]);
}

QString roleName(RowRole role) {
  static const std::array kNames = {"Antet",          "Report",      "Antet de grupa", "Linie",
                                    "Total de grupa", "De reportat", "Total"};
  return QLatin1String(kNames[static_cast<size_t>(role)]);
}

QString nameOf(const Layout& layout, const Part& part) {
  if (part.isPage() || !has(layout, part)) return QStringLiteral("Pagina");
  const Object& object = layout.objects[static_cast<size_t>(part.object)];
  QString name = kindName(kindOf(object));
  name += QLatin1Char(' ') + (object.name.isEmpty() ? QString::number(part.object + 1) : object.name);
  if (part.row < 0) return name;
  const TableRow& row = rowOf(std::get<Table>(object.content), part.row);
  name += QStringLiteral(", rand %1 (%2)").arg(part.row + 1).arg(roleName(row.role));
  return part.cell < 0 ? name : name + QStringLiteral(", celula %1").arg(part.cell + 1);
}

std::vector<int> rowsInOrder(const Table& table) {
  std::vector<int> order(table.rows.size());
  std::iota(order.begin(), order.end(), 0);
  std::stable_sort(order.begin(), order.end(),
                   [&table](int a, int b) { return rowOf(table, a).role < rowOf(table, b).role; });
  return order;
}

std::vector<PlacedPart> placesIn(const Layout& layout, int object) {
  std::vector<PlacedPart> places;
  const Table* table = tableOf(layout, {object, -1, -1});
  if (!table) return places;
  const QRectF& frame = layout.objects[static_cast<size_t>(object)].frame;
  double top = frame.top();
  for (const int row : rowsInOrder(*table)) {
    const TableRow& cells = rowOf(*table, row);
    places.push_back({{object, row, -1}, {frame.left(), top, frame.width(), cells.height}});
    double left = frame.left();
    for (int cell = 0; cell < static_cast<int>(cells.cells.size()); ++cell) {
      const double width = cells.cells[static_cast<size_t>(cell)].width;
      places.push_back({{object, row, cell}, {left, top, width, cells.height}});
      left += width;
    }
    top += cells.height;
  }
  return places;
}

QRectF frameOf(const Layout& layout, const Part& part) {
  if (part.isPage() || !has(layout, part)) return {0, 0, layout.page.width, layout.page.height};
  if (part.row < 0) return layout.objects[static_cast<size_t>(part.object)].frame;
  for (const PlacedPart& each : placesIn(layout, part.object))
    if (each.part == part) return each.frame;
  return {};
}

Part partAt(const Layout& layout, const QPointF& place, double tolerance, bool inside) {
  for (int i = static_cast<int>(layout.objects.size()) - 1; i >= 0; --i) {
    const Object& object = layout.objects[static_cast<size_t>(i)];
    const QRectF frame = wholeFrame(object);
    if (!frame.adjusted(-tolerance, -tolerance, tolerance, tolerance).contains(place)) continue;
    // Parts inside a box without a fill can be selected through it.
    const auto* box = std::get_if<Box>(&object.content);
    const QRectF inner = frame.adjusted(tolerance, tolerance, -tolerance, -tolerance);
    if (box && box->fill.isEmpty() && inner.isValid() && inner.contains(place)) continue;
    return inside && kindOf(object) == Kind::Table ? partInTable(layout, i, place) : Part{i, -1, -1};
  }
  return {};
}

Parts objectsIn(const Layout& layout, const QRectF& area) {
  Parts found;
  for (int i = 0; i < static_cast<int>(layout.objects.size()); ++i) {
    const QRectF& frame = layout.objects[static_cast<size_t>(i)].frame;
    const bool within = frame.left() >= area.left() && frame.right() <= area.right() &&
                        frame.top() >= area.top() && frame.bottom() <= area.bottom();
    if (within) found.push_back({i, -1, -1});
  }
  return found;
}

Part nextPart(const Layout& layout, const Part& from, int step) {
  const Parts stops = stopsOf(layout, from);
  if (stops.empty()) return {};
  const int count = static_cast<int>(stops.size());
  const auto found = std::find(stops.begin(), stops.end(), from);
  if (found == stops.end()) return step > 0 ? stops.front() : stops.back();
  const int place = static_cast<int>(found - stops.begin());
  return stops[static_cast<size_t>((place + step + count) % count)];
}

Part neighbour(const Layout& layout, const Part& cell, int right, int down) {
  if (!has(layout, cell) || cell.row < 0) return cell;
  const Table& table = *tableOf(layout, cell);
  const std::vector<int> order = rowsInOrder(table);
  const int count = static_cast<int>(order.size());
  const int place = static_cast<int>(std::find(order.begin(), order.end(), cell.row) - order.begin());
  const int row = order[static_cast<size_t>(std::clamp(place + down, 0, count - 1))];
  const int last = static_cast<int>(rowOf(table, row).cells.size()) - 1;
  return {cell.object, row, std::min(last, std::max(0, cell.cell + right))};
}

}  // namespace velmar::layout
