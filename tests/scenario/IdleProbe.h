// Detects when the GUI thread is idle and waits for the user, in any event loop.
#pragma once

#include <functional>
#include <QObject>
#include <QTimer>

namespace velmar::scenario {

class IdleProbe : public QObject {
 public:
  IdleProbe();

  /// Probes until `ready` returns true and there was no event of the program in two rounds, then runs `done`
  /// once. A running probe is cancelled.
  void start(std::function<bool()> ready, std::function<void()> done);

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QTimer round_;
  std::function<bool()> ready_;
  std::function<void()> done_;
  int events_ = 0;
  int quietRounds_ = 0;
};

}  // namespace velmar::scenario
