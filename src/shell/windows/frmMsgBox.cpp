#include "shell/windows/frmMsgBox.h"

#include <algorithm>
#include <QApplication>
#include <QBitmap>
#include <QBoxLayout>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>

#include "shell/ApplicationFolder.h"
#include "util/Settings.h"

namespace velmar {

namespace {

constexpr int kMargin = 200 / settings::kTwipsPerPixel;
constexpr int kButtonGap = 100 / settings::kTwipsPerPixel;
constexpr int kIconSize = 32;
constexpr int kButtonPicture = 16;
constexpr int kLineLength = 80;  // characters, where long texts wrap

struct ButtonFacts {
  const char* caption;
  int result;
  bool leaves;  // shows the picture of leaving instead of the tick
};

constexpr ButtonFacts kOkButton{"OK", kResultOk, false};
constexpr ButtonFacts kCancelButton{"Anulare", kResultCancel, true};
constexpr ButtonFacts kRetryButton{"Reincearca", kResultRetry, false};
constexpr ButtonFacts kYesButton{"Da", kResultYes, false};
constexpr ButtonFacts kNoButton{"Nu", kResultNo, true};

std::vector<ButtonFacts> buttonSet(int set) {
  switch (set) {
    case kOkCancel:
      return {kOkButton, kCancelButton};
    case kAbortRetryIgnore:
      return {{"Abandon", kResultAbort, true}, kRetryButton, {"Ignora", kResultIgnore, false}};
    case kYesNoCancel:
      return {kYesButton, kNoButton, kCancelButton};
    case kYesNo:
      return {kYesButton, kNoButton};
    case kRetryCancel:
      return {kRetryButton, kCancelButton};
    default:
      return {kOkButton};
  }
}

QString iconFile(int buttons) {
  switch (buttons & 0xF0) {
    case kCritical:
      return QStringLiteral("W95MBX01.ico");
    case kQuestion:
      return QStringLiteral("W95MBX02.ico");
    case kExclamation:
      return QStringLiteral("W95MBX03.ico");
    case kInformation:
      return QStringLiteral("W95MBX04.ico");
    default:
      return {};
  }
}

// In a picture without an alpha channel, magenta is the transparent colour.
QIcon buttonPicture(const QString& name) {
  const QImage image(picturePath(name));
  QPixmap picture = QPixmap::fromImage(image);
  if (!image.isNull() && !image.hasAlphaChannel())
    picture.setMask(QBitmap::fromImage(image.createMaskFromColor(QColor(Qt::magenta).rgb())));
  return picture;
}

}  // namespace

frmMsgBox::frmMsgBox(const Message& message, QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("frmMsgBox"));
  setWindowTitle(message.title);
  auto* content = new QHBoxLayout;
  content->setSpacing(kMargin);
  auto* picture = new QLabel;
  picture->setObjectName(QStringLiteral("imgMsg"));
  content->addWidget(picture, 0, Qt::AlignTop);
  const QString file = iconFile(message.buttons);
  picture->setVisible(!file.isEmpty());
  if (!file.isEmpty())
    picture->setPixmap(QIcon(picturePath(file)).pixmap(QSize(kIconSize, kIconSize), devicePixelRatioF()));
  content->addWidget(textArea(message.text), 0, Qt::AlignLeft | Qt::AlignVCenter);
  content->addStretch();

  auto* row = new QHBoxLayout;
  row->setSpacing(kButtonGap);
  addButtons(message, row);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  all->setSpacing(kMargin);
  all->addLayout(content);
  all->addLayout(row);
  all->setSizeConstraint(QLayout::SetFixedSize);
  // Only now: a button outside the box can neither be its default nor take its focus.
  QPushButton* first = cmdBtn_[std::min<size_t>((message.buttons >> 8) & 3, cmdBtn_.size() - 1)];
  first->setDefault(true);
  first->setFocus();
}

