// The one way a message reaches the user. The core asks through MessageSink; the windows draw frmMsgBox,
// tests listen and answer.
#pragma once

#include <QString>
#include <QStringList>

namespace velmar {

/// The "buttons" argument of Mesaj is the sum of a button set, an icon and a default button.
enum MessageButtons {
  kOk = 0,
  kOkCancel = 1,
  kAbortRetryIgnore = 2,
  kYesNoCancel = 3,
  kYesNo = 4,
  kRetryCancel = 5,
  kCritical = 16,
  kQuestion = 32,
  kExclamation = 48,
  kInformation = 64,
  kSecondDefault = 256,
  kThirdDefault = 512,
  kFourthDefault = 768
};

enum MessageResult {
  kResultOk = 1,
  kResultCancel = 2,
  kResultAbort = 3,
  kResultRetry = 4,
  kResultIgnore = 5,
  kResultYes = 6,
  kResultNo = 7
};

struct Message {
  QString text;  ///< line breaks are CR LF
  int buttons = kOk;
  QString title;         ///< never empty once it reaches a sink
  QStringList captions;  ///< replacements for the buttons' captions, in order; empty keeps the default
};

/// Shows messages and gives the number of the button pressed.
class MessageSink {
 public:
  virtual ~MessageSink() = default;
  virtual int show(const Message& message) = 0;
};

/// Makes `sink` the receiver of all messages and gives the one before it; null means that nobody listens, and
/// then Mesaj throws std::logic_error.
MessageSink* setMessageSink(MessageSink* sink);

/// Shows a message and gives the number of the button pressed (MessageResult). An empty title is "Velmar".
int Mesaj(const QString& text, int buttons = kOk, const QString& title = {}, int context = 0,
          const QString& caption1 = {}, const QString& caption2 = {}, const QString& caption3 = {},
          const QString& caption4 = {});

}  // namespace velmar
