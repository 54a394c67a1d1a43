#include "hearing/windows/AudiogramView.h"

#include <QPainter>

#include "reports/windows/CurvePainter.h"
#include "util/NumberText.h"
#include "util/windows/Controls.h"

namespace velmar {

namespace {

CurveAxes axesOf(Audiogram kind) {
  if (kind == Audiogram::Speech)
    return {.leastX = 0, .mostX = 100, .stepX = 10, .leastY = 0, .mostY = 100, .stepY = 20};
  return {.leastX = 125,
          .mostX = 8000,
          .leastY = -10,
          .mostY = 120,
          .stepY = 10,
          .doubling = true,
          .growsDown = true};
}

CurveLine curveOf(Audiogram kind, const Row& row) {
  const bool isRight = row.flag("UrecheaDreapta");
  CurveLine curve{{},
                  isRight ? QColor(200, 30, 30) : QColor(30, 60, 200),
                  isRight ? CurveMark::Circle : CurveMark::Cross};
  for (const AudiogramPoint& point : audiogramPoints(kind))
    curve.points.append(row.isNull(point.column)
                            ? std::nullopt
                            : std::optional(QPointF(point.at, row.decimal(point.column).toDouble())));
  return curve;
}

}  // namespace

AudiogramView::AudiogramView(const QString& name, Audiogram kind) : kind_(kind) {
  named(this, name);
  setAccessibleName(kind == Audiogram::Tone ? QStringLiteral("Curba audiogramei tonale")
                                            : QStringLiteral("Curba audiogramei vocale"));
  showRows({});
}

QSize AudiogramView::sizeHint() const {
  return {fontMetrics().averageCharWidth() * 34, fontMetrics().height() * 10};
}

void AudiogramView::showRows(const Recordset& rows) {
  rows_ = rows;
  setAccessibleDescription(audiogramText(kind_, rows_));
  setToolTip(QStringLiteral("Rosu, cercuri: urechea dreapta. Albastru, cruci: urechea stanga."));
  update();
}

void AudiogramView::paintEvent(QPaintEvent* /*event*/) {
  constexpr double kPen = 1.6;
  QPainter painter(this);
  QFont small = font();
  small.setPointSizeF(small.pointSizeF() * 0.85);
  painter.setFont(small);
  painter.fillRect(rect(), palette().base());
  painter.setPen(palette().color(QPalette::Text));
  QList<CurveLine> curves;
  for (const Row& row : rows_) curves.append(curveOf(kind_, row));
  drawCurves(painter, rect(), axesOf(kind_), curves, kPen);
}

QString audiogramText(Audiogram kind, const Recordset& rows) {
  QStringList ears;
  for (const Row& row : rows) {
    QStringList values;
    for (const AudiogramPoint& point : audiogramPoints(kind)) {
      const QString value = row.isNull(point.column) ? QStringLiteral("lipsa")
                                                     : editNumber(row.decimal(point.column)) +
                                                           (kind == Audiogram::Tone ? " dB" : "%");
      values.append(
          QStringLiteral("%1 %2 %3").arg(point.at).arg(kind == Audiogram::Tone ? "Hz" : "dB", value));
    }
    ears.append(
        QStringLiteral("Urechea %1: %2")
            .arg(row.flag("UrecheaDreapta") ? "dreapta" : "stanga", values.join(QStringLiteral(", "))));
  }
  return ears.join(QStringLiteral(". "));
}

}  // namespace velmar
