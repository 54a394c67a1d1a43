#include "fiscal/OutsidePath.h"

#include <QDir>

#include "config/Session.h"
#include "util/Settings.h"

namespace velmar {

namespace {

enum class Kind { File, Folder };

bool exists(const QString& path, Kind kind) {
  const QFileInfo info(path);
  return kind == Kind::File ? info.isFile() : info.isDir();
}

// The entries of the folder with that name: first the exact spelling, then the others.
QStringList spellings(const QString& folder, const QString& name, Kind kind) {
  const QDir dir(folder);
  QStringList found;
  if (exists(dir.filePath(name), kind)) found.append(name);
  for (const QString& entry : dir.entryList(
           QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System, QDir::Name))
    if (entry != name && entry.compare(name, Qt::CaseInsensitive) == 0 && exists(dir.filePath(entry), kind))
      found.append(entry);
  return found;
}

// A folder may exist in several spellings, only one of which contains the file. Empty when nothing exists.
QString existing(const QString& folder, const QStringList& names, Kind kind) {
  if (names.isEmpty()) return folder;
  const Kind next = names.size() > 1 ? Kind::Folder : kind;
  for (const QString& name : spellings(folder, names.first(), next)) {
    QString path = existing(QDir(folder).filePath(name), names.mid(1), kind);
    if (!path.isEmpty()) return path;
  }
  return {};
}

}  // namespace

QString outsidePath(const QString& folder, const QString& file) {
  const QStringList names = file.split(QLatin1Char('/'));
  if (QString path = existing(folder, names, Kind::File); !path.isEmpty()) return path;
  for (qsizetype known = names.size() - 1; known > 0; --known)
    if (const QString path = existing(folder, names.first(known), Kind::Folder); !path.isEmpty())
      return QDir(path).filePath(names.mid(known).join(QLatin1Char('/')));
  return QDir(folder).filePath(file);
}

QString onDrive(const QString& file) { return outsidePath(settings::driveFolder(), file); }

QString inProgramFolder(const QString& file) { return outsidePath(session().gCaleAplicatie, file); }

bool fileExists(const QString& path) { return exists(path, Kind::File); }

}  // namespace velmar
