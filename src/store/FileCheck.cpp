#include "store/FileCheck.h"

#include <chrono>
#include <QFileInfo>

#include "store/Database.h"
#include "store/DataChanges.h"
#include "store/Server.h"
#include "store/Sqlite.h"
#include "util/Errors.h"

namespace velmar {

namespace {

// A file that is busy or cannot be read now is checked the next time.
void check(const QString& path, const std::atomic<bool>& isStopped) {
  try {
    Database::open(path)->requireWhole([&isStopped] {
      if (isStopped) throw Cancelled();
    });
  } catch (const Cancelled&) {
    // The company is being closed.
  } catch (const StoreError& error) {
    if (!isStopped && sqlite::isDamage(error)) emit dataChanges().fileDamaged(error.text());
  }
}

}  // namespace

FileCheck::FileCheck(const QString& databasePath) : path_(databasePath) {
  if (serverOf(QFileInfo(path_).path())) return;
  QObject::connect(&daily_, &QTimer::timeout, [this] { start(); });
  daily_.start(std::chrono::hours(24));
  start();
}

FileCheck::~FileCheck() { stop(); }

void FileCheck::start() {
  stop();
  isStopped_ = false;
  thread_.reset(QThread::create([path = path_, this] { check(path, isStopped_); }));
  thread_->start(QThread::LowestPriority);
}

void FileCheck::stop() {
  if (!thread_) return;
  isStopped_ = true;
  thread_->wait();
}

}  // namespace velmar
