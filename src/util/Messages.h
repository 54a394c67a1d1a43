// Messages to the user. The core shows them through MessageSink; the windows implement it with frmMsgBox,
// tests record the messages and answer them.
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
  QString title;         ///< never empty when it reaches a sink
  QStringList captions;  ///< replacements for the buttons' captions, in order; empty keeps the default
};

/// Shows messages and returns the number of the button pressed.
class MessageSink {
 public:
  virtual ~MessageSink() = default;
  virtual int show(const Message& message) = 0;
};

/// Makes `sink` the receiver of all messages; returns the previous one. With null, Mesaj throws
/// std::logic_error.
MessageSink* setMessageSink(MessageSink* sink);

/// Shows a message and returns the number of the button pressed (MessageResult). An empty title is replaced
/// by "Velmar".
int Mesaj(const QString& text, int buttons = kOk, const QString& title = {}, int context = 0,
          const QString& caption1 = {}, const QString& caption2 = {}, const QString& caption3 = {},
          const QString& caption4 = {});

}  // namespace velmar
