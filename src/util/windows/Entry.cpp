#include "util/windows/Entry.h"

#include <QKeyEvent>
#include <QLineEdit>

#include "util/windows/Look.h"

namespace velmar {

namespace {

class EnterMovesOn : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
    QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
    QCoreApplication::sendEvent(watched, &tab);
    return true;
  }
};

}  // namespace

void moveOnWithEnter(QWidget* widget) { widget->installEventFilter(new EnterMovesOn(widget)); }

void markLocked(QLineEdit* box, bool locked) {
  QPalette palette = box->parentWidget()->palette();
  if (locked) {
    palette.setColor(QPalette::Base, gCuloareInfo());
    palette.setColor(QPalette::Text, gCuloareInfoText());
  }
  box->setPalette(palette);
}

}  // namespace velmar
