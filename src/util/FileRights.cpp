#include "util/FileRights.h"

#include <QFile>
#include <QFileInfo>
#ifdef Q_OS_UNIX
#include <sys/stat.h>
#include <unistd.h>
#endif

#include "util/Errors.h"

namespace velmar {

#ifdef Q_OS_UNIX

namespace {

using Status = struct stat;

bool read(const QString& path, Status& status) {
  return stat(QFile::encodeName(path).constData(), &status) == 0;
}

// A folder for everybody's temporary files is nobody's shared folder.
bool isShared(const Status& folder) {
  return (folder.st_mode & S_IWGRP) != 0 && (folder.st_mode & S_ISVTX) == 0;
}

// Rights and group of what lies in the folder. The owner alone can change them.
void protect(const QString& path, const Status& status, bool isForGroup, const Status& folder,
             mode_t rights) {
  if (status.st_uid != geteuid()) return;
  const QByteArray name = QFile::encodeName(path);
  if (isForGroup && status.st_gid != folder.st_gid &&
      chown(name.constData(), static_cast<uid_t>(-1), folder.st_gid) != 0)
    return;
  chmod(name.constData(), rights);
}

}  // namespace

void protectFile(const QString& path) {
  Status folder;
  Status file;
  if (!read(QFileInfo(path).absolutePath(), folder) || !read(path, file) || !S_ISREG(file.st_mode)) return;
  protect(path, file, isShared(folder), folder, isShared(folder) ? 0660 : 0600);
}

void protectFolder(const QString& path) {
  Status parent;
  Status folder;
  if (!read(QFileInfo(path).absolutePath(), parent) || !read(path, folder) || !S_ISDIR(folder.st_mode))
    return;
  const bool isForGroup = isShared(folder) || isShared(parent);
  protect(path, folder, isForGroup && !isShared(folder), parent,
          (folder.st_mode & S_ISGID) | (isForGroup ? 0770 : 0700));
}

#else

void protectFile(const QString&) {}

void protectFolder(const QString&) {}

#endif

void openPrivately(QFileDevice& file) {
  if (!file.open(QIODevice::WriteOnly)) throw notWritten(file);
  file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
}

}  // namespace velmar
