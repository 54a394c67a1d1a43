// Checks the file of the open company for damage, in the background.
#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <QObject>
#include <QString>
#include <QThread>
#include <QTimer>

namespace velmar {

/// Reads the whole file at once and then every 24 hours, on a connection and in a thread of its own, while
/// the object exists. Damage is kept and reported by dataChanges().fileDamaged. Does nothing for a company on
/// a server, which checks its own files.
class FileCheck {
 public:
  explicit FileCheck(const QString& databasePath);
  /// Stops a check that is running; its connection is closed then.
  ~FileCheck();
  FileCheck(const FileCheck&) = delete;
  FileCheck& operator=(const FileCheck&) = delete;

  /// What the check found, until it is taken; empty when there is nothing. A small file is read before there
  /// is a window that could be notified.
  QString takeDamage();

 private:
  void check();
  void start();
  void stop();

  QString path_;
  QTimer daily_;
  std::atomic<bool> isStopped_ = false;
  std::mutex guard_;  ///< of the damage
  QString damage_;
  std::unique_ptr<QThread> thread_;
};

}  // namespace velmar
