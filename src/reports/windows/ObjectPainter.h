// Draws the parts of a layout, for paper, preview and designer. Frames are in twips, the unit of the pages.
#pragma once

#include <optional>
#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QRectF>

#include "reports/Layout.h"
#include "util/windows/PrintJob.h"

namespace velmar::layout {

/// Converts millimetres to twips.
inline qreal toTwips(double millimetres) { return millimetres * kTwipsPerMillimetre; }
QRectF toTwips(const QRectF& millimetres);

QFont fontOf(const Font& font);

/// Draws a text in its frame. A text that is too wide is condensed, a wrapped text that is too high is drawn
/// in a smaller font; if it still does not fit it ends with dots, unless it is a number.
void drawText(QPainter& painter, const QRectF& frame, const QString& text, const TextStyle& style);

void drawLine(QPainter& painter, const QRectF& frame, const Line& line);
void drawBox(QPainter& painter, const QRectF& frame, const Box& box);
/// Draws nothing if the picture could not be loaded.
void drawPicture(QPainter& painter, const QRectF& frame, const QImage& image, bool keepsRatio);
/// Draws nothing if the text cannot be encoded.
void drawBarCode(QPainter& painter, const QRectF& frame, const BarCode& code, const QString& text);

/// Draws the axes and the curve with these values.
void drawCurve(QPainter& painter, const QRectF& frame, const Curve& curve,
               const QList<std::optional<QPointF>>& points);

/// The height of a row with these texts in its cells: its minimum, or the height of its wrapped texts.
qreal rowHeight(const TableRow& row, const QStringList& texts);
qreal rowWidth(const TableRow& row);

/// Draws the row's fills, texts and borders. Lines of a text that do not fit into the height are omitted.
void drawRow(QPainter& painter, const QRectF& frame, const TableRow& row, const QStringList& texts,
             const Table& table);
/// Draws the side borders of the row's cells over the frame's height.
void drawSides(QPainter& painter, const QRectF& frame, const TableRow& row, const Table& table);

}  // namespace velmar::layout
