// Stands while a fiscal register prints, and lets the user give up waiting.
#pragma once

#include <QDialog>

#include "fiscal/RegisterWait.h"

namespace velmar {

class frmAsteptare : public QDialog {
  Q_OBJECT
 public:
  /// Closes by itself, accepted, when the program ends.
  explicit frmAsteptare(OutsideProgram& program, QWidget* parent = nullptr);
};

/// Shows frmAsteptare over the window that is active, when a register takes longer than a moment.
class WindowRegisterWait : public RegisterWait {
 public:
  void wait(OutsideProgram& program) override;
};

}  // namespace velmar
