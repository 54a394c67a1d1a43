#include "shell/windows/Application.h"

#include "util/Errors.h"

namespace velmar {

bool Application::notify(QObject* receiver, QEvent* event) {
  try {
    return QApplication::notify(receiver, event);
  } catch (...) {
    if (reporting_) return false;
    reporting_ = true;
    const QString place = receiver->objectName().isEmpty()
                              ? QString::fromLatin1(receiver->metaObject()->className())
                              : receiver->objectName();
    guarded(place, QStringLiteral("notify"), [] { throw; });
    reporting_ = false;
    return false;
  }
}

}  // namespace velmar
