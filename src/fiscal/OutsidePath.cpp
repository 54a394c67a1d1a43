#include "fiscal/OutsidePath.h"

#include <QDir>

#include "config/Session.h"
#include "util/Settings.h"

namespace velmar {

namespace {

enum class Kind { File, Folder };

bool stands(const QString& path, Kind kind) {
  const QFileInfo info(path);
  return kind == Kind::File ? info.isFile() : info.isDir();
}

// What stands in the folder under that name: first as it is spelt, then as it may be.
QStringList spellings(const QString& folder, const QString& name, Kind kind) {
  const QDir dir(folder);
  QStringList found;
  if (stands(dir.filePath(name), kind)) found.append(name);
  for (const QString& entry : dir.entryList(
           QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System, QDir::Name))
    if (entry != name && entry.compare(name, Qt::CaseInsensitive) == 0 && stands(dir.filePath(entry), kind))
      found.append(entry);
  return found;
}

// Folders may stand in several spellings, of which one alone holds the file. Empty when nothing stands.
QString standing(const QString& folder, const QStringList& names, Kind kind) {
  if (names.isEmpty()) return folder;
  const Kind next = names.size() > 1 ? Kind::Folder : kind;
  for (const QString& name : spellings(folder, names.first(), next)) {
    QString path = standing(QDir(folder).filePath(name), names.mid(1), kind);
    if (!path.isEmpty()) return path;
  }
  return {};
}

}  // namespace

QString outsidePath(const QString& folder, const QString& file) {
  const QStringList names = file.split(QLatin1Char('/'));
  if (QString path = standing(folder, names, Kind::File); !path.isEmpty()) return path;
  for (qsizetype known = names.size() - 1; known > 0; --known)
    if (const QString path = standing(folder, names.first(known), Kind::Folder); !path.isEmpty())
      return QDir(path).filePath(names.mid(known).join(QLatin1Char('/')));
  return QDir(folder).filePath(file);
}

QString onDrive(const QString& file) { return outsidePath(settings::driveFolder(), file); }

QString inProgramFolder(const QString& file) { return outsidePath(session().gCaleAplicatie, file); }

bool fileStands(const QString& path) { return stands(path, Kind::File); }

}  // namespace velmar
