// Runs one script on a separate thread and returns the result.
#pragma once

#include <atomic>
#include <QElapsedTimer>
#include <QJSEngine>
#include <QThread>

#include "Driver.h"

namespace velmar::scenario {

struct Verdict {
  int checks = 0;
  bool failed = false;
  QString file;
  int line = 0;
  QString what, expected, actual;
};

class ScenarioEngine : public QThread {
  Q_OBJECT
 public:
  ScenarioEngine(const QString& file, Driver& driver, const Functions& functions);

  /// Valid after the thread has finished or hung.
  const Verdict& verdict() const { return verdict_; }
  /// The line of the script that made the last step.
  int lastLine() const { return lastLine_; }

  // Called by the prelude, on the script's thread.
  Q_INVOKABLE QJSValue call(const QString& stack, const QString& name, const QVariantList& arguments);
  Q_INVOKABLE void sleep(int milliseconds);
  Q_INVOKABLE void count() { ++verdict_.checks; }

 signals:
  /// The GUI thread hangs; the verdict is complete, the script's thread will not end.
  void hung();

 protected:
  void run() override;

 private:
  void execute();
  void judge(const QJSValue& error, const QStringList& stack);
  int lineIn(const QString& stack) const;
  void watchScript();

  QString file_;
  Driver& driver_;
  const Functions& functions_;
  Verdict verdict_;
  std::atomic<QJSEngine*> engine_ = nullptr;
  std::atomic<int> lastLine_ = 0;
  std::atomic<bool> inStep_ = false;
  std::atomic<qint64> lastStep_ = 0;
  QElapsedTimer clock_;
};

}  // namespace velmar::scenario
