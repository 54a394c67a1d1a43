// Runs an external program of a register's maker, without input and output. It continues when it is no longer
// waited for.
#pragma once

#include <memory>
#include <QObject>
#include <QStringList>

class QProcess;

namespace velmar {

struct OutsideCommand {
  QString program;  ///< its path
  QStringList arguments;
  QString folder;  ///< working directory
};

/// Starts the program and does not wait for its end; returns false when it cannot be started.
bool startOutside(const OutsideCommand& command);

class OutsideProgram : public QObject {
  Q_OBJECT
 public:
  /// Starts the program, which may take 10 seconds; if it cannot be started, hasEnded() is true.
  explicit OutsideProgram(const OutsideCommand& command);
  ~OutsideProgram() override;

  /// False also when it was still starting after 10 seconds; it is killed then.
  bool hasStarted() const { return hasStarted_; }
  bool hasEnded() const;
  /// Whether it ended normally with exit code 0.
  bool hasSucceeded() const;

 signals:
  void ended();

 private:
  std::unique_ptr<QProcess> process_;
  bool hasStarted_ = false;
};

/// The result of waiting for a program.
enum class OutsideEnd { Succeeded, Failed, GivenUp };

/// Starts the program and waits with registerWait() for its end.
OutsideEnd runOutside(const OutsideCommand& command);

}  // namespace velmar
