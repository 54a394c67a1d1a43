#include "util/windows/Controls.h"

#include <QFocusEvent>
#include <QHelpEvent>
#include <QPainter>
#include <QPushButton>
#include <QTabWidget>
#include <QTextDocument>
#include <QToolTip>

#include "util/Errors.h"
#include "util/Messages.h"
#include "util/NumberText.h"
#include "util/windows/Look.h"

namespace velmar {

namespace {

constexpr int kWidestBox = 50;  // characters

// The tab of the box may not be the current one.
void bringTabOf(QWidget* box) {
  for (QWidget* page = box; page->parentWidget(); page = page->parentWidget()) {
    auto* tabs = qobject_cast<QTabWidget*>(page->parentWidget()->parentWidget());
    if (tabs && tabs->isVisible() && tabs->indexOf(page) >= 0) return tabs->setCurrentWidget(page);
  }
}

// Checks one box when it is left.
class EntryCheck : public QObject {
 public:
  EntryCheck(QWidget* box, Objection objection, int icon, const QString& title, std::function<void()> refused)
      : QObject(box),
        box_(box),
        objection_(std::move(objection)),
        icon_(icon),
        title_(title),
        refused_(std::move(refused)) {
    box->installEventFilter(this);
  }

  /// Whether the box is accepted; shows what is wrong when it is not.
  bool passes() {
    if (waiting_) return false;
    // While a message box is in front, the box that was being typed into has no focus.
    if (box_->window()->focusWidget() != box_ || objection_().isEmpty()) return true;
    showMessage();
    return false;
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::FocusOut && !waiting_) {
      const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
      const bool left = reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason;
      if (left && !objection_().isEmpty()) {
        // Shown after the event that moved the focus; the command of that event must not run first.
        waiting_ = true;
        QMetaObject::invokeMethod(
            this, [this] { showMessage(); }, Qt::QueuedConnection);
      }
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  void showMessage() {
    waiting_ = true;
    const QString text = objection_();
    if (!text.isEmpty()) bringTabOf(box_);
    // No message for a box of a form that is being closed or hidden.
    if (box_->isVisible() && !text.isEmpty()) {
      Mesaj(text, icon_, title_);
      if (refused_) refused_();
      box_->setFocus();
      if (auto* line = qobject_cast<QLineEdit*>(box_)) line->selectAll();
    }
    waiting_ = false;
  }

  QWidget* box_;
  Objection objection_;
  int icon_;
  QString title_;
  std::function<void()> refused_;
  bool waiting_ = false;
};

}  // namespace

QPushButton* makeButton(const QString& name, const QString& caption, const QString& toolTip,
                        const QString& picture) {
  auto* button = named(new QPushButton(caption), name, toolTip);
  if (!picture.isEmpty()) button->setIcon(icon(picture));
  button->setAutoDefault(false);
  return button;
}

QLineEdit* makeTextBox(const QString& name, int width, const QString& toolTip, KeyFilter::Options keys) {
  auto* box = named(new QLineEdit, name, toolTip);
  if (width > 0) {
    box->setMaxLength(width);
    box->setMaximumWidth(box->fontMetrics().averageCharWidth() * (std::min(width, kWidestBox) + 4));
  }
  KeyFilter::install(box, keys);
  return box;
}

void fitCapitals(QLineEdit* box) {
  box->setMaximumWidth(box->fontMetrics().horizontalAdvance(QLatin1Char('N')) * (box->maxLength() + 2));
}

QString plainToolTip(const QString& text) {
  return Qt::mightBeRichText(text) ? QStringLiteral("<qt>%1</qt>").arg(text.toHtmlEscaped()) : text;
}

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

bool ElidedLabel::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip || fontMetrics().horizontalAdvance(text()) <= contentsRect().width())
    return QLabel::event(event);
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), plainToolTip(text()), this);
  return true;
}

void ElidedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QRect room = contentsRect();
  painter.drawText(room, static_cast<int>(alignment()) | Qt::TextSingleLine,
                   fontMetrics().elidedText(text(), Qt::ElideRight, room.width()));
}

NumberBox::NumberBox(int decimals, QWidget* parent) : QLineEdit(parent), decimals_(decimals) {
  setAlignment(Qt::AlignRight);
  connect(this, &QLineEdit::textEdited, this, [this](const QString& text) { typed_ = text; });
}

void NumberBox::setNumber(const std::optional<Decimal>& number) {
  setTyped(number ? editNumber(*number) : QString());
}

std::optional<Decimal> NumberBox::number() const { return parseNumber(typed_); }

void NumberBox::setTyped(const QString& text) {
  typed_ = text;
  showText();
}

void NumberBox::showText() {
  const auto value = number();
  setText(value && decimals_ >= 0 && !hasFocus() ? formatNumber(*value, decimals_) : typed_);
}

void NumberBox::focusInEvent(QFocusEvent* event) {
  showText();
  QLineEdit::focusInEvent(event);
}

void NumberBox::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  showText();
}

void checkWhenLeft(QWidget* box, Objection objection, int icon, const QString& title,
                   std::function<void()> refused) {
  new EntryCheck(box, std::move(objection), icon, title, std::move(refused));
}

bool entriesAccepted(QWidget* form) {
  for (QObject* child : form->findChildren<QObject*>())
    if (auto* check = dynamic_cast<EntryCheck*>(child); check && !check->passes()) return false;
  return true;
}

void requireNumberWhenLeft(NumberBox* box, const QString& text, int icon, const QString& title,
                           std::function<void()> refused) {
  checkWhenLeft(
      box, [box, text] { return box->typed().trimmed().isEmpty() || box->number() ? QString() : text; }, icon,
      title, std::move(refused));
}

QPushButton* makeCommand(QWidget* form, const QString& name, const QString& caption, const QString& toolTip,
                         const QString& picture, std::function<void()> work) {
  QPushButton* button = makeButton(name, caption, toolTip, picture);
  button->setAutoDefault(false);
  QObject::connect(button, &QPushButton::clicked, form, [form, name, work = std::move(work)] {
    guarded(form->objectName(), name + QStringLiteral("_Click"), [form, &work] {
      if (entriesAccepted(form)) work();
    });
  });
  return button;
}

}  // namespace velmar
