#include "reports/windows/ObjectPainter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <QHash>
#include <QScopeGuard>
#include <QTextLayout>

#include "reports/BarCodes.h"
#include "reports/Shown.h"
#include "reports/windows/CurvePainter.h"

namespace velmar::layout {

namespace {

constexpr qreal kCellPadding = 0.8 * kTwipsPerMillimetre;
constexpr qreal kCellMargin = 0.3 * kTwipsPerMillimetre;  // above and below a cell's text
constexpr qreal kNarrowest = 0.7;                         // of a text
constexpr qreal kNarrowestNumber = 0.4;
constexpr qreal kSmallest = 0.5;  // of a wrapped text in a frame that is too low
constexpr qreal kSizeStep = 0.05;
constexpr qreal kQuietZone = 10;  // modules beside a bar code

/// A font with its metrics.
class Letters {
 public:
  explicit Letters(const Font& wanted) : font(fontOf(wanted)), metrics(font) {
    for (char16_t letter = 0; letter < kKnown; ++letter)
      widths_[letter] = metrics.horizontalAdvance(QChar(letter));
  }

  // Without kerning the width is the sum of the letters' advances, which is much faster than a text layout.
  qreal width(const QString& text) const {
    qreal width = 0;
    for (const QChar letter : text) {
      if (letter.unicode() >= kKnown) return metrics.horizontalAdvance(text);
      width += widths_[letter.unicode()];
    }
    return width;
  }

  QFont font;
  QFontMetricsF metrics;

 private:
  static constexpr char16_t kKnown = 128;
  std::array<qreal, kKnown> widths_;
};

const Letters& lettersOf(const Font& font) {
  using Key = std::tuple<QString, double, bool, bool, bool>;
  static thread_local std::map<Key, Letters> known;
  const Key key{font.family, font.points, font.bold, font.italic, font.underlined};
  const auto found = known.find(key);
  return found != known.end() ? found->second : known.emplace(key, Letters(font)).first->second;
}

// Lines of a wrapped text; a word that is wider than the frame is broken.
QStringList wrapped(const QString& text, const Letters& letters, qreal width) {
  QStringList lines;
  for (const QString& paragraph : text.split(u'\n')) {
    if (letters.width(paragraph) <= width) {
      lines.append(paragraph);
      continue;
    }
    QTextLayout layout(paragraph, letters.font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
      line.setLineWidth(std::max(width, 1.0));
      lines.append(paragraph.mid(line.textStart(), line.textLength()).trimmed());
    }
    layout.endLayout();
  }
  return lines;
}

QString oneLine(QString text) { return text.replace(u'\n', u' ').remove(u'\r'); }

qreal alignedLeft(const QRectF& frame, qreal width, Align align) {
  if (align == Align::Right) return frame.right() - width;
  return align == Align::Centre ? frame.center().x() - width / 2 : frame.left();
}

// A line of text whose width is known to be too much for the frame.
void drawNarrowed(QPainter& painter, const QRectF& frame, qreal baseline, const QString& text, qreal width,
                  const TextStyle& style, const Letters& letters) {
  const bool isNumber = isNumeric(style.format);
  const qreal scale = std::max(frame.width() / width, isNumber ? kNarrowestNumber : kNarrowest);
  const QString shown =
      isNumber ? text : letters.metrics.elidedText(text, Qt::ElideRight, frame.width() / scale);
  const qreal shownWidth = letters.metrics.horizontalAdvance(shown) * scale;
  painter.save();
  painter.translate(alignedLeft(frame, shownWidth, style.align), baseline);
  painter.scale(scale, 1);
  painter.drawText(QPointF(0, 0), shown);
  painter.restore();
}

void drawLineOfText(QPainter& painter, const QRectF& frame, qreal baseline, const QString& text,
                    const TextStyle& style, const Letters& letters) {
  if (text.isEmpty()) return;
  const qreal width = letters.width(text);
  if (width > frame.width() + 1)
    drawNarrowed(painter, frame, baseline, text, width, style, letters);
  else
    painter.drawText(QPointF(alignedLeft(frame, width, style.align), baseline), text);
}

// Draws the lines that fit; a truncated text ends with dots.
void drawLines(QPainter& painter, const QRectF& frame, const QString& text, const TextStyle& style,
               qsizetype most) {
  if (text.isEmpty()) return;
  const Letters& letters = lettersOf(style.font);
  painter.setFont(letters.font);
  painter.setPen(QColor(style.colour));
  QStringList lines = style.wraps ? wrapped(text, letters, frame.width()) : QStringList(oneLine(text));
  if (lines.size() > most) {
    const QString cut = lines[most - 1] + u' ' + lines[most];
    lines = lines.first(most);
    lines.last() = letters.metrics.elidedText(cut, Qt::ElideRight, frame.width());
  }
  const qreal lineHeight = letters.metrics.height();
  const qreal height = lineHeight * static_cast<qreal>(lines.size());
  qreal top = frame.top();
  if (style.vertical == VerticalAlign::Bottom) top = frame.bottom() - height;
  if (style.vertical == VerticalAlign::Middle) top = frame.center().y() - height / 2;
  for (const QString& line : lines) {
    drawLineOfText(painter, frame, top + letters.metrics.ascent(), line, style, letters);
    top += lineHeight;
  }
}

QPen penOf(double millimetres, const QString& colour) {
  QPen pen(QColor(colour), toTwips(millimetres));
  pen.setCapStyle(Qt::FlatCap);
  pen.setJoinStyle(Qt::MiterJoin);
  return pen;
}

qreal textHeight(const QString& text, const TextStyle& style, qreal width) {
  const Letters& letters = lettersOf(style.font);
  return static_cast<qreal>(wrapped(text, letters, width).size()) * letters.metrics.height();
}

/// Lines between and around cells: a border shared by two cells is drawn once, borders that continue from
/// cell to cell are joined.
class Borderlines {
 public:
  void add(const QPointF& from, const QPointF& to) {
    const bool lies = from.y() == to.y();
    if (!lines_.isEmpty() && lies && lines_.last().p2() == from)
      lines_.last().setP2(to);
    else if (lines_.isEmpty() || lines_.last() != QLineF(from, to))
      lines_.append(QLineF(from, to));
  }

