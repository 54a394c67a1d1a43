#include "util/FileNames.h"

#include <QDir>
#include <QRegularExpression>

namespace velmar {

QString asFileName(const QString& text) {
  static const QRegularExpression notInNames(QStringLiteral(R"([\\/:*?"<>|\x00-\x1f])"));
  QString name = text;
  return name.replace(notInNames, QStringLiteral("_"));
}

QString pathInFolder(const QString& folder, const QString& name) {
  const QDir dir(folder);
  if (dir.exists(name)) return dir.filePath(name);
  for (const QString& entry : dir.entryList(QDir::Files | QDir::Hidden))
    if (entry.compare(name, Qt::CaseInsensitive) == 0) return dir.filePath(entry);
  return dir.filePath(name);
}

bool existsInFolder(const QString& folder, const QString& name) {
  return QFile::exists(pathInFolder(folder, name));
}

}  // namespace velmar
