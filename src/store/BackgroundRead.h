// Reads from the open company on a connection and in a thread of its own, while the program works on.
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
  std::mutex guard_;             ///< of the next
  Database* running_ = nullptr;  ///< the connection of the thread
  std::atomic<bool> isStopped_ = false;
  int run_ = 0;  ///< counts the starts
};

}  // namespace velmar
