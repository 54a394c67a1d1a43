// A program of a register's maker. It has neither input nor output of ours, and works on when we let go of
// it.
#pragma once

#include <memory>
#include <QObject>
#include <QStringList>

class QProcess;

namespace velmar {

struct OutsideCommand {
  QString program;  ///< its path
  QStringList arguments;
  QString folder;  ///< where it works
};

/// Starts the program and lets go of it; gives false when it cannot be started.
bool startOutside(const OutsideCommand& command);

class OutsideProgram : public QObject {
  Q_OBJECT
 public:
  /// Starts it; one that cannot be started has ended.
  explicit OutsideProgram(const OutsideCommand& command);
  ~OutsideProgram() override;

  bool hasEnded() const;
  /// Whether it ended by itself with exit code 0.
  bool hasSucceeded() const;

 signals:
  void ended();

 private:
  std::unique_ptr<QProcess> process_;
};

/// What became of a program that was waited for.
enum class OutsideEnd { Succeeded, Failed, GivenUp };

/// Starts the program and waits by registerWait() until it has ended.
OutsideEnd runOutside(const OutsideCommand& command);

}  // namespace velmar
