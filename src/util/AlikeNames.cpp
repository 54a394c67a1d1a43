#include "util/AlikeNames.h"

#include <QHash>

namespace velmar {

QStringList withCodesOfAlike(QStringList names, const QStringList& codes) {
  QHash<QString, int> uses;
  for (const QString& name : names) ++uses[name.toUpper()];
  for (qsizetype i = 0; i < names.size(); ++i)
    if (uses.value(names[i].toUpper()) > 1) names[i] += QStringLiteral(" (%1)").arg(codes[i]);
  return names;
}

}  // namespace velmar
