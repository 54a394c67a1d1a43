#include "util/windows/KeyFilter.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLineEdit>

#include "util/PlainText.h"

namespace velmar {

namespace {

// Turns letters into upper case on their way from the keyboard. The box of a combo gets its keys through the
// combo, which is where they are met then.
class UpperCaseKeys : public QObject {
 public:
  explicit UpperCaseKeys(QLineEdit* box) : QObject(box), box_(box) {
    QObject* receiver = box->focusProxy() ? static_cast<QObject*>(box->focusProxy()) : box;
    receiver->installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::KeyPress || box_->isReadOnly()) return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->matches(QKeySequence::Paste)) {
      box_->insert(QApplication::clipboard()->text().toUpper());
      return true;
    }
    const QString upper = key->text().toUpper();
    if (upper == key->text()) return false;
    QKeyEvent typed(QEvent::KeyPress, key->key(), key->modifiers(), upper, key->isAutoRepeat());
    QCoreApplication::sendEvent(watched, &typed);
    return true;
  }

 private:
  QLineEdit* box_;
};

void keepOneLine(QLineEdit* box) {
  QObject::connect(box, &QLineEdit::textEdited, box, [box](const QString& text) {
    const QString line = oneLine(text);
    if (line == text) return;
    const auto cursor = oneLine(text.left(box->cursorPosition())).size();
    box->setText(line);
    box->setModified(true);
    box->setCursorPosition(static_cast<int>(cursor));
  });
}

}  // namespace

void KeyFilter::install(QLineEdit* box, Options options) {
  keepOneLine(box);
  if (options & (NoQuote | NoBlank)) box->setValidator(new KeyFilter(options, box));
  if (options.testFlag(UpperCase)) new UpperCaseKeys(box);
}

void KeyFilter::showUnfiltered(QLineEdit* box, const QString& text) {
  const QValidator* filter = box->validator();
  box->setValidator(nullptr);
  box->setText(text);
  box->setValidator(filter);
}

QValidator::State KeyFilter::validate(QString& input, int& position) const {
  QString kept;
  int keptPosition = position;
  for (int i = 0; i < input.size(); ++i) {
    const QChar c = input[i];
    const bool swallowed =
        (options_.testFlag(NoQuote) && c == QLatin1Char('\'')) || (options_.testFlag(NoBlank) && c.isSpace());
    if (!swallowed)
      kept.append(c);
    else if (i < position)
      --keptPosition;
  }
  input = kept;
  position = keptPosition;
  return Acceptable;
}

}  // namespace velmar
