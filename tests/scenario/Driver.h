// Carries the steps of a script from its own thread to the windows' thread, and back once the program waits
// for the user again: also when a step has opened a modal window and so has not returned yet.
#pragma once

#include <memory>
#include <QSemaphore>

#include "Functions.h"
#include "IdleProbe.h"

namespace velmar::scenario {

struct Outcome {
  QVariant value;
  QString error;  ///< empty when the step did its work
  bool hung = false;
};

class Driver : public QObject {
 public:
  /// `settled` says whether what the driver itself has begun (answering a box) is done.
  explicit Driver(std::function<bool()> settled);

  /// Runs the step on the windows' thread; called from the script's thread.
  Outcome run(const std::function<QVariant()>& step);

  /// What went wrong on the windows' thread after the step that caused it had been given back, or outside
  /// any step; empty when nothing did.
  const QString& lateFailure() const { return lateFailure_; }
  void addLateFailure(const QString& text);

 private:
  struct Call;
  void perform(const std::shared_ptr<Call>& call);

  IdleProbe probe_;
  std::function<bool()> settled_;
  QString lateFailure_;
};

}  // namespace velmar::scenario
