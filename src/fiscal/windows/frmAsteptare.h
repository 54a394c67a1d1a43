// The dialog shown while a fiscal register prints; the user can give up waiting.
#pragma once

#include <QDialog>

#include "fiscal/RegisterWait.h"

namespace velmar {

class frmAsteptare : public QDialog {
  Q_OBJECT
 public:
  /// Accepts itself when the program ends.
  explicit frmAsteptare(OutsideProgram& program, QWidget* parent = nullptr);
};

/// Shows frmAsteptare over the active window when a register needs longer than a second.
class WindowRegisterWait : public RegisterWait {
 public:
  void wait(OutsideProgram& program) override;
};

}  // namespace velmar
