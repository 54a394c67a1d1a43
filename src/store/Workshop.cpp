#include "store/Workshop.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

#include "store/DatabaseFiles.h"
#include "util/Errors.h"

namespace velmar {

namespace {

// Longer than a process needs between creating its folder and locking it.
constexpr int kYoungSeconds = 60;

std::unique_ptr<QLockFile> lockOf(const QString& folder) {
  auto lock = std::make_unique<QLockFile>(QDir(folder).filePath(QStringLiteral(".lucru.lock")));
  lock->setStaleLockTime(0);
  return lock;
}

void sweep(const QFileInfo& folder) {
  if (folder.lastModified().secsTo(QDateTime::currentDateTime()) < kYoungSeconds) return;
  {
    const auto lock = lockOf(folder.filePath());
    if (!lock->tryLock(0)) return;
    try {
      removeDatabasesOf(folder.filePath());
    } catch (const StoreError&) {
      return;  // the server does not answer; the folder is kept for the next call
    }
  }
  QDir(folder.filePath()).removeRecursively();
}

}  // namespace

Workshop::Workshop(const QString& folder, const QString& prefix)
    : dir_(QDir(folder).filePath(prefix + QStringLiteral("XXXXXX"))) {
  if (!dir_.isValid())
    throw StoreError(
        kFileFailure,
        QStringLiteral("Folderul %1 nu poate fi scris. Verificati drepturile asupra lui si spatiul "
                       "liber de pe disc.")
            .arg(QDir::toNativeSeparators(folder)));
  lock_ = lockOf(dir_.path());
  lock_->tryLock(0);
  sweepWorkshops(folder, prefix);
}

void sweepWorkshops(const QString& folder, const QString& prefix) {
  for (const QFileInfo& found :
       QDir(folder).entryInfoList({prefix + u'*'}, QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot))
    sweep(found);
}

}  // namespace velmar
