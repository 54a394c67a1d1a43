// The numbers beside the axes of a curve: none covers another or a mark at the edge, and the end of each
// scale has its number.
#include <gtest/gtest.h>
#include <QPainter>

#include "reports/windows/CurvePainter.h"

namespace velmar {
namespace {

// Notes the rectangles of all texts and marks that are drawn.
class TextEngine : public QPaintEngine {
 public:
  TextEngine() : QPaintEngine(QPaintEngine::AllFeatures) {}
  bool begin(QPaintDevice* /*device*/) override { return true; }
  bool end() override { return true; }
  void updateState(const QPaintEngineState& /*state*/) override {}
  void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
  void drawPath(const QPainterPath& /*path*/) override {}
  void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
  Type type() const override { return User; }
  void drawTextItem(const QPointF& at, const QTextItem& item) override {
    texts.append({item.text(), QRectF(at.x(), at.y() - item.ascent(), item.width(), item.ascent())});
  }
  void drawEllipse(const QRectF& mark) override { texts.append({QStringLiteral("o"), mark}); }
  QList<std::pair<QString, QRectF>> texts;
};

class TextDevice : public QPaintDevice {
 public:
  QPaintEngine* paintEngine() const override { return &engine; }
  int metric(PaintDeviceMetric asked) const override {
    return asked == PdmDevicePixelRatio ? 1 : asked == PdmDevicePixelRatioScaled ? 0x10000 : 96;
  }
  mutable TextEngine engine;
};

TEST(CurvePainter, NumbersAreApartAndEndTheScale) {
  const CurveAxes tone{.leastX = 125,
                       .mostX = 8000,
                       .leastY = -10,
                       .mostY = 120,
                       .stepY = 10,
                       .doubling = true,
                       .growsDown = true};
  const CurveAxes paper{
      .leastX = 125, .mostX = 8000, .leastY = -120, .mostY = 10, .stepY = 10, .doubling = true};
  const CurveAxes speech{.leastX = 0, .mostX = 100, .stepX = 10, .leastY = 0, .mostY = 100, .stepY = 20};
  for (const auto& [axes, ends] :
       {std::pair(tone, QStringList{"120", "125", "8000"}),
        std::pair(paper, QStringList{"-120", "125", "8000"}), std::pair(speech, QStringList{"0", "100"})})
    for (const QRectF frame : {QRectF(0, 0, 230, 130), QRectF(0, 0, 640, 130), QRectF(0, 0, 400, 400)}) {
      TextDevice device;
      QPainter painter(&device);
      // Marks in all corners.
      const double top = axes.mostY, low = axes.leastY, first = axes.leastX, last = axes.mostX;
      drawCurves(painter, frame, axes,
                 {{{QPointF(first, top), QPointF(first, low), QPointF(last, top), QPointF(last, low)}}}, 1.6);
      painter.end();
      QStringList shown;
      const auto& texts = device.engine.texts;
      for (const auto& each : texts) {
        shown.append(each.first);
        EXPECT_TRUE(frame.contains(each.second)) << qUtf8Printable(each.first);
        for (const auto& other : texts)
          EXPECT_FALSE(&other != &each && other.second.intersects(each.second))
              << qUtf8Printable(each.first + " and " + other.first);
      }
      EXPECT_EQ(shown.count("o"), 4);
      for (const QString& end : ends) EXPECT_TRUE(shown.contains(end)) << qUtf8Printable(shown.join(' '));
    }
}

}  // namespace
}  // namespace velmar
