// The message boxes and file dialogs of a scenario: answers them as the script has specified in advance, and
// records what they showed.
#pragma once

#include <deque>
#include <memory>
#include <QStringList>

#include "Functions.h"
#include "util/Messages.h"

namespace velmar::scenario {

/// One message box as it was shown.
struct Shown {
  QString title, text, icon;
  QStringList buttons;
  QString answered;  ///< caption of the button pressed, empty while the box is open
};

/// Receives the program's messages and forwards them, so that the program shows its own message boxes.
class Answers : public QObject, public MessageSink {
 public:
  /// `complain` is called with an answer that matches no button.
  explicit Answers(std::function<void(const QString&)> complain);
  ~Answers() override { setMessageSink(nullptr); }

  /// Replaces the program's message sink and forwards to it.
  void listen();
  int show(const Message& message) override;

  /// Whether no answer is being sent to a box.
  bool settled() const { return pressing_ == 0; }
  /// When silent, no box is shown or recorded; each message returns the result of its last button.
  void setSilent(bool silent) { silent_ = silent; }
  /// The first unread message that reports an error of the program; empty if there is none.
  QString unexpectedReport() const;
  /// Text of the box that was shown last.
  const QString& lastText() const { return lastText_; }

  void addFunctions(Functions& functions);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void press();
  void serveFileDialog(QWidget* dialog);
  QVariant expect(const QString& text, const QVariantMap& more);

  std::function<void(const QString&)> complain_;
  MessageSink* program_ = nullptr;
  std::deque<QString> answers_;
  std::deque<QString> files_;
  std::deque<std::shared_ptr<Shown>> unread_;
  QString lastText_;
  int pressing_ = 0;
  bool silent_ = false;
};

}  // namespace velmar::scenario
