#include "util/windows/Entry.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSet>

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

// Societate, Afisare, Cumparari, Vanzari, Rapoarte, Intretinere, Ferestre, Help.
const QString kMenuLetters = QStringLiteral("SACVRIFH");

// The text with "&" before a letter that is not in `taken`, which grows by it; without one when none is free.
QString withMnemonic(const QString& text, QSet<QChar>& taken) {
  QString plain = text;
  const auto asked = plain.indexOf(QLatin1Char('&'));
  plain.remove(QLatin1Char('&'));
  for (qsizetype i = -1; i < plain.size(); ++i) {
    const qsizetype at = i < 0 ? asked : i;
    if (at < 0 || at >= plain.size()) continue;
    const QChar letter = plain[at].toUpper();
    if (!letter.isLetter() || taken.contains(letter)) continue;
    taken.insert(letter);
    return plain.insert(at, QLatin1Char('&'));
  }
  return plain;
}

}  // namespace

void moveOnWithEnter(QWidget* widget) { widget->installEventFilter(new EnterMovesOn(widget)); }

void giveMnemonics(QWidget* form) {
  QSet<QChar> taken(kMenuLetters.cbegin(), kMenuLetters.cend());
  for (auto* button : form->findChildren<QAbstractButton*>())
    if (!button->text().isEmpty() && button->window() == form->window())
      button->setText(withMnemonic(button->text(), taken));
  for (auto* label : form->findChildren<QLabel*>())
    if (label->buddy() && label->buddy()->focusPolicy() != Qt::NoFocus)
      label->setText(withMnemonic(label->text(), taken));
}

void markLocked(QLineEdit* box, bool locked) {
  QPalette palette = box->parentWidget()->palette();
  if (locked) {
    palette.setColor(QPalette::Base, gCuloareInfo());
    palette.setColor(QPalette::Text, gCuloareInfoText());
  }
  box->setPalette(palette);
}

void lockBox(QLineEdit* box) {
  box->setReadOnly(true);
  box->setFocusPolicy(Qt::NoFocus);
  QPalette palette = box->palette();
  palette.setColor(QPalette::Base, gCuloareInfo());
  palette.setColor(QPalette::Text, gCuloareInfoText());
  box->setPalette(palette);
}

}  // namespace velmar
