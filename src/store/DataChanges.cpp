#include "store/DataChanges.h"

namespace velmar {

DataChanges& dataChanges() {
  static DataChanges theChanges;
  return theChanges;
}

QString writtenTable(const QString& sql) {
  for (const char* verb : {"INSERT INTO ", "UPDATE ", "DELETE FROM "}) {
    const QLatin1String start(verb);
    if (!sql.startsWith(start, Qt::CaseInsensitive)) continue;
    qsizetype from = start.size();
    const bool quoted = sql.size() > from && sql[from] == QLatin1Char('"');
    if (quoted) ++from;
    qsizetype to = from;
    while (to < sql.size() && (quoted ? sql[to] != QLatin1Char('"') : !sql[to].isSpace() && sql[to] != u'('))
      ++to;
    return sql.mid(from, to - from).toUpper();
  }
  return {};
}

}  // namespace velmar
