#include "store/BackgroundRead.h"

#include "store/Database.h"
#include "util/Errors.h"

namespace velmar {

BackgroundRead::~BackgroundRead() { stop(); }

void BackgroundRead::start(const Work& work, const std::function<void(const QString& text)>& failed) {
  stop();
  isStopped_ = false;
  const int run = ++run_;
  const auto deliver = [this, run](const Use& use) {
    QMetaObject::invokeMethod(
        this, [this, run, use] { finish(run, use); }, Qt::QueuedConnection);
  };
  thread_.reset(QThread::create([this, work, failed, deliver, path = database().path()] {
    try {
      const std::unique_ptr<Database> connection = Database::open(path);
      const Snapshot moment(*connection);
      deliver(work(*connection, isStopped_));
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
  thread_->wait();
  thread_.reset();
}

// A result that was on its way when another read was started is not used.
void BackgroundRead::finish(int run, const Use& use) {
  if (run != run_ || !thread_) return;
  thread_->wait();
  thread_.reset();
  use();
}

}  // namespace velmar
