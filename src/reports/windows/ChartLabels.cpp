#include "reports/windows/ChartLabels.h"

#include <algorithm>
#include <QPainter>

namespace velmar {

namespace {

constexpr int kFontPixels = 11;
constexpr qreal kSquare = 10;
constexpr qreal kGap = 6;
const QColor kText(0x26, 0x26, 0x26);
const QColor kBehind(255, 255, 255, 200);  // keeps a text readable over a line or a bar

QRectF rectOf(const LabelPlace& place, QSizeF size) {
  if (place.isUpright) size.transpose();
  QRectF rect({0, 0}, size);
  rect.moveCenter(place.point);
  if (place.side & Qt::AlignLeft) rect.moveRight(place.point.x());
  if (place.side & Qt::AlignRight) rect.moveLeft(place.point.x());
  if (place.side & Qt::AlignTop) rect.moveBottom(place.point.y());
  if (place.side & Qt::AlignBottom) rect.moveTop(place.point.y());
  return rect;
}

}  // namespace

ChartLabels::ChartLabels(QPainter& painter, const QRectF& area, const QFont& like)
    : painter_(painter), area_(area), metrics_(font(like)) {
  painter_.setFont(font(like));
  painter_.setPen(kText);
}

QFont ChartLabels::font(const QFont& like) {
  QFont font = like;
  font.setPixelSize(kFontPixels);
  return font;
}

bool ChartLabels::place(const QString& text, const QList<LabelPlace>& places, const QColor& color) {
  constexpr qreal kAround = 1;
  const QSizeF size = metrics_.size(0, text) + QSizeF(2 * kAround, 0);
  for (const LabelPlace& place : places) {
    const QRectF rect = rectOf(place, size);
    if (!area_.contains(rect) || std::any_of(taken_.begin(), taken_.end(),
                                             [&](const QRectF& taken) { return taken.intersects(rect); }))
      continue;
    taken_.append(rect);
    painter_.save();
    painter_.fillRect(rect, kBehind);
    if (color.isValid()) painter_.setPen(color);
    painter_.translate(rect.center());
    if (place.isUpright) painter_.rotate(-90);
    // Fonts of a printer may be slightly wider.
    painter_.drawText(QRectF({-size.width() / 2, -size.height() / 2}, size),
                      Qt::AlignCenter | Qt::TextDontClip, text);
    painter_.restore();
    return true;
  }
  return false;
}

QString ChartLabels::shortened(const QFontMetricsF& metrics, const QString& text, qreal width) {
  constexpr char16_t kEllipsis = 0x2026;
  return metrics.elidedText(text, Qt::ElideMiddle, width).replace(QChar(kEllipsis), QStringLiteral("..."));
}

qreal ChartLabels::entryWidth(const QFontMetricsF& metrics, const QString& name, const QString& figure) {
  return kSquare + kGap + metrics.horizontalAdvance(name) +
         (figure.isEmpty() ? 0 : 2 * kGap + metrics.horizontalAdvance(figure)) + 2;
}

void ChartLabels::drawEntry(const QRectF& entry, const QColor& color, const QString& name,
                            const QString& figure) const {
  if (color.isValid())
    painter_.fillRect(QRectF(entry.left(), entry.center().y() - kSquare / 2, kSquare, kSquare), color);
  const qreal others = entryWidth(metrics_, {}, figure);
  painter_.drawText(entry.adjusted(kSquare + kGap, 0, 0, 0), Qt::AlignVCenter | Qt::TextDontClip,
                    shortened(metrics_, name, entry.width() - others));
  painter_.drawText(entry, Qt::AlignVCenter | Qt::AlignRight | Qt::TextDontClip, figure);
}

}  // namespace velmar
