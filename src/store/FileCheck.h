// Checks the file of the open company for damage, in the background.
#pragma once

#include <atomic>
#include <memory>
#include <QObject>
#include <QString>
#include <QThread>
#include <QTimer>

namespace velmar {

/// Reads the whole file at once and then every 24 hours, on a connection and in a thread of its own, while
/// the object exists. Damage is reported once by dataChanges().fileDamaged. Does nothing for a company on a
/// server, which checks its own files.
class FileCheck {
 public:
  explicit FileCheck(const QString& databasePath);
  /// Stops a check that is running; its connection is closed then.
  ~FileCheck();
  FileCheck(const FileCheck&) = delete;
  FileCheck& operator=(const FileCheck&) = delete;

 private:
  void start();
  void stop();

  QString path_;
  QTimer daily_;
  std::atomic<bool> isStopped_ = false;
  std::unique_ptr<QThread> thread_;
};

}  // namespace velmar
