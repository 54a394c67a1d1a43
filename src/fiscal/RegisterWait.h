// How the core waits for a register. It asks through RegisterWait; the windows show frmAsteptare meanwhile.
#pragma once

namespace velmar {

class OutsideProgram;

class RegisterWait {
 public:
  virtual ~RegisterWait() = default;
  /// Runs an event loop until the program has ended; gives false when the user gave up before.
  virtual bool wait(OutsideProgram& program) = 0;
};

/// Makes `wait` the one that is asked and gives the one before it; null means none, and then a register that
/// must be waited for throws std::logic_error.
RegisterWait* setRegisterWait(RegisterWait* wait);

/// The one that is asked. Throws std::logic_error when there is none.
RegisterWait& registerWait();

}  // namespace velmar
