#include "util/FileNames.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include "util/Errors.h"

namespace velmar {

QString asFileName(const QString& text) {
  static const QRegularExpression notInNames(QStringLiteral(R"([\\/:*?"<>|\x00-\x1f])"));
  QString name = text;
  return name.replace(notInNames, QStringLiteral("_"));
}

QString pathInFolder(const QString& folder, const QString& name) {
  if (name.contains(u'/') || name.contains(u'\\'))
    throw StoreError(kFileFailure,
                     QStringLiteral("%1 nu este numele unui fisier din folderul %2.").arg(name, folder));
  const QDir dir(folder);
  if (dir.exists(name)) return dir.filePath(name);
  for (const QString& entry : dir.entryList(QDir::Files | QDir::Hidden))
    if (entry.compare(name, Qt::CaseInsensitive) == 0) return dir.filePath(entry);
  return dir.filePath(name);
}

bool existsInFolder(const QString& folder, const QString& name) {
  const QFileInfo file(pathInFolder(folder, name));
  return file.exists() || file.isSymLink();
}

void requirePlainFile(const QString& path) {
  const QFileInfo file(path);
  if (file.exists() && !file.isFile())
    throw StoreError(kFileFailure, QStringLiteral("%1 nu este un fisier obisnuit.").arg(path));
}

}  // namespace velmar
