// The program's message box, with Romanian buttons and the program's pictures.
#pragma once

#include <QDialog>
#include <vector>

#include "util/Messages.h"

class QHBoxLayout;
class QPushButton;

namespace velmar {

class frmMsgBox : public QDialog {
  Q_OBJECT
 public:
  explicit frmMsgBox(const Message& message, QWidget* parent = nullptr);

  /// Shows the box and gives the number of the button pressed (MessageResult).
  int ask();

  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  /// The first letter of a caption presses its button, with Alt and without.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QWidget* textArea(const QString& text);
  void addButtons(const Message& message, QHBoxLayout* row);

  std::vector<QPushButton*> cmdBtn_;
  bool hasCancel_ = false;
  int result_ = 0;
};

/// Shows the messages of the program in frmMsgBox, over the window that is active.
class WindowMessages : public MessageSink {
 public:
  int show(const Message& message) override;
};

}  // namespace velmar
