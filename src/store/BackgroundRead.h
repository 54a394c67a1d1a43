// Reads from the open company on a connection and in a thread of its own, while the program works on.
#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <QObject>
#include <QThread>

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

  /// Stops what runs and starts `work`. When it fails, `failed` is called in the thread of the windows with
  /// the text of the error.
  void start(const Work& work, const std::function<void(const QString& text)>& failed);
  void stop();
  bool isRunning() const { return thread_ != nullptr; }

 private:
  void finish(int run, const Use& use);

  std::unique_ptr<QThread> thread_;
  std::atomic<bool> isStopped_ = false;
  int run_ = 0;  ///< counts the starts
};

}  // namespace velmar
