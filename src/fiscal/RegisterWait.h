// How the core waits for a register. It asks through RegisterWait; the windows show frmAsteptare meanwhile.
#pragma once

namespace velmar {

class OutsideProgram;

class RegisterWait {
 public:
  virtual ~RegisterWait() = default;
  /// Returns when the program has ended, or the user has given up. The event loop runs meanwhile.
  virtual void wait(OutsideProgram& program) = 0;
};

/// Makes `wait` the one that is asked and gives the one before it; null means none, and then a register that
/// must be waited for throws std::logic_error.
RegisterWait* setRegisterWait(RegisterWait* wait);

/// The one that is asked. Throws std::logic_error when there is none.
RegisterWait& registerWait();

}  // namespace velmar
