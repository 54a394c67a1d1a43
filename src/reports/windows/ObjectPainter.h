// How the parts of a layout look: paper, preview and designer draw through here. Frames are in twips, the
// unit of the pages.
#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QRectF>

#include "reports/Layout.h"
#include "util/windows/PrintJob.h"

namespace velmar::layout {

/// Twips of millimetres.
inline qreal toTwips(double millimetres) { return millimetres * kTwipsPerMillimetre; }
QRectF toTwips(const QRectF& millimetres);

QFont fontOf(const Font& font);

/// A text in its frame. One that is too wide is written narrower, a wrapped one that is too high in smaller
/// letters; what still does not fit ends in dots, unless it is a number.
void drawText(QPainter& painter, const QRectF& frame, const QString& text, const TextStyle& style);

void drawLine(QPainter& painter, const QRectF& frame, const Line& line);
void drawBox(QPainter& painter, const QRectF& frame, const Box& box);
/// Nothing is drawn of a picture that could not be loaded.
void drawPicture(QPainter& painter, const QRectF& frame, const QImage& image, bool keepsRatio);
/// Nothing is drawn of a text that the code cannot say.
void drawBarCode(QPainter& painter, const QRectF& frame, const BarCode& code, const QString& text);

/// The height of a row with these texts in its cells: what it is told, or what its wrapped texts need.
qreal rowHeight(const TableRow& row, const QStringList& texts);
qreal rowWidth(const TableRow& row);

/// The row's fills, texts and borders. Lines of a text for which the frame is too low are left out.
void drawRow(QPainter& painter, const QRectF& frame, const TableRow& row, const QStringList& texts,
             const Table& table);
/// The borders at the sides of the row's cells, over the frame's height.
void drawSides(QPainter& painter, const QRectF& frame, const TableRow& row, const Table& table);

}  // namespace velmar::layout