QWidget* frmMsgBox::textArea(const QString& text) {
  auto* label = new QLabel;
  label->setObjectName(QStringLiteral("lblMsg"));
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  label->setWordWrap(true);
  label->setText(QString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));

  const QRect screen = QApplication::primaryScreen()->availableGeometry();
  const QFontMetrics metrics = label->fontMetrics();
  const int wrapAt = std::min(metrics.averageCharWidth() * kLineLength, screen.width() * 6 / 10);
  const QRect needed = metrics.boundingRect(QRect(0, 0, wrapAt, QWIDGETSIZE_MAX),
                                            Qt::TextWordWrap | Qt::TextExpandTabs, label->text());
  const int width = needed.width() + metrics.averageCharWidth();
  label->setFixedSize(width, std::max(label->heightForWidth(width), metrics.height()));

  auto* area = new QScrollArea;
  area->setFrameShape(QFrame::NoFrame);
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidget(label);
  QSize shown(std::min(label->width(), screen.width() * 7 / 10),
              std::min(label->height(), screen.height() * 6 / 10));
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  const bool tall = shown.height() < label->height();
  const bool wide = shown.width() < label->width();
  if (tall) shown.rwidth() += bar;
  if (wide) shown.rheight() += bar;
  area->setHorizontalScrollBarPolicy(wide ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
  area->setVerticalScrollBarPolicy(tall ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
  area->setFixedSize(shown);
  return area;
}

void frmMsgBox::addButtons(const Message& message, QHBoxLayout* row) {
  const std::vector<ButtonFacts> facts = buttonSet(message.buttons & 0xF);
  row->addStretch();
  int width = 0;
  for (size_t i = 0; i < facts.size(); ++i) {
    const QString given = message.captions.value(static_cast<int>(i));
    auto* button = new QPushButton(given.isEmpty() ? QString::fromLatin1(facts[i].caption) : given);
    button->setObjectName(QStringLiteral("cmdBtn(%1)").arg(i));
    button->setIcon(buttonPicture(facts[i].leaves ? QStringLiteral("Iesire.bmp") : QStringLiteral("OK.bmp")));
    button->setIconSize({kButtonPicture, kButtonPicture});
    button->setShortcut(QKeySequence(QStringLiteral("Alt+") + button->text().left(1).toUpper()));
    connect(button, &QPushButton::clicked, this, [this, result = facts[i].result] {
      result_ = result;
      accept();
    });
    hasCancel_ = hasCancel_ || facts[i].result == kResultCancel;
    row->addWidget(button);
    cmdBtn_.push_back(button);
    width = std::max(width, button->sizeHint().width());
  }
  row->addStretch();
  for (QPushButton* button : cmdBtn_) button->setMinimumWidth(width);
}

int frmMsgBox::ask() {
  exec();
  return result_;
}

void frmMsgBox::reject() {
  if (!hasCancel_) return;
  result_ = kResultCancel;
  QDialog::reject();
}

void frmMsgBox::closeEvent(QCloseEvent* event) {
  if (result_ == 0 && !hasCancel_) {
    event->ignore();
    return;
  }
  QDialog::closeEvent(event);
}

void frmMsgBox::keyPressEvent(QKeyEvent* event) {
  const QString letter = event->text().toUpper();
  if (letter.size() == 1 && letter.front().isLetter() &&
      (event->modifiers() & ~Qt::ShiftModifier) == Qt::NoModifier)
    for (QPushButton* button : cmdBtn_)
      if (button->text().startsWith(letter, Qt::CaseInsensitive)) return button->click();
  QDialog::keyPressEvent(event);
}

int WindowMessages::show(const Message& message) {
  QWidget* owner = QApplication::activeModalWidget();
  if (!owner) owner = QApplication::activeWindow();
  // The hourglass of a long operation must not lie over the buttons.
  const bool waiting = QApplication::overrideCursor() != nullptr;
  if (waiting) QApplication::setOverrideCursor(Qt::ArrowCursor);
  frmMsgBox box(message, owner);
  const int result = box.ask();
  if (waiting) QApplication::restoreOverrideCursor();
  return result;
}

}  // namespace velmar
