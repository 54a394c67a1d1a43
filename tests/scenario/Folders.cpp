#include "Folders.h"

#include <QDir>

namespace velmar::scenario {

Folders::Folders(const QString& out) : out_(out) {
  QDir(out).removeRecursively();
  for (const QString& folder : {out, app(), drive(), settings()})
    if (!QDir().mkpath(folder)) throw Failure(QStringLiteral("%1 cannot be created").arg(folder));
}

QString Folders::nextDatabases() {
  const QString folder = temporary_.filePath(QStringLiteral("databases%1").arg(++companies_));
  QDir().mkpath(folder);
  return folder;
}

}  // namespace velmar::scenario
