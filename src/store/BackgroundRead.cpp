#include "store/BackgroundRead.h"

#include <chrono>
#include <QDeadlineTimer>
#include <QScopeGuard>

#include "store/Database.h"
#include "util/Errors.h"

namespace velmar {

namespace {

constexpr auto kPatience = std::chrono::milliseconds(20);

}  // namespace

BackgroundRead::~BackgroundRead() { stop(); }

void BackgroundRead::start(const std::vector<Work>& works,
                           const std::function<void(const QString& text)>& failed) {
  stop();
  isStopped_ = false;
  const int run = ++run_;
  const auto deliver = [this, run](const Use& result) {
    QMetaObject::invokeMethod(
        this, [this, run, result] { use(run, result); }, Qt::QueuedConnection);
  };
  thread_.reset(QThread::create([this, works, failed, deliver, path = database().path()] {
    try {
      const std::unique_ptr<Database> connection = Database::open(path);
      const auto publish = [this](Database* running) {
        const std::scoped_lock lock(guard_);
        running_ = running;
      };
      publish(connection.get());
      const auto withdraw = qScopeGuard([&publish] { publish(nullptr); });
      const Snapshot moment(*connection);
      for (const Work& work : works) {
        if (isStopped_) return;
        deliver(work(*connection, isStopped_));
      }
    } catch (const Cancelled&) {
      // Nobody waits for the result any more.
    } catch (const Error& error) {
      deliver([failed, text = error.text()] { failed(text); });
    }
  }));
  thread_->start();
}

void BackgroundRead::stop() {
  if (!thread_) return;
  isStopped_ = true;
  // A statement that begins just after the flag was asked for is met the next time.
  do {
    const std::scoped_lock lock(guard_);
    if (running_) running_->interrupt();
  } while (!thread_->wait(QDeadlineTimer(kPatience)));
  thread_.reset();
}

// A result that was on its way when the read was stopped is not used.
void BackgroundRead::use(int run, const Use& result) {
  if (run == run_ && thread_) result();
}

}  // namespace velmar
