// The interface by which the core waits for a register; the user interface shows frmAsteptare meanwhile.
#pragma once

namespace velmar {

class OutsideProgram;

class RegisterWait {
 public:
  virtual ~RegisterWait() = default;
  /// Runs the event loop until the program has ended or the user has given up.
  virtual void wait(OutsideProgram& program) = 0;
};

/// Sets the instance in use and returns the previous one; may be null.
RegisterWait* setRegisterWait(RegisterWait* wait);

/// The instance in use. Throws std::logic_error when there is none.
RegisterWait& registerWait();

}  // namespace velmar
