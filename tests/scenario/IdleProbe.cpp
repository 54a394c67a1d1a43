#include "IdleProbe.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace velmar::scenario {

namespace {

constexpr int kQuietRounds = 2;
// Short timers that delay work after a keystroke are waited for, longer ones are not.
constexpr int kLongestDelay = 400;

const auto kProbe = static_cast<QEvent::Type>(QEvent::registerEventType());

// The property "busy" of the application counts tasks outside the GUI thread.
bool workIsDelayed() {
  if (qApp->property("busy").toInt() > 0) return true;
  for (const QWidget* window : QApplication::topLevelWidgets()) {
    if (!window->isVisible()) continue;
    for (const QTimer* timer : window->findChildren<QTimer*>())
      if (timer->isActive() && timer->isSingleShot() && timer->interval() <= kLongestDelay) return true;
  }
  return false;
}

}  // namespace

IdleProbe::IdleProbe() {
  round_.setSingleShot(true);
  round_.setInterval(0);
  connect(&round_, &QTimer::timeout, this,
          [this] { QCoreApplication::postEvent(this, new QEvent(kProbe), Qt::LowEventPriority); });
  qApp->installEventFilter(this);
}

void IdleProbe::start(std::function<bool()> ready, std::function<void()> done) {
  ready_ = std::move(ready);
  done_ = std::move(done);
  quietRounds_ = 0;
  events_ = 0;
  round_.start();
}

bool IdleProbe::eventFilter(QObject* watched, QEvent*) {
  if (watched != this && watched != &round_) ++events_;
  return false;
}

bool IdleProbe::event(QEvent* event) {
  if (event->type() != kProbe) return QObject::event(event);
  if (!done_) return true;
  const bool quiet = std::exchange(events_, 0) == 0 && ready_() && !workIsDelayed();
  quietRounds_ = quiet ? quietRounds_ + 1 : 0;
  if (quietRounds_ < kQuietRounds)
    round_.start();
  else
    std::exchange(done_, nullptr)();
  return true;
}

}  // namespace velmar::scenario
