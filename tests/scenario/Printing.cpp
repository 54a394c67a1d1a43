#include "Printing.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include "Input.h"
#include "util/windows/PrintOutput.h"

namespace velmar::scenario {

Printing::Printing(const QString& out) : out_(out) {
  setPrintFolder(out);
  qApp->installEventFilter(this);
}

bool Printing::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Show || keepsWindows_ || !watched->isWidgetType()) return false;
  const QString name = watched->objectName();
  const bool options = name == QStringLiteral("frmOptiuniTiparire");
  if (!options && name != QStringLiteral("frmPrevizualizare")) return false;
  ++serving_;
  const QPointer<QWidget> window = static_cast<QWidget*>(watched);
  QTimer::singleShot(0, this, [this, window, options] {
    --serving_;
    if (!window) return;
    auto* button =
        window->findChild<QAbstractButton*>(options ? QStringLiteral("cmdOK") : QStringLiteral("cmdInchide"));
    if (button) button->click();
  });
  return false;
}

QVariant Printing::printed() {
  QStringList paths;
  const QDir folder(out_);
  const QFileInfoList files =
      folder.entryInfoList({QStringLiteral("*.pdf")}, QDir::Files, QDir::Time | QDir::Reversed);
  for (const QFileInfo& file : files)
    if (!reported_.contains(file.fileName())) {
      reported_.insert(file.fileName());
      paths.append(file.absoluteFilePath());
    }
  return paths;
}

void Printing::addFunctions(Functions& functions) {
  functions["printed"] = [this](const Arguments&) { return printed(); };
  functions["keepPreview"] = [this](const Arguments& a) {
    keepsWindows_ = a.value(0).toBool();
    return QVariant();
  };
}

}  // namespace velmar::scenario
