// Runs the steps of a script on the GUI thread and returns to the script's thread when the program waits for
// the user again, even if a step has opened a modal window and has not returned yet.
#pragma once

#include <memory>
#include <QSemaphore>

#include "Functions.h"
#include "IdleProbe.h"

namespace velmar::scenario {

struct Outcome {
  QVariant value;
  QString error;  ///< empty if the step succeeded
  bool hung = false;
};

class Driver : public QObject {
 public:
  /// `settled` returns whether the driver's own actions (answering a box) are finished.
  explicit Driver(std::function<bool()> settled);

  /// Runs the step on the GUI thread; called from the script's thread.
  Outcome run(const std::function<QVariant()>& step);

  /// The error on the GUI thread that occurred after its step had returned, or outside any step; empty if
  /// there was none.
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
