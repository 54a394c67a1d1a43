#include "util/windows/Look.h"

#include <QApplication>
#include <QBuffer>
#include <QFile>
#include <QHash>
#include <QImageReader>
#include <QPalette>
#include <QPixmap>
#include <QStyleFactory>
#include <QToolTip>

#include "util/windows/ToolkitTexts.h"

// Outside the namespace, because the resource's own function is.
static void loadIcons() { Q_INIT_RESOURCE(icons); }

namespace velmar {

namespace {

const QColor kAccent(0x1f, 0x5f, 0xa8);

QIcon drawIcon(const QString& name) {
  loadIcons();
  QFile file(QStringLiteral(":/icons/%1.svg").arg(name));
  if (!file.open(QIODevice::ReadOnly)) return {};
  QByteArray drawing = file.readAll();
  drawing.replace("currentColor", QApplication::palette().color(QPalette::ButtonText).name().toLatin1());
  QIcon drawn;
  for (const int size : {16, 20, 24, 32, 48, 64}) {
    QBuffer buffer(&drawing);
    QImageReader reader(&buffer, "svg");
    reader.setScaledSize({size, size});
    drawn.addPixmap(QPixmap::fromImageReader(&reader));
  }
  return drawn;
}

}  // namespace

void applyLook(QApplication& application) {
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  QPalette palette = QApplication::palette();
  palette.setColor(QPalette::Highlight, kAccent);
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, kAccent);
  QApplication::setPalette(palette);
  application.setWindowIcon(icon(QStringLiteral("app")));
  QApplication::installTranslator(new ToolkitTexts(&application));
}

QColor gCuloareInfo() { return QToolTip::palette().color(QPalette::Inactive, QPalette::ToolTipBase); }

QColor gCuloareInfoText() { return QToolTip::palette().color(QPalette::Inactive, QPalette::ToolTipText); }

QIcon icon(const QString& name) {
  static QHash<QString, QIcon> drawn;
  auto found = drawn.find(name);
  if (found == drawn.end()) found = drawn.insert(name, drawIcon(name));
  return *found;
}

}  // namespace velmar
