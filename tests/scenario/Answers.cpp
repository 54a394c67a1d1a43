#include "Answers.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QPointer>
#include <QTimer>

#include "Input.h"

namespace velmar::scenario {

namespace {

const QString kCloseBox = QStringLiteral("Alt+F4");

struct Button {
  QString caption;
  int result;
};

// The buttons of a box from left to right.
QList<Button> buttonsOf(const Message& message) {
  static const QList<QList<Button>> sets = {
      {{"OK", kResultOk}},
      {{"OK", kResultOk}, {"Anulare", kResultCancel}},
      {{"Abandon", kResultAbort}, {"Reincearca", kResultRetry}, {"Ignora", kResultIgnore}},
      {{"Da", kResultYes}, {"Nu", kResultNo}, {"Anulare", kResultCancel}},
      {{"Da", kResultYes}, {"Nu", kResultNo}},
      {{"Reincearca", kResultRetry}, {"Anulare", kResultCancel}}};
  QList<Button> buttons = sets.value(message.buttons & 15);
  for (int i = 0; i < buttons.size() && i < message.captions.size(); ++i)
    if (!message.captions[i].isEmpty()) buttons[i].caption = message.captions[i];
  return buttons;
}

QString plain(QString caption) { return caption.remove(QChar(u'&')).trimmed(); }

QString iconOf(int buttons) {
  switch (buttons & 0x70) {
    case kCritical:
      return QStringLiteral("critical");
    case kQuestion:
      return QStringLiteral("question");
    case kExclamation:
      return QStringLiteral("exclamation");
    case kInformation:
      return QStringLiteral("information");
    default:
      return {};
  }
}

QVariantMap asMap(const Shown& shown) {
  return {{QStringLiteral("title"), shown.title},
          {QStringLiteral("text"), shown.text},
          {QStringLiteral("icon"), shown.icon},
          {QStringLiteral("buttons"), shown.buttons},
          {QStringLiteral("answered"), shown.answered}};
}

// The message box that is open, null if there is none.
QWidget* standingBox() {
  QWidget* modal = QApplication::activeModalWidget();
  return modal && modal->objectName() == QStringLiteral("frmMsgBox") && modal->isVisible() ? modal : nullptr;
}

}  // namespace

Answers::Answers(std::function<void(const QString&)> complain) : complain_(std::move(complain)) {
  qApp->installEventFilter(this);
}

void Answers::listen() {
  MessageSink* before = setMessageSink(this);
  if (before != this) program_ = before;
}

int Answers::show(const Message& message) {
  const QList<Button> buttons = buttonsOf(message);
  if (silent_ || !program_) return buttons.isEmpty() ? kResultCancel : buttons.last().result;
  auto shown = std::make_shared<Shown>();
  shown->title = message.title;
  shown->text = message.text;
  shown->icon = iconOf(message.buttons);
  for (const Button& button : buttons) shown->buttons.append(plain(button.caption));
  unread_.push_back(shown);
  lastText_ = shown->text;
  if (!answers_.empty()) {
    ++pressing_;
    QTimer::singleShot(0, this, &Answers::press);
  }
  const int result = program_->show(message);
  for (const Button& button : buttons)
    if (button.result == result) shown->answered = plain(button.caption);
  return result;
}

void Answers::press() {
  QWidget* box = standingBox();
  if (!box) {
    QTimer::singleShot(5, this, &Answers::press);
    return;
  }
  const QString answer = answers_.front();
  answers_.pop_front();
  --pressing_;
  if (answer.compare(kCloseBox, Qt::CaseInsensitive) == 0) {
    // If the box refuses to close, it remains open and the next answer in the queue is for it.
    if (!box->close() && !answers_.empty()) {
      ++pressing_;
      QTimer::singleShot(0, this, &Answers::press);
    }
    return;
  }
  const QList<QAbstractButton*> buttons = box->findChildren<QAbstractButton*>();
  for (QAbstractButton* button : buttons) {
    if (!button->isVisible() || plain(button->text()).compare(plain(answer), Qt::CaseInsensitive) != 0)
      continue;
    try {
      clickAt(button, button->rect().center());
    } catch (const Failure& failure) {
      complain_(failure.text());
    }
    return;
  }
  complain_(QStringLiteral("the message box \"%1\" has no button \"%2\"").arg(lastText_, answer));
}

bool Answers::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Show && !files_.empty() && qobject_cast<QFileDialog*>(watched)) {
    ++pressing_;
    const QPointer<QWidget> dialog = static_cast<QWidget*>(watched);
    QTimer::singleShot(0, this, [this, dialog] {
      --pressing_;
      if (dialog) serveFileDialog(dialog);
    });
  }
  return false;
}

void Answers::serveFileDialog(QWidget* dialog) {
  if (files_.empty()) return;
  const QString path = files_.front();
  files_.pop_front();
  auto* chooser = static_cast<QFileDialog*>(dialog);
  auto* name = chooser->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
  if (path.isEmpty() || !name) {
    chooser->reject();
    return;
  }
  // A proposed file is selected in the lists and would be chosen too.
  const QList<QAbstractItemView*> lists = chooser->findChildren<QAbstractItemView*>();
  for (QAbstractItemView* list : lists)
    if (list->selectionModel()) list->clearSelection();
  const QSignalBlocker quiet(name);
  name->setText(path);
  static_cast<QDialog*>(chooser)->accept();
}

QString Answers::unexpectedReport() const {
  for (const auto& shown : unread_)
    if (shown->text.startsWith(QStringLiteral("Eroare ")) &&
        shown->text.contains(QStringLiteral(" in procedura ")))
      return shown->text;
  return {};
}

QVariant Answers::expect(const QString& text, const QVariantMap& more) {
  if (unread_.empty())
    return QVariantMap{{QStringLiteral("expected"), text}, {QStringLiteral("actual"), "no message"}};
  const QVariantMap shown = asMap(*unread_.front());
  unread_.pop_front();
  if (!shown[QStringLiteral("text")].toString().contains(text))
    return QVariantMap{{QStringLiteral("expected"), text},
                       {QStringLiteral("actual"), shown[QStringLiteral("text")]}};
  for (const QString& what : {QStringLiteral("title"), QStringLiteral("icon"), QStringLiteral("buttons")}) {
    if (!more.contains(what)) continue;
    const QStringList wanted = more[what].toStringList();
    const QStringList actual = shown[what].toStringList();
    if (wanted != actual)
      return QVariantMap{{QStringLiteral("expected"), what + ": " + wanted.join(", ")},
                         {QStringLiteral("actual"), what + ": " + actual.join(", ")}};
  }
  return {};
}

void Answers::addFunctions(Functions& functions) {
  functions["answer"] = [this](const Arguments& a) {
    answers_.push_back(a[0].toString());
    return QVariant();
  };
  functions["file"] = [this](const Arguments& a) {
    files_.push_back(a[0].toString());
    return QVariant();
  };
  functions["messages"] = [this](const Arguments&) {
    QVariantList all;
    for (const auto& shown : unread_) all.append(asMap(*shown));
    unread_.clear();
    return QVariant(all);
  };
  functions["expectMessage"] = [this](const Arguments& a) {
    return expect(a[0].toString(), a.value(1).toMap());
  };
  functions["unreadMessage"] = [this](const Arguments&) {
    return unread_.empty() ? QVariant() : QVariant(unread_.front()->text);
  };
  functions["messageCount"] = [this](const Arguments&) { return int(unread_.size()); };
}

}  // namespace velmar::scenario
