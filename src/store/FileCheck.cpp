#include "store/FileCheck.h"

#include <chrono>
#include <QFileInfo>

#include "store/Database.h"
#include "store/DataChanges.h"
#include "store/Server.h"
#include "store/Sqlite.h"
#include "util/Errors.h"

namespace velmar {

FileCheck::FileCheck(const QString& databasePath) : path_(databasePath) {
  if (serverOf(QFileInfo(path_).path())) return;
  QObject::connect(&daily_, &QTimer::timeout, [this] { start(); });
  daily_.start(std::chrono::hours(24));
  start();
}

FileCheck::~FileCheck() { stop(); }

// A file that is busy or cannot be read now is checked the next time.
void FileCheck::check() {
  try {
    Database::open(path_)->requireWhole([this] {
      if (isStopped_) throw Cancelled();
    });
  } catch (const Cancelled&) {
    // The company is being closed.
  } catch (const StoreError& error) {
    if (isStopped_ || !sqlite::isDamage(error)) return;
    {
      const std::scoped_lock lock(guard_);
      damage_ = error.text();
    }
    emit dataChanges().fileDamaged();
  }
}

QString FileCheck::takeDamage() {
  const std::scoped_lock lock(guard_);
  return std::exchange(damage_, {});
}

void FileCheck::start() {
  stop();
  isStopped_ = false;
  thread_.reset(QThread::create([this] { check(); }));
  thread_->start(QThread::LowestPriority);
}

void FileCheck::stop() {
  if (!thread_) return;
  isStopped_ = true;
  thread_->wait();
}

}  // namespace velmar
