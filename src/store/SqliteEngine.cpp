#include "store/SqliteEngine.h"

#include <QSqlQuery>

#include "store/Sqlite.h"
#include "store/SqliteStatement.h"

namespace velmar::sqlite {

FileEngine::FileEngine(const QString& path, bool create) : path_(path) {
  static int counter = 0;
  name_ = QStringLiteral("velmar-%1").arg(++counter);
  try {
    connection_ = open(path_, name_, create);
  } catch (...) {
    QSqlDatabase::removeDatabase(name_);
    throw;
  }
}

FileEngine::~FileEngine() {
  connection_.close();
  connection_ = QSqlDatabase();
  QSqlDatabase::removeDatabase(name_);
}

std::shared_ptr<EngineStatement> FileEngine::prepare(const QString& sql) {
  return std::make_shared<Statement>(handleOf(connection_), sql, path_);
}

void FileEngine::run(const QString& sql) {
  QSqlQuery query(connection_);
  if (!query.exec(sql)) throw describe(query.lastError(), path_);
}

bool FileEngine::tryBeginWrite() { return sqlite::tryBeginWrite(connection_, path_); }

// The snapshot is that of the first reading.
void FileEngine::beginSnapshot() {
  run(QStringLiteral("BEGIN"));
  QSqlQuery first(connection_);
  if (!first.exec(QStringLiteral("SELECT COUNT(*) FROM sqlite_master")))
    throw describe(first.lastError(), path_);
}

QStringList FileEngine::plan(const QString& sql) {
  constexpr int kDetail = 3;
  Statement plan(handleOf(connection_), QStringLiteral("EXPLAIN QUERY PLAN ") + sql, path_);
  QStringList steps;
  while (plan.step()) steps.append(plan.value(kDetail).toString());
  return steps;
}

QString FileEngine::declaredType(const Column& column) const {
  switch (column.type) {
    case ColumnType::Text:
      return QStringLiteral("TEXT COLLATE NOCASE");
    case ColumnType::Integer:
    case ColumnType::AutoNumber:
      return QStringLiteral("INTEGER");
    case ColumnType::Boolean:
      return QStringLiteral("INTEGER NOT NULL DEFAULT 0");
    case ColumnType::Real:
      return column.zeroDefault ? QStringLiteral("REAL NOT NULL DEFAULT 0") : QStringLiteral("REAL");
    case ColumnType::Date:
    case ColumnType::Time:
    case ColumnType::DateTime:
      return QStringLiteral("TEXT");
  }
  return {};
}

// Lines lie beside the other lines of their document, found by one descent.
QString FileEngine::clusteredSuffix() const { return QStringLiteral(" WITHOUT ROWID"); }

}  // namespace velmar::sqlite
