#include "shell/ApplicationFolder.h"

#include <QDir>
#include <QDirIterator>
#include <QSaveFile>
#include <QStandardPaths>

#include "config/Session.h"
#include "store/DatabaseFiles.h"
#include "util/Errors.h"
#include "util/FileRights.h"

// Outside the namespace, like the functions that the resource compiler generates.
static void loadResources() {
  Q_INIT_RESOURCE(pictures);
  Q_INIT_RESOURCE(layouts);
}

namespace velmar {

namespace {

StoreError notWritable(const QString& path) {
  return StoreError(kFileFailure,
                    QStringLiteral("%1 nu poate fi scris. Verificati drepturile asupra folderului si spatiul "
                                   "liber de pe disc.")
                        .arg(QDir::toNativeSeparators(path)));
}

void makeFolder(const QString& path) {
  if (!QDir().mkpath(path)) throw notWritable(path);
  protectFolder(path);
}

// Copies the files of a resource folder that are missing in the folder on disk.
void addMissingFiles(const QString& resources, const QString& folder) {
  makeFolder(folder);
  QDirIterator files(resources, QDir::Files);
  while (files.hasNext()) {
    const QString source = files.next();
    const QString target = QDir(folder).filePath(files.fileName());
    if (QFile::exists(target)) continue;
    // Several processes may start at once: each writes the file under a temporary name and then renames it.
    QFile packed(source);
    QSaveFile copy(target);
    if (!packed.open(QIODevice::ReadOnly) || !copy.open(QIODevice::WriteOnly) ||
        copy.write(packed.readAll()) != packed.size() || !copy.commit())
      throw notWritable(target);
  }
}

}  // namespace

QString defaultApplicationFolder() {
  return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
}

void prepareApplicationFolder(const QString& folder) {
  loadResources();
  session().gCaleAplicatie = QDir::cleanPath(folder);
  const QDir dir(folder);
  makeFolder(dir.path());
  addMissingFiles(QStringLiteral(":/BMP"), dir.filePath(QStringLiteral("BMP")));
  addMissingFiles(QStringLiteral(":/lst"), dir.filePath(QStringLiteral("lst")));
  bringTemplateUpToDate(dir.path());
}

QString picturePath(const QString& name) {
  const QString own = QDir(session().gCaleAplicatie).filePath(QStringLiteral("BMP/") + name);
  return QFile::exists(own) ? own : QStringLiteral(":/BMP/") + name;
}

}  // namespace velmar
