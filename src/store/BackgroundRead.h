// Reads from the open company on a connection and in a thread of its own, while the program works on, or
// while it waits for the result and can stop the read.
#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <QObject>
#include <QThread>
#include <vector>

namespace velmar {

class Database;

/// The connection of a thread, to be interrupted by another.
class RunningRead {
 public:
  /// Opens a company and runs `read` with the connection; all its reads see one state.
  void run(const QString& path, const std::function<void(Database& connection)>& read);
  /// Interrupts the statement that runs, and waits until the thread ends.
  void stop(QThread& thread);

 private:
  std::mutex guard_;  ///< of the connection
  Database* connection_ = nullptr;
};

/// Runs `work` on a connection and in a thread of its own, in which database() is that connection. All its
/// reads see one state; it must not write. Calls `meanwhile` in this thread every few milliseconds until the
/// work has ended. Throws what `work` throws, or what `meanwhile` throws: the work is then interrupted
/// before.
void readInThread(const std::function<void()>& work, const std::function<void()>& meanwhile);

class BackgroundRead : public QObject {
  Q_OBJECT
 public:
  /// What is done with the result, in the thread of the windows.
  using Use = std::function<void()>;
  /// Runs in the other thread. It throws Cancelled soon after `isStopped` has become true.
  using Work = std::function<Use(Database& connection, const std::atomic<bool>& isStopped)>;

  using QObject::QObject;
  /// Stops the work; nothing is used any more.
  ~BackgroundRead() override;

  /// Stops what runs and starts these, one after the other, all on one state of the company. Each result is
  /// used as soon as it is there. When one fails, `failed` is called in the thread of the windows with the
  /// text of the error.
  void start(const std::vector<Work>& works, const std::function<void(const QString& text)>& failed);
  void stop();

 private:
  void use(int run, const Use& result);

  std::unique_ptr<QThread> thread_;
  RunningRead running_;
  std::atomic<bool> isStopped_ = false;
  int run_ = 0;  ///< counts the starts
};

}  // namespace velmar
