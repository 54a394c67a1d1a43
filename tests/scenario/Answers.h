// The message boxes and file dialogs of a scenario: answers them as the script has said beforehand, and keeps
// what they showed.
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
  QString answered;  ///< caption of the button pressed, empty while the box stands
};

/// Stands between the program and its own message boxes, which it lets the program draw.
class Answers : public QObject, public MessageSink {
 public:
  /// Tells of an answer that fits no button.
  explicit Answers(std::function<void(const QString&)> complain);
  ~Answers() override { setMessageSink(nullptr); }

  /// Steps in front of the program's own sink.
  void listen();
  int show(const Message& message) override;

  /// Whether no answer is on its way to its box.
  bool settled() const { return pressing_ == 0; }
  /// Silent, no box is drawn and none is kept; each gives what its last button would.
  void setSilent(bool silent) { silent_ = silent; }
  /// The first message nobody has read that reports an error of the program; empty when there is none.
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
