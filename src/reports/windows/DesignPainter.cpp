#include "reports/windows/DesignPainter.h"

#include <cmath>
#include <QRegularExpression>

#include "reports/windows/ObjectPainter.h"

namespace velmar::layout {

namespace {

const QColor kFrameColour(0xb0, 0xb8, 0xc4);
const QColor kFaultColour(0xc0, 0x20, 0x20);
const QColor kGridColour(0xd8, 0xdc, 0xe4);

// The text shown instead of the value of a formula: the formula itself, or a text literal without its quotes.
QString shownFor(const QString& formula) {
  static const QRegularExpression kMereText(QStringLiteral("^\\s*\"([^\"\\\\]*)\"\\s*$"));
  const QRegularExpressionMatch match = kMereText.match(formula);
  return match.hasMatch() ? match.captured(1) : formula;
}

QPen cosmetic(const QColor& colour, qreal width = 1, Qt::PenStyle style = Qt::SolidLine) {
  QPen pen(colour, width, style);
  pen.setCosmetic(true);
  return pen;
}

// Sample digits for a bar code whose value is unknown.
// A curve from one corner of its scale to the other.
QList<std::optional<QPointF>> sampleFor(const Curve& curve) {
  return {QPointF(curve.axes.leastX, curve.axes.leastY), QPointF(curve.axes.mostX, curve.axes.mostY)};
}

QString sampleFor(const BarCode& code) {
  return code.type == BarCodeType::Ean13 ? QStringLiteral("5901234123457") : QStringLiteral("0123456789");
}

// A formula is not a number: one that is too long ends with dots.
TextStyle plain(TextStyle style) {
  style.format = Format::Text;
  return style;
}

}  // namespace

QRectF toPixels(const DesignView& view, const QRectF& frame) {
  return {view.origin + frame.topLeft() * view.scale, frame.size() * view.scale};
}

std::vector<std::pair<int, QPointF>> handlesOf(const QRectF& pixels, const Part& part) {
  const QPointF centre = pixels.center();
  const std::pair<int, QPointF> right = {kRightSide, {pixels.right(), centre.y()}};
  const std::pair<int, QPointF> bottom = {kBottomSide, {centre.x(), pixels.bottom()}};
  if (part.isCell()) return {right, bottom};
  if (part.isRow()) return {bottom};
  return {{kLeftSide | kTopSide, pixels.topLeft()},
          {kTopSide, {centre.x(), pixels.top()}},
          {kRightSide | kTopSide, pixels.topRight()},
          {kLeftSide, {pixels.left(), centre.y()}},
          right,
          {kLeftSide | kBottomSide, pixels.bottomLeft()},
          bottom,
          {kRightSide | kBottomSide, pixels.bottomRight()}};
}

void DesignPainter::paint() {
  painter_.fillRect(view_.viewport, view_.palette.mid());
  painter_.save();
  painter_.setClipRect(view_.viewport.adjusted(kRulerSize, kRulerSize, 0, 0));
  paintSheet();
  paintObjects();
  paintFaulty();
  paintChosen();
  paintDrop();
  painter_.restore();
  paintRulers();
}

void DesignPainter::paintSheet() {
  const Page& page = view_.layout.page;
  painter_.fillRect(toPixels(view_, {0, 0, page.width, page.height}), Qt::white);
  if (view_.grid.on) paintGrid();
  painter_.setPen(cosmetic(kFrameColour, 1, Qt::DashLine));
  painter_.setBrush(Qt::NoBrush);
  painter_.drawRect(toPixels(view_, {page.left, page.top, page.width - page.left - page.right,
                                     page.height - page.top - page.bottom}));
}

// Draws lines only if they are far enough apart to be distinguished.
void DesignPainter::paintGrid() {
  constexpr double kLeastDistance = 6;
  double step = view_.grid.step;
  while (step * view_.scale < kLeastDistance) step *= 5;
  const Page& page = view_.layout.page;
  const QRectF seen = QRectF(-view_.origin / view_.scale, QSizeF(view_.viewport.size()) / view_.scale) &
                      QRectF(0, 0, page.width, page.height);
  painter_.setPen(cosmetic(kGridColour));
  QList<QLineF> lines;
  for (double x = std::ceil(seen.left() / step) * step; x <= seen.right(); x += step)
    lines.append({view_.origin + QPointF(x, seen.top()) * view_.scale,
                  view_.origin + QPointF(x, seen.bottom()) * view_.scale});
  for (double y = std::ceil(seen.top() / step) * step; y <= seen.bottom(); y += step)
    lines.append({view_.origin + QPointF(seen.left(), y) * view_.scale,
                  view_.origin + QPointF(seen.right(), y) * view_.scale});
  painter_.drawLines(lines);
}

void DesignPainter::paintObjects() {
  for (int i = 0; i < static_cast<int>(view_.layout.objects.size()); ++i) {
    const Object& object = view_.layout.objects[static_cast<size_t>(i)];
    const auto* table = std::get_if<Table>(&object.content);
    painter_.save();
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.translate(view_.origin);
    painter_.scale(view_.scale / kTwipsPerMillimetre, view_.scale / kTwipsPerMillimetre);
    if (table)
      paintTable(i, object, *table);
    else
      paintObject(object);
    painter_.restore();
    const bool showsItself = std::holds_alternative<Line>(object.content);
    if (!showsItself) {
      painter_.setPen(cosmetic(kFrameColour, 1, Qt::DotLine));
      painter_.setBrush(Qt::NoBrush);
      painter_.drawRect(toPixels(view_, object.frame));
    }
    if (table) paintRoles(i, *table);
  }
}

void DesignPainter::paintObject(const Object& object) {
  const QRectF frame = toTwips(object.frame);
  if (const auto* text = std::get_if<Text>(&object.content))
    drawText(painter_, frame, shownFor(text->formula), plain(text->style));
  else if (const auto* line = std::get_if<Line>(&object.content))
    drawLine(painter_, frame, *line);
  else if (const auto* box = std::get_if<Box>(&object.content))
    drawBox(painter_, frame, *box);
  else if (const auto* code = std::get_if<BarCode>(&object.content))
    drawBarCode(painter_, frame, *code, sampleFor(*code));
  else if (const auto* curve = std::get_if<Curve>(&object.content))
    drawCurve(painter_, frame, *curve, sampleFor(*curve));
  else if (const auto* picture = std::get_if<Picture>(&object.content)) {
    TextStyle style;
    style.colour = kFrameColour.darker().name();
    style.align = Align::Centre;
    style.vertical = VerticalAlign::Middle;
    drawText(painter_, frame, picture->file.isEmpty() ? QStringLiteral("Imagine") : shownFor(picture->file),
             style);
  }
}

void DesignPainter::paintTable(int place, const Object&, const Table& table) {
  for (const PlacedPart& each : placesIn(view_.layout, place)) {
    if (!each.part.isRow()) continue;
    TableRow row = table.rows[static_cast<size_t>(each.part.row)];
    QStringList texts;
    for (Cell& cell : row.cells) {
      texts.append(shownFor(cell.formula));
      cell.style = plain(cell.style);
      cell.style.wraps = false;
    }
    QRectF frame = toTwips(each.frame);
    frame.setWidth(std::max(frame.width(), rowWidth(row)));
    drawRow(painter_, frame, row, texts, table);
  }
}

// The frames of rows and cells, and beside each row its role.
void DesignPainter::paintRoles(int place, const Table& table) {
  QFont small = painter_.font();
  small.setPointSizeF(7);
  painter_.setFont(small);
  for (const PlacedPart& each : placesIn(view_.layout, place)) {
    const QRectF frame = toPixels(view_, each.frame);
    painter_.setPen(cosmetic(kFrameColour, 1, Qt::DotLine));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawRect(frame);
    if (!each.part.isRow()) continue;
    const QString role = roleName(table.rows[static_cast<size_t>(each.part.row)].role);
    const QFontMetricsF metrics(small);
    QRectF tag(0, 0, metrics.horizontalAdvance(role) + 6, metrics.height());
    tag.moveTopRight(frame.topLeft() - QPointF(2, 0));
    tag.moveLeft(std::max(tag.left(), qreal(kRulerSize + 2)));
    painter_.fillRect(tag, QColor(0xe8, 0xee, 0xf6));
    painter_.setPen(Qt::darkGray);
    painter_.drawText(tag, Qt::AlignCenter, role);
  }
}

void DesignPainter::paintFaulty() {
  painter_.setBrush(Qt::NoBrush);
  for (const Part& part : view_.faulty) {
    if (!has(view_.layout, part) || part.isPage()) continue;
    const QRectF frame = toPixels(view_, frameOf(view_.layout, part));
    painter_.setPen(cosmetic(kFaultColour, 1, Qt::DashLine));
    painter_.drawRect(frame);
    const QPolygonF corner(
        {frame.topRight(), frame.topRight() - QPointF(8, 0), frame.topRight() + QPointF(0, 8)});
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(kFaultColour);
    painter_.drawPolygon(corner);
    painter_.setBrush(Qt::NoBrush);
  }
}

void DesignPainter::paintChosen() {
  const QColor accent = view_.palette.color(QPalette::Highlight);
  bool first = true;
  for (const Part& part : view_.chosen) {
    if (part.isPage() || !has(view_.layout, part)) continue;
    const QRectF frame = toPixels(view_, frameOf(view_.layout, part));
    painter_.setPen(cosmetic(accent, view_.hasFocus ? 2 : 1));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawRect(frame);
    // The reference for the others is marked with solid handles.
    painter_.setPen(cosmetic(accent));
    painter_.setBrush(std::exchange(first, false) ? accent : QColor(Qt::white));
    for (const auto& [sides, at] : handlesOf(frame, part)) {
      QRectF handle(0, 0, kHandleSize, kHandleSize);
      handle.moveCenter(at);
      painter_.drawRect(handle);
    }
  }
  if (!view_.band) return;
  painter_.setPen(cosmetic(accent, 1, Qt::DashLine));
  QColor veil = accent;
  veil.setAlpha(30);
  painter_.setBrush(veil);
  painter_.drawRect(toPixels(view_, *view_.band));
}

void DesignPainter::paintDrop() {
  if (!view_.dropAt) return;
  const QPointF at = view_.origin + *view_.dropAt * view_.scale;
  painter_.setPen(cosmetic(view_.palette.color(QPalette::Highlight), 2));
  const Part part = partAt(view_.layout, *view_.dropAt, 0, true);
  if (part.row < 0) {
    painter_.drawLine(at - QPointF(6, 0), at + QPointF(6, 0));
    painter_.drawLine(at - QPointF(0, 6), at + QPointF(0, 6));
    return;
  }
  const QRectF frame = toPixels(view_, frameOf(view_.layout, part));
  painter_.setBrush(Qt::NoBrush);
  painter_.drawRect(frame);
  if (!part.isCell()) return;
  const qreal x = at.x() < frame.center().x() ? frame.left() : frame.right();
  painter_.setPen(cosmetic(view_.palette.color(QPalette::Highlight), 4));
  painter_.drawLine(QPointF(x, frame.top()), QPointF(x, frame.bottom()));
}

void DesignPainter::paintRulers() {
  const QRect& all = view_.viewport;
  painter_.fillRect(QRect(all.left(), all.top(), all.width(), kRulerSize), view_.palette.window());
  painter_.fillRect(QRect(all.left(), all.top(), kRulerSize, all.height()), view_.palette.window());
  QFont small = painter_.font();
  small.setPointSizeF(7);
  painter_.setFont(small);
  painter_.setPen(cosmetic(view_.palette.color(QPalette::WindowText)));
  paintRuler(true);
  paintRuler(false);
  painter_.fillRect(QRect(all.left(), all.top(), kRulerSize, kRulerSize), view_.palette.window());
}

// Numbered centimetres, and millimetres if there is room.
void DesignPainter::paintRuler(bool across) {
  constexpr int kCentimetre = 10;
  constexpr double kLeastDistance = 3;
  constexpr double kNumberDistance = 24;
  const double origin = across ? view_.origin.x() : view_.origin.y();
  const int length = across ? view_.viewport.width() : view_.viewport.height();
  const double sheet = across ? view_.layout.page.width : view_.layout.page.height;
  int numbered = kCentimetre;
  while (numbered * view_.scale < kNumberDistance) numbered *= 2;
  const int step = view_.scale >= kLeastDistance ? 1 : numbered / 2;
  const int first = std::max(0, static_cast<int>((kRulerSize - origin) / view_.scale / step)) * step;
  for (int mm = first; mm <= sheet; mm += step) {
    const double at = origin + mm * view_.scale;
    if (at > length) break;
    const bool isNumber = mm % numbered == 0;
    const int tick = isNumber ? 8 : (mm % 5 == 0 ? 5 : 3);
    painter_.drawLine(across ? QLineF(at, kRulerSize - tick, at, kRulerSize)
                             : QLineF(kRulerSize - tick, at, kRulerSize, at));
    if (!isNumber) continue;
    const QString text = QString::number(mm / kCentimetre);
    painter_.drawText(across ? QPointF(at + 2, kRulerSize - 8) : QPointF(1, at + 9), text);
  }
}

}  // namespace velmar::layout
