// Writes the texts of a chart: none lies over another one or is cut at an edge.
#pragma once

#include <QColor>
#include <QFontMetricsF>
#include <QList>
#include <QRectF>

class QPainter;

namespace velmar {

/// Where a text may be: beside a point.
struct LabelPlace {
  QPointF point;
  Qt::Alignment side = Qt::AlignCenter;  ///< AlignTop: above the point; AlignLeft: left of it
  bool isUpright = false;                ///< written from the bottom to the top
};

class ChartLabels {
 public:
  /// Texts are kept inside `area`.
  ChartLabels(QPainter& painter, const QRectF& area, const QFont& like);

  void keepInside(const QRectF& area) { area_ = area; }
  /// Draws the text, of one or more lines, at the first place that is free; an invalid colour: of all texts.
  /// False: nowhere.
  bool place(const QString& text, const QList<LabelPlace>& places, const QColor& color = {});
  /// An entry of a legend: a square of the colour, the name shortened to what is left of the width, the
  /// figure at the right.
  void drawEntry(const QRectF& entry, const QColor& color, const QString& name, const QString& figure) const;

  /// The font of all texts. Its size is in pixels: the device that it is drawn on does not change the layout.
  static QFont font(const QFont& like);
  /// The text with dots in its middle where it is too wide.
  static QString shortened(const QFontMetricsF& metrics, const QString& text, qreal width);
  /// The width of an entry with nothing shortened.
  static qreal entryWidth(const QFontMetricsF& metrics, const QString& name, const QString& figure);

 private:
  QPainter& painter_;
  QRectF area_;
  QFontMetricsF metrics_;
  QList<QRectF> taken_;
};

}  // namespace velmar
