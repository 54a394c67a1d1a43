// Tells when the windows' thread has nothing left to do and waits for the user, in whatever event loop.
#pragma once

#include <functional>
#include <QObject>
#include <QTimer>

namespace velmar::scenario {

class IdleProbe : public QObject {
 public:
  IdleProbe();

  /// Probes until `ready` holds and two rounds saw no event of the program, then runs `done` once. A probe
  /// that is still running is given up.
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
