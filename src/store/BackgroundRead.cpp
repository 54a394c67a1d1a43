#include "store/BackgroundRead.h"

#include <chrono>
#include <exception>
#include <QDeadlineTimer>
#include <QScopeGuard>

#include "store/Database.h"
#include "util/Errors.h"

namespace velmar {

namespace {

constexpr auto kPatience = std::chrono::milliseconds(20);

}  // namespace

void RunningRead::run(const QString& path, const std::function<void(Database& connection)>& read) {
  const std::unique_ptr<Database> connection = Database::open(path);
  const auto publish = [this](Database* running) {
    const std::scoped_lock lock(guard_);
    connection_ = running;
  };
  publish(connection.get());
  const auto withdraw = qScopeGuard([&publish] { publish(nullptr); });
  const Snapshot moment(*connection);
  read(*connection);
}

// A statement that begins just after the interruption is met the next time.
void RunningRead::stop(QThread& thread) {
  do {
    const std::scoped_lock lock(guard_);
    if (connection_) connection_->interrupt();
  } while (!thread.wait(QDeadlineTimer(kPatience)));
}

void readInThread(const std::function<void()>& work, const std::function<void()>& meanwhile) {
  database().requireInPlace();
  RunningRead running;
  std::exception_ptr failed;
  const std::unique_ptr<QThread> thread(QThread::create([&, path = database().path()] {
    try {
      running.run(path, [&work](Database& connection) {
        const ThreadDatabase here(connection);
        work();
      });
    } catch (...) {
      failed = std::current_exception();
    }
  }));
  thread->start();
  try {
    while (!thread->wait(QDeadlineTimer(kPatience))) meanwhile();
  } catch (...) {
    running.stop(*thread);
    throw;
  }
  if (failed) std::rethrow_exception(failed);
}

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
      running_.run(path, [&](Database& connection) {
        for (const Work& work : works) {
          if (isStopped_) return;
          deliver(work(connection, isStopped_));
        }
      });
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
  running_.stop(*thread_);
  thread_.reset();
}

// A result that was on its way when the read was stopped is not used.
void BackgroundRead::use(int run, const Use& result) {
  if (run == run_ && thread_) result();
}

}  // namespace velmar
