#include "Driver.h"

#include <QThread>

#include "Input.h"
#include "util/Errors.h"

namespace velmar::scenario {

namespace {
constexpr int kLongestWait = 30000;  // milliseconds
}

struct Driver::Call {
  std::function<QVariant()> step;
  int level = 0;
  bool acted = false;
  bool released = false;
  Outcome outcome;
  QSemaphore done;
};

Driver::Driver(std::function<bool()> settled) : settled_(std::move(settled)) {}

Outcome Driver::run(const std::function<QVariant()>& step) {
  auto call = std::make_shared<Call>();
  call->step = step;
  QMetaObject::invokeMethod(
      this, [this, call] { perform(call); }, Qt::QueuedConnection);
  if (call->done.tryAcquire(1, kLongestWait)) return call->outcome;
  Outcome hung;
  hung.hung = true;
  return hung;
}

void Driver::perform(const std::shared_ptr<Call>& call) {
  call->level = thread()->loopLevel();
  // The probe must be running already when a modal window opens an event loop inside the step.
  probe_.start([this, call] { return (call->acted || thread()->loopLevel() > call->level) && settled_(); },
               [call] {
                 giveFocusBack();
                 call->released = true;
                 call->done.release();
               });
  QString error;
  QVariant value;
  try {
    value = call->step();
  } catch (const Failure& failure) {
    error = failure.text();
  } catch (const Error& failure) {
    error = QStringLiteral("%1 (%2)").arg(failure.text()).arg(failure.number());
  } catch (const std::exception& failure) {
    error = QString::fromUtf8(failure.what());
  }
  if (call->released) {
    if (!error.isEmpty()) addLateFailure(error);
    return;
  }
  call->outcome.value = value;
  call->outcome.error = error;
  call->acted = true;
}

void Driver::addLateFailure(const QString& text) {
  if (lateFailure_.isEmpty()) lateFailure_ = text;
}

}  // namespace velmar::scenario