  void draw(QPainter& painter, const Table& table) const {
    if (lines_.isEmpty() || table.pen <= 0) return;
    painter.setPen(penOf(table.pen, table.colour));
    painter.drawLines(lines_);
  }

 private:
  QList<QLineF> lines_;
};

// The squares of a row's cells, from left to right.
template <typename Work>
void forEachCell(const QRectF& frame, const TableRow& row, Work work) {
  qreal left = frame.left();
  for (size_t i = 0; i < row.cells.size(); ++i) {
    const qreal width = toTwips(row.cells[i].width);
    work(i, QRectF(left, frame.top(), width, frame.height()));
    left += width;
  }
}

}  // namespace

QRectF toTwips(const QRectF& millimetres) {
  return {millimetres.topLeft() * kTwipsPerMillimetre, millimetres.size() * kTwipsPerMillimetre};
}

QFont fontOf(const Font& wanted) {
  QFont font = printFont(QFont(wanted.family), wanted.points);
  font.setBold(wanted.bold);
  font.setItalic(wanted.italic);
  font.setUnderline(wanted.underlined);
  font.setKerning(false);
  return font;
}

void drawText(QPainter& painter, const QRectF& frame, const QString& text, const TextStyle& style) {
  const bool isOneLine = !style.wraps || wrapped(text, lettersOf(style.font), frame.width()).size() == 1;
  if (isOneLine) return drawLines(painter, frame, text, style, 1);
  TextStyle fitted = style;
  const qreal room = frame.height() + 1;
  for (qreal size = 1; size > kSmallest - kSizeStep / 2; size -= kSizeStep) {
    fitted.font.points = style.font.points * size;
    if (textHeight(text, fitted, frame.width()) <= room) break;
  }
  const qreal lines = room / lettersOf(fitted.font).metrics.height();
  drawLines(painter, frame, text, fitted, std::max<qsizetype>(1, static_cast<qsizetype>(lines)));
}

void drawLine(QPainter& painter, const QRectF& frame, const Line& line) {
  painter.setPen(penOf(line.pen, line.colour));
  if (line.rising)
    painter.drawLine(frame.bottomLeft(), frame.topRight());
  else
    painter.drawLine(frame.topLeft(), frame.bottomRight());
}

void drawBox(QPainter& painter, const QRectF& frame, const Box& box) {
  painter.setPen(box.pen > 0 ? penOf(box.pen, box.colour) : QPen(Qt::NoPen));
  painter.setBrush(box.fill.isEmpty() ? QBrush(Qt::NoBrush) : QBrush(QColor(box.fill)));
  const qreal radius = std::min({toTwips(box.radius), frame.width() / 2, frame.height() / 2});
  if (radius > 0)
    painter.drawRoundedRect(frame, radius, radius);
  else
    painter.drawRect(frame);
  painter.setBrush(Qt::NoBrush);
}

void drawPicture(QPainter& painter, const QRectF& frame, const QImage& image, bool keepsRatio) {
  if (image.isNull() || frame.isEmpty()) return;
  QRectF place = frame;
  if (keepsRatio) {
    const QSizeF size = QSizeF(image.size()).scaled(frame.size(), Qt::KeepAspectRatio);
    place = QRectF(
        frame.topLeft() + QPointF(frame.width() - size.width(), frame.height() - size.height()) / 2, size);
  }
  painter.drawImage(place, image);
}

void drawBarCode(QPainter& painter, const QRectF& frame, const BarCode& code, const QString& text) {
  const QBitArray modules = barModules(code.type, text.trimmed());
  if (frame.isEmpty()) return;
  TextStyle style;
  style.align = Align::Centre;
  style.vertical = VerticalAlign::Bottom;
  if (modules.isEmpty()) {
    if (code.showsText) drawText(painter, frame, text.trimmed(), style);
    return;
  }
  const qreal textRoom = code.showsText ? lettersOf(style.font).metrics.height() : 0;
  const qreal module = frame.width() / (static_cast<qreal>(modules.size()) + 2 * kQuietZone);
  const qreal height = std::max(frame.height() - textRoom, frame.height() / 4);
  for (qsizetype from = 0; from < modules.size();) {
    qsizetype end = from;
    while (end < modules.size() && modules.testBit(end)) ++end;
    if (end > from)
      painter.fillRect(QRectF(frame.left() + (kQuietZone + static_cast<qreal>(from)) * module, frame.top(),
                              static_cast<qreal>(end - from) * module, height),
                       Qt::black);
    from = std::max(end, from + 1);
  }
  if (code.showsText) drawText(painter, frame, barText(code.type, text.trimmed()), style);
}

void drawCurve(QPainter& painter, const QRectF& frame, const Curve& curve,
               const QList<std::optional<QPointF>>& points) {
  painter.save();
  painter.setFont(fontOf({.points = curve.points}));
  painter.setPen(Qt::black);
  drawCurves(painter, frame, curve.axes, {{points, QColor(curve.colour), curve.mark}}, toTwips(curve.pen));
  painter.restore();
}

qreal rowHeight(const TableRow& row, const QStringList& texts) {
  qreal height = toTwips(row.height);
  for (size_t i = 0; i < row.cells.size(); ++i) {
    const Cell& cell = row.cells[i];
    const QString text = texts.value(static_cast<qsizetype>(i));
    if (!cell.style.wraps || text.isEmpty()) continue;
    height = std::max(height,
                      2 * kCellMargin + textHeight(text, cell.style, toTwips(cell.width) - 2 * kCellPadding));
  }
  return height;
}

qreal rowWidth(const TableRow& row) {
  qreal width = 0;
  for (const Cell& cell : row.cells) width += toTwips(cell.width);
  return width;
}

void drawRow(QPainter& painter, const QRectF& frame, const TableRow& row, const QStringList& texts,
             const Table& table) {
  forEachCell(frame, row, [&](size_t i, const QRectF& square) {
    const Cell& cell = row.cells[i];
    if (!cell.fill.isEmpty()) painter.fillRect(square, QColor(cell.fill));
    const QRectF room = square.adjusted(kCellPadding, kCellMargin, -kCellPadding, -kCellMargin);
    const qreal lines = room.height() / lettersOf(cell.style.font).metrics.height();
    drawLines(painter, room, texts.value(static_cast<qsizetype>(i)), cell.style,
              std::max<qsizetype>(1, qRound(lines)));
  });
  drawSides(painter, frame, row, table);
  Borderlines above, below;
  forEachCell(frame, row, [&](size_t i, const QRectF& square) {
    const Borders& borders = row.cells[i].borders;
    if (borders.top) above.add(square.topLeft(), square.topRight());
    if (borders.bottom) below.add(square.bottomLeft(), square.bottomRight());
  });
  above.draw(painter, table);
  below.draw(painter, table);
}

void drawSides(QPainter& painter, const QRectF& frame, const TableRow& row, const Table& table) {
  Borderlines sides;
  forEachCell(frame, row, [&](size_t i, const QRectF& square) {
    const Borders& borders = row.cells[i].borders;
    if (borders.left) sides.add(square.topLeft(), square.bottomLeft());
    if (borders.right) sides.add(square.topRight(), square.bottomRight());
  });
  sides.draw(painter, table);
}

}  // namespace velmar::layout
