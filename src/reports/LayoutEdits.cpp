#include "reports/LayoutEdits.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <QSet>

#include "reports/LayoutDescription.h"
#include "util/Messages.h"

namespace velmar::layout {

namespace {

constexpr double kLeastSize = 1;      // of an object other than a line
constexpr double kLeastCell = 1;      // width and height
constexpr double kUsualCell = 25;     // width
constexpr double kPasteDistance = 5;  // to the right and down
constexpr double kSlack = 1e-6;       // tolerance for floating-point errors

double rounded(double value) {
  constexpr double kPerMillimetre = 1000;
  return std::round(value * kPerMillimetre) / kPerMillimetre;
}

Object& objectAt(Layout& layout, const Part& part) {
  return layout.objects[static_cast<size_t>(part.object)];
}

Table& tableAt(Layout& layout, const Part& part) { return std::get<Table>(objectAt(layout, part).content); }

TableRow& rowAt(Layout& layout, const Part& part) {
  return tableAt(layout, part).rows[static_cast<size_t>(part.row)];
}

Cell& cellAt(Layout& layout, const Part& part) {
  return rowAt(layout, part).cells[static_cast<size_t>(part.cell)];
}

Parts objectsOf(const Layout& layout, const Parts& parts) {
  Parts objects;
  for (const Part& part : parts)
    if (has(layout, part) && part.isObject()) objects.push_back(part);
  return objects;
}

void setFrame(Object& object, double left, double top, double width, double height) {
  object.frame = QRectF(rounded(left), rounded(top), rounded(width), rounded(height));
}

// The move, limited so that the interval remains within 0 and `room`; one outside can only move closer.
double withinRoom(double by, double low, double high, double room) {
  const double least = std::min(0.0, -low);
  const double most = std::max(0.0, room - high);
  return std::clamp(by, least, most);
}

void moveAll(Layout& layout, const Parts& parts, QPointF by) {
  QRectF all;
  for (const Part& part : parts) {
    const QRectF& frame = objectAt(layout, part).frame;
    // QRectF::united() ignores frames without area, which lines have.
    all = all.isNull() && part == parts.front()
              ? frame
              : QRectF(QPointF(std::min(all.left(), frame.left()), std::min(all.top(), frame.top())),
                       QPointF(std::max(all.right(), frame.right()), std::max(all.bottom(), frame.bottom())));
  }
  by.setX(withinRoom(by.x(), all.left(), all.right(), layout.page.width));
  by.setY(withinRoom(by.y(), all.top(), all.bottom(), layout.page.height));
  for (const Part& part : parts) {
    Object& object = objectAt(layout, part);
    setFrame(object, object.frame.left() + by.x(), object.frame.top() + by.y(), object.frame.width(),
             object.frame.height());
  }
}

double leastSize(const Object& object) { return kindOf(object) == Kind::Line ? 0 : kLeastSize; }

// The new position of a dragged side: on the sheet, and at least `least` from the opposite side.
double draggedEnd(double fixed, double old, double wanted, double least, double room) {
  return std::max(fixed + least, std::min(wanted, std::max(room, old)));
}

void sizeObject(const Page& page, Object& object, int sides, const QPointF& by, const Grid& grid) {
  const QRectF& frame = object.frame;
  const double least = leastSize(object);
  double left = frame.left(), top = frame.top(), right = frame.right(), bottom = frame.bottom();
  if (sides & kLeftSide) left = std::max(std::min(0.0, left), grid.snapped(left + by.x()));
  if (sides & kTopSide) top = std::max(std::min(0.0, top), grid.snapped(top + by.y()));
  if (sides & kLeftSide) left = std::min(left, right - least);
  if (sides & kTopSide) top = std::min(top, bottom - least);
  if (sides & kRightSide) right = draggedEnd(left, right, grid.snapped(right + by.x()), least, page.width);
  if (sides & kBottomSide)
    bottom = draggedEnd(top, bottom, grid.snapped(bottom + by.y()), least, page.height);
  setFrame(object, left, top, right - left, bottom - top);
}

double cellSize(double size) { return rounded(std::clamp(size, kLeastCell, kLargestSheet)); }

// Cells in the same column have the same width.
void setCellWidth(Layout& layout, const Part& part, double width) {
  const double before = cellAt(layout, part).width;
  const size_t cells = rowAt(layout, part).cells.size();
  for (TableRow& row : tableAt(layout, part).rows) {
    if (row.cells.size() != cells) continue;
    Cell& cell = row.cells[static_cast<size_t>(part.cell)];
    if (std::abs(cell.width - before) < kSlack) cell.width = cellSize(width);
  }
}

void requireRoom(const Layout& layout, size_t more) {
  if (layout.objects.size() + more > kMostObjects)
    throw RuleError(QStringLiteral("Raportul are deja %1 obiecte.").arg(kMostObjects), {}, kExclamation);
}

void requireRoom(const Table& table, size_t more) {
  size_t cells = table.sums.size() + more;
  for (const TableRow& row : table.rows) cells += row.cells.size() + 1;
  if (cells > kMostObjects)
    throw RuleError(QStringLiteral("Tabelul are deja %1 celule.").arg(kMostObjects), {}, kExclamation);
}

void requireNoTable(const Layout& layout) {
  if (layout.table())
    throw RuleError(QStringLiteral("Raportul are deja un tabel. Un raport poate avea numai unul."), {},
                    kExclamation);
}

bool isTaken(const Layout& layout, const QString& name) {
  return std::any_of(layout.objects.begin(), layout.objects.end(), [&name](const Object& object) {
    return object.name.compare(name, Qt::CaseInsensitive) == 0;
  });
}

QString freeName(const Layout& layout, Kind kind) {
  const QString stem = kindName(kind).section(QLatin1Char(' '), 0, 0);
  for (int number = 1;; ++number)
    if (const QString name = stem + QString::number(number); !isTaken(layout, name)) return name;
}

Object madeObject(Kind kind) {
  Object object;
  switch (kind) {
    case Kind::Text:
      object.content = Text{QStringLiteral("\"Text\""), {}};
      break;
    case Kind::Line:
      object.content = Line();
      break;
    case Kind::Box:
      object.content = Box();
      break;
    case Kind::Picture:
      object.content = Picture();
      break;
    case Kind::BarCode:
      object.content = BarCode();
      break;
    case Kind::Curve:
      object.content = Curve();
      break;
    case Kind::Table: {
      Table table;
      table.rows.resize(2);
      table.rows[0].role = RowRole::Header;
      object.content = std::move(table);
      break;
    }
  }
  return object;
}

QSizeF usualSize(const Layout& layout, Kind kind) {
  switch (kind) {
    case Kind::Text:
      return {40, 5};
    case Kind::Line:
      return {50, 0};
    case Kind::Table:
      return {layout.page.width - layout.page.left - layout.page.right, 60};
    case Kind::BarCode:
      return {50, 15};
    case Kind::Curve:
      return {80, 50};
    case Kind::Box:
    case Kind::Picture:
      break;
  }
  return {40, 20};
}

// Replaces a frame that is empty or too small by a visible one on the sheet.
QRectF usableFrame(const Layout& layout, Kind kind, const QRectF& drawn) {
  QRectF frame = drawn;
  const bool isClick = frame.width() < kLeastSize && frame.height() < kLeastSize;
  if (isClick) frame.setSize(usualSize(layout, kind));
  const double least = kind == Kind::Line ? 0 : kLeastSize;
  frame.setWidth(std::clamp(frame.width(), least, std::max(least, layout.page.width)));
  frame.setHeight(std::clamp(frame.height(), least, std::max(least, layout.page.height)));
  frame.moveLeft(std::clamp(frame.left(), 0.0, std::max(0.0, layout.page.width - frame.width())));
  frame.moveTop(std::clamp(frame.top(), 0.0, std::max(0.0, layout.page.height - frame.height())));
  return frame;
}

TextStyle styleFor(LLTip type) {
  TextStyle style;
  if (type == LLTip::Number) {
    style.format = Format::Number;
    style.align = Align::Right;
  }
  if (type == LLTip::Date || type == LLTip::Day) style.format = Format::Date;
  return style;
}

bool isLine(const TableRow& row) { return row.role == RowRole::Line; }

double freeWidth(const Object& object, const TableRow& row) {
  double width = object.frame.width();
  for (const Cell& cell : row.cells) width -= cell.width;
  return width;
}

// A new cell for that position of a row, formatted as its neighbour.
Cell cellBeside(const Object& object, const TableRow& row, int place) {
  Cell cell;
  cell.borders = {true, true, true, true};
  if (!row.cells.empty()) {
    const Cell& model = row.cells[static_cast<size_t>(std::max(0, place - 1))];
    cell.style = model.style;
    cell.borders = model.borders;
    cell.fill = model.fill;
  } else if (row.role == RowRole::Header) {
    cell.style.font.bold = true;
    cell.style.align = Align::Centre;
    cell.style.vertical = VerticalAlign::Middle;
  }
  const double room = freeWidth(object, row);
  cell.width = room >= kLeastCell ? std::min(kUsualCell, rounded(room)) : kUsualCell / 2;
  return cell;
}

void insertCell(TableRow& row, int place, Cell cell) {
  row.cells.insert(row.cells.begin() + std::clamp(place, 0, static_cast<int>(row.cells.size())),
                   std::move(cell));
}

// The other rows of a table that share their columns with the row.
std::vector<int> rowsAlike(const Table& table, int row) {
  const size_t cells = table.rows[static_cast<size_t>(row)].cells.size();
  std::vector<int> rows;
  for (int i = 0; i < static_cast<int>(table.rows.size()); ++i)
    if (i != row && table.rows[static_cast<size_t>(i)].cells.size() == cells) rows.push_back(i);
  return rows;
}

QString quoted(QString text) {
  text.replace(QLatin1Char('\\'), QStringLiteral("\\\\"));
  text.replace(QLatin1Char('"'), QStringLiteral("\\\""));
  return QLatin1Char('"') + text + QLatin1Char('"');
}

Part insertName(Layout& layout, const clsFieldVarDescription& name, const Part& row, int place) {
  Object& object = objectAt(layout, row);
  Table& table = tableAt(layout, row);
  TableRow& target = table.rows[static_cast<size_t>(row.row)];
  const std::vector<int> alike = isLine(target) ? rowsAlike(table, row.row) : std::vector<int>();
  requireRoom(table, alike.size() + 1);
  const bool first = target.cells.empty();
  Cell cell = cellBeside(object, target, place);
  const TextStyle usual = styleFor(name.type);
  cell.formula = name.name;
  cell.style.format = usual.format;
  cell.style.align = usual.align;
  const double width = cell.width;
  for (const int other : alike) {
    TableRow& beside = table.rows[static_cast<size_t>(other)];
    if (first && beside.role != RowRole::Header && !isLine(beside)) continue;
    Cell more = cellBeside(object, beside, place);
    more.width = width;
    if (beside.role == RowRole::Header) more.formula = quoted(name.name);
    insertCell(beside, place, std::move(more));
  }
  insertCell(target, place, std::move(cell));
  return {row.object, row.row, std::clamp(place, 0, static_cast<int>(target.cells.size()) - 1)};
}

// The row to which columns of the data are added: for a table, its Line row.
Part lineRow(Layout& layout, const Part& part) {
  if (part.row >= 0) return {part.object, part.row, -1};
  const Table& table = tableAt(layout, part);
  const auto line = std::find_if(table.rows.begin(), table.rows.end(), isLine);
  if (line == table.rows.end()) return addRow(layout, part, RowRole::Line);
  return {part.object, static_cast<int>(line - table.rows.begin()), -1};
}

bool isTable(const Layout& layout, const Part& part) {
  return part.object >= 0 && has(layout, part) &&
         kindOf(layout.objects[static_cast<size_t>(part.object)]) == Kind::Table;
}

Parts addObjects(Layout& layout, std::vector<Object> objects) {
  requireRoom(layout, objects.size());
  Parts added;
  for (Object& object : objects) {
    if (kindOf(object) == Kind::Table) requireNoTable(layout);
    if (!object.name.isEmpty() && isTaken(layout, object.name))
      object.name = freeName(layout, kindOf(object));
    added.push_back({static_cast<int>(layout.objects.size()), -1, -1});
    layout.objects.push_back(std::move(object));
  }
  return added;
}

bool hasObjectAt(const Layout& layout, const QPointF& place) {
  return std::any_of(layout.objects.begin(), layout.objects.end(),
                     [&place](const Object& object) { return object.frame.topLeft() == place; });
}

}  // namespace

double Grid::snapped(double value) const {
  constexpr double kHundredth = 0.01;
  const double lines = on && step > 0 ? step : kHundredth;
  return rounded(std::round(value / lines) * lines);
}

double Grid::next(double value, int direction) const {
  if (direction == 0) return value;
  const double lines = step > 0 ? step : 1;
  if (!on) return rounded(value + direction * lines);
  const double place = value / lines;
  const double line = direction > 0 ? std::floor(place + kSlack) + 1 : std::ceil(place - kSlack) - 1;
  return rounded(line * lines);
}

QRectF drawnFrame(const QPointF& from, const QPointF& to, const Grid& grid) {
  const QPointF a(grid.snapped(from.x()), grid.snapped(from.y()));
  const QPointF b(grid.snapped(to.x()), grid.snapped(to.y()));
  return {QPointF(std::min(a.x(), b.x()), std::min(a.y(), b.y())),
          QPointF(std::max(a.x(), b.x()), std::max(a.y(), b.y()))};
}

void move(Layout& layout, const Parts& parts, const QPointF& by, const Grid& grid) {
  const Parts objects = objectsOf(layout, parts);
  if (objects.empty()) return;
  const QPointF corner = objectAt(layout, objects.front()).frame.topLeft();
  // A direction without a move does not snap to the grid.
  const auto way = [&grid](double place, double distance) {
    return distance == 0 ? 0 : grid.snapped(place + distance) - place;
  };
  moveAll(layout, objects, {way(corner.x(), by.x()), way(corner.y(), by.y())});
}

void nudge(Layout& layout, const Parts& parts, int right, int down, bool fine, const Grid& grid) {
  const Parts objects = objectsOf(layout, parts);
  if (objects.empty()) return;
  const QPointF corner = objectAt(layout, objects.front()).frame.topLeft();
  const auto way = [&grid, fine](double place, int direction) {
    return fine ? direction * kFineStep : grid.next(place, direction) - place;
  };
  moveAll(layout, objects, {way(corner.x(), right), way(corner.y(), down)});
}

void size(Layout& layout, const Part& part, int sides, const QPointF& by, const Grid& grid) {
  if (part.isPage() || !has(layout, part)) return;
  if (part.isObject()) return sizeObject(layout.page, objectAt(layout, part), sides, by, grid);
  const QRectF frame = frameOf(layout, part);
  if (part.isCell() && sides & kRightSide)
    setCellWidth(layout, part, grid.snapped(frame.right() + by.x()) - frame.left());
  if (sides & kBottomSide)
    rowAt(layout, part).height = cellSize(grid.snapped(frame.bottom() + by.y()) - frame.top());
}

void nudgeSize(Layout& layout, const Parts& parts, int wider, int higher, bool fine, const Grid& grid) {
  const Grid off = {grid.step, false};
  const auto way = [&grid, fine](double place, int direction) {
    return fine ? direction * kFineStep : grid.next(place, direction) - place;
  };
  const int sides = (wider ? kRightSide : 0) | (higher ? kBottomSide : 0);
  std::vector<QSizeF> before;
  for (const Part& part : parts) before.push_back(frameOf(layout, part).size());
  for (size_t i = 0; i < parts.size(); ++i) {
    if (parts[i].isPage() || !has(layout, parts[i])) continue;
    const QRectF frame = frameOf(layout, parts[i]);
    if (frame.size() != before[i]) continue;  // a cell resized together with another of its column or row
    size(layout, parts[i], sides, {way(frame.right(), wider), way(frame.bottom(), higher)}, off);
  }
}

void align(Layout& layout, const Parts& parts, Alignment alignment) {
  const Parts objects = objectsOf(layout, parts);
  if (objects.empty()) return;
  const QRectF measure = objectAt(layout, objects.front()).frame;
  for (const Part& part : objects) {
    Object& object = objectAt(layout, part);
    QRectF frame = object.frame;
    switch (alignment) {
      case Alignment::Left:
        frame.moveLeft(measure.left());
        break;
      case Alignment::Right:
        frame.moveRight(measure.right());
        break;
      case Alignment::Top:
        frame.moveTop(measure.top());
        break;
      case Alignment::Bottom:
        frame.moveBottom(measure.bottom());
        break;
      case Alignment::Centre:
        frame.moveLeft(measure.center().x() - frame.width() / 2);
        break;
      case Alignment::Middle:
        frame.moveTop(measure.center().y() - frame.height() / 2);
        break;
    }
    moveAll(layout, {part}, frame.topLeft() - object.frame.topLeft());
  }
}

void equalise(Layout& layout, const Parts& parts, bool width) {
  const Parts all = existing(layout, parts);
  if (all.empty() || all.front().isPage()) return;
  const QSizeF measure = frameOf(layout, all.front()).size();
  for (const Part& part : all) {
    if (part.isCell() && width) setCellWidth(layout, part, measure.width());
    if (part.row >= 0 && !width) rowAt(layout, part).height = cellSize(measure.height());
    if (!part.isObject()) continue;
    Object& object = objectAt(layout, part);
    const QRectF& frame = object.frame;
    const double least = leastSize(object);
    setFrame(object, frame.left(), frame.top(), width ? std::max(least, measure.width()) : frame.width(),
             width ? frame.height() : std::max(least, measure.height()));
    moveAll(layout, {part},
            {std::min(0.0, layout.page.width - object.frame.right()),
             std::min(0.0, layout.page.height - object.frame.bottom())});
  }
}

Parts reorder(Layout& layout, const Parts& parts, bool toFront) {
  QSet<int> chosen;
  for (const Part& part : objectsOf(layout, parts)) chosen.insert(part.object);
  std::vector<Object> moved, others;
  for (int i = 0; i < static_cast<int>(layout.objects.size()); ++i)
    (chosen.contains(i) ? moved : others).push_back(std::move(layout.objects[static_cast<size_t>(i)]));
  const int first = toFront ? static_cast<int>(others.size()) : 0;
  Parts places;
  for (int i = 0; i < static_cast<int>(moved.size()); ++i) places.push_back({first + i, -1, -1});
  others.insert(others.begin() + first, std::make_move_iterator(moved.begin()),
                std::make_move_iterator(moved.end()));
  layout.objects = std::move(others);
  return places;
}

Part add(Layout& layout, Kind kind, const QRectF& frame) {
  requireRoom(layout, 1);
  if (kind == Kind::Table) requireNoTable(layout);
  Object object = madeObject(kind);
  object.name = freeName(layout, kind);
  const QRectF usable = usableFrame(layout, kind, frame);
  setFrame(object, usable.left(), usable.top(), usable.width(), usable.height());
  layout.objects.push_back(std::move(object));
  return {static_cast<int>(layout.objects.size()) - 1, -1, -1};
}

Part addText(Layout& layout, const clsFieldVarDescription& name, const QPointF& at) {
  const Part part = add(layout, Kind::Text, QRectF(at, QSizeF()));
  std::get<Text>(objectAt(layout, part).content) = Text{name.name, styleFor(name.type)};
  return part;
}

Part addName(Layout& layout, const clsFieldVarDescription& name, const QPointF& at) {
  const Part part = partAt(layout, at, 0, true);
  if (!isTable(layout, part)) return addText(layout, name, at);
  if (!part.isCell()) return addNameAt(layout, name, part, false);
  return addNameAt(layout, name, part, at.x() < frameOf(layout, part).center().x());
}

Part addNameAt(Layout& layout, const clsFieldVarDescription& name, const Part& place, bool before) {
  const Part row = lineRow(layout, place);
  const int end = static_cast<int>(rowAt(layout, row).cells.size());
  return insertName(layout, name, row, place.isCell() ? place.cell + (before ? 0 : 1) : end);
}

Part addRow(Layout& layout, const Part& part, RowRole role) {
  Table& table = tableAt(layout, part);
  const auto line = std::find_if(table.rows.begin(), table.rows.end(), isLine);
  TableRow row;
  row.role = role;
  // Totals are below their columns.
  if (line != table.rows.end()) {
    requireRoom(table, line->cells.size() + 1);
    for (const Cell& model : line->cells) {
      Cell cell = model;
      cell.formula.clear();
      row.cells.push_back(std::move(cell));
    }
  }
  requireRoom(table, 1);
  const auto behind = std::find_if(table.rows.begin(), table.rows.end(),
                                   [role](const TableRow& each) { return each.role > role; });
  const int place = static_cast<int>(behind - table.rows.begin());
  table.rows.insert(behind, std::move(row));
  return {part.object, place, -1};
}

Part addCell(Layout& layout, const Part& place) {
  if (!isTable(layout, place)) return place;
  const Part row = lineRow(layout, place);
  requireRoom(tableAt(layout, row), 1);
  TableRow& target = rowAt(layout, row);
  const int at = place.isCell() ? place.cell + 1 : static_cast<int>(target.cells.size());
  insertCell(target, at, cellBeside(objectAt(layout, row), target, at));
  return {row.object, row.row, at};
}

Part moveCell(Layout& layout, const Part& cell, int by) {
  if (!cell.isCell() || !has(layout, cell)) return cell;
  std::vector<Cell>& cells = rowAt(layout, cell).cells;
  const int to = std::clamp(cell.cell + by, 0, static_cast<int>(cells.size()) - 1);
  if (to != cell.cell) std::swap(cells[static_cast<size_t>(to)], cells[static_cast<size_t>(cell.cell)]);
  return {cell.object, cell.row, to};
}

Parts remove(Layout& layout, Parts parts) {
  parts = existing(layout, parts);
  // From the end, so that preceding positions remain valid.
  const auto key = [](const Part& part) { return std::array{part.object, part.row, part.cell}; };
  std::sort(parts.begin(), parts.end(), [&key](const Part& a, const Part& b) { return key(a) > key(b); });
  parts.erase(std::unique(parts.begin(), parts.end()), parts.end());
  Parts left;
  for (const Part& part : parts) {
    left.clear();
    if (part.isCell()) {
      std::vector<Cell>& cells = rowAt(layout, part).cells;
      cells.erase(cells.begin() + part.cell);
      left = {{part.object, part.row, std::min(part.cell, static_cast<int>(cells.size()) - 1)}};
    } else if (part.isRow()) {
      std::vector<TableRow>& rows = tableAt(layout, part).rows;
      rows.erase(rows.begin() + part.row);
      left = {{part.object, -1, -1}};
    } else if (part.isObject()) {
      layout.objects.erase(layout.objects.begin() + part.object);
    }
  }
  return existing(layout, left);
}

QByteArray copied(const Layout& layout, const Parts& parts) {
  Layout copy;
  copy.page = layout.page;
  for (const Part& part : objectsOf(layout, parts))
    copy.objects.push_back(layout.objects[static_cast<size_t>(part.object)]);
  return copy.objects.empty() ? QByteArray() : write(copy);
}

Parts paste(Layout& layout, const QByteArray& text) {
  Layout from;
  try {
    from = read(text);
  } catch (const LayoutError&) {
    from.objects.clear();
  }
  if (from.objects.empty())
    throw RuleError(QStringLiteral("Nu este copiat niciun obiect de raport."), {}, kInformation);
  QPointF by;
  while (hasObjectAt(layout, from.objects.front().frame.topLeft() + by) && by.x() < kLargestSheet)
    by += QPointF(kPasteDistance, kPasteDistance);
  Layout changed = layout;
  const Parts added = addObjects(changed, std::move(from.objects));
  moveAll(changed, added, by);
  layout = std::move(changed);
  return added;
}

Parts duplicate(Layout& layout, const Parts& parts) {
  const QByteArray text = copied(layout, parts);
  return text.isEmpty() ? parts : paste(layout, text);
}

std::optional<Edit> edited(const State& state, const QString& text, const QString& joins,
                           const Change& change) {
  auto changed = std::make_shared<Layout>(*state.layout);
  const Parts chosen = existing(*changed, change(*changed));
  if (write(*changed) == write(*state.layout)) return std::nullopt;
  return Edit{text, joins, state, {std::move(changed), chosen}};
}

bool join(Edit& edit, const Edit& next) {
  const bool joined = !edit.joins.isEmpty() && edit.joins == next.joins &&
                      edit.after.layout == next.before.layout && edit.after.chosen == next.before.chosen &&
                      next.before.chosen == next.after.chosen;
  if (joined) edit.after = next.after;
  return joined;
}

}  // namespace velmar::layout
