#include "shell/windows/frmSplash.h"

#include <QPainter>
#include <QScreen>

#include "util/windows/Look.h"

namespace velmar {

namespace {
const QColor kTop(0x1b, 0x53, 0x96);
const QColor kBottom(0x12, 0x36, 0x63);
const QColor kPale(0xb9, 0xd2, 0xee);
}  // namespace

frmSplash::frmSplash() : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint) {
  setObjectName(QStringLiteral("frmSplash"));
  setCursor(Qt::BusyCursor);
  const int unit = fontMetrics().height();
  setFixedSize(unit * 28, unit * 15);
  move(screen()->availableGeometry().center() - rect().center());
}

void frmSplash::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QLinearGradient ground(0, 0, width(), height());
  ground.setColorAt(0, kTop);
  ground.setColorAt(1, kBottom);
  painter.fillRect(rect(), ground);

  const int unit = fontMetrics().height();
  icon(QStringLiteral("app")).paint(&painter, QRect(2 * unit, 4 * unit, 5 * unit, 5 * unit));
  QFont title = font();
  title.setPointSizeF(font().pointSizeF() * 3);
  title.setBold(true);
  painter.setFont(title);
  painter.setPen(Qt::white);
  const int left = 8 * unit;
  painter.drawText(QRect(left, 3 * unit, width() - left, 4 * unit), Qt::AlignLeft | Qt::AlignBottom,
                   QStringLiteral("Velmar"));
  QFont subtitle = font();
  subtitle.setPointSizeF(font().pointSizeF() * 1.25);
  painter.setFont(subtitle);
  painter.setPen(kPale);
  painter.drawText(QRect(left, 7 * unit, width() - left, 3 * unit), Qt::AlignLeft | Qt::AlignTop,
                   QStringLiteral("Program de Gestiune Comerciala"));
  painter.setFont(font());
  painter.drawText(rect().adjusted(unit, unit, -unit, -unit), Qt::AlignRight | Qt::AlignBottom,
                   QStringLiteral("Versiune " VELMAR_VERSION));
}

}  // namespace velmar
