#include "util/FileContent.h"

#include <QFile>
#include <QFileInfo>

#include "util/Errors.h"
#include "util/FileReason.h"

namespace velmar {

QByteArray fileContent(const QString& path, qint64 most) {
  // Closing a database that is in use would release the locks of this process.
  if (QFileInfo(path).fileName().contains(QStringLiteral(".mdb"), Qt::CaseInsensitive))
    throw RuleError(QStringLiteral("Fisierul %1 este o baza de date.").arg(path));
  QFile file(path);
  if (!QFileInfo(path).isFile()) throw RuleError(QStringLiteral("Fisierul: %1 nu exista").arg(path));
  if (!file.open(QIODevice::ReadOnly))
    throw RuleError(QStringLiteral("Fisierul: %1 nu poate fi citit: %2").arg(path, fileReason(file)));
  // One byte more than allowed tells a file that is too large; it may grow while it is read.
  QByteArray content = file.read(most + 1);
  if (content.size() > most)
    throw RuleError(
        QStringLiteral("Fisierul %1 este prea mare (peste %2 MB).").arg(path).arg(most / (1024LL * 1024)));
  return content;
}

}  // namespace velmar
