#include "store/SqliteEngine.h"

#include <sqlite3.h>
#include <algorithm>
#include <exception>
#include <QFileInfo>
#include <QScopeGuard>
#include <QSqlQuery>

#include "store/Sqlite.h"
#include "store/SqliteStatement.h"

namespace velmar::sqlite {

namespace {

constexpr int kCompactWaitMs = 5000;

}  // namespace

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

// The snapshot is taken by the first read.
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

void FileEngine::compact() {
  run(QStringLiteral("PRAGMA busy_timeout = %1").arg(kCompactWaitMs));
  // VACUUM first writes the whole database to temporary storage, which may be too large for memory.
  run(QStringLiteral("PRAGMA temp_store = FILE"));
  const auto asBefore = qScopeGuard([this] {
    QSqlQuery query(connection_);
    query.exec(QStringLiteral("PRAGMA temp_store = MEMORY"));
    query.exec(QStringLiteral("PRAGMA busy_timeout = %1").arg(kBusyTimeoutMs));
  });
  run(QStringLiteral("VACUUM"));
  // So far the compacted file is only in the journal. It remains there while another process reads.
  run(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)"));
}

void FileEngine::requireWhole() {
  const Recordset found = prepare(QStringLiteral("PRAGMA integrity_check(1)"))->query({});
  const QString verdict = found.isEmpty() ? QString() : found.first().at(0).toString();
  if (verdict != QStringLiteral("ok")) throw describe(SQLITE_CORRUPT, verdict, path_);
}

namespace {

// Reports the growing size of the file from the engine's progress callback, while the object exists.
class CopyWatch {
 public:
  CopyWatch(sqlite3* connection, const QString& from, const QString& to, const EngineProgress& progress)
      : connection_(connection), full_(std::max<qint64>(1, QFileInfo(from).size())), to_(to), use_(progress) {
    constexpr int kStepsBetween = 10'000;
    if (use_) sqlite3_progress_handler(connection_, kStepsBetween, &CopyWatch::comeBy, this);
  }
  ~CopyWatch() { sqlite3_progress_handler(connection_, 0, nullptr, nullptr); }
  CopyWatch(const CopyWatch&) = delete;
  CopyWatch& operator=(const CopyWatch&) = delete;

  /// The exception of the listener, if it threw.
  std::exception_ptr stop() const { return stop_; }

 private:
  // The engine is written in C: an exception must not pass through it.
  static int comeBy(void* self) {
    auto* watch = static_cast<CopyWatch*>(self);
    if (watch->stop_) return 1;
    try {
      const qint64 percents = 100 * QFileInfo(watch->to_).size() / watch->full_;
      watch->use_(static_cast<int>(std::min<qint64>(99, percents)), 100);
      return 0;
    } catch (...) {
      watch->stop_ = std::current_exception();
      return 1;
    }
  }

  sqlite3* connection_;
  qint64 full_;
  QString to_;
  const EngineProgress& use_;
  std::exception_ptr stop_;
};

}  // namespace

bool FileEngine::copyAsFile(const QString& path, const EngineProgress& progress) {
  const CopyWatch watch(handleOf(connection_), path_, path, progress);
  try {
    prepare(QStringLiteral("VACUUM INTO ?"))->run({QFileInfo(path).absoluteFilePath()});
  } catch (const StoreError&) {
    if (watch.stop()) std::rethrow_exception(watch.stop());
    throw;
  }
  if (progress) progress(100, 100);
  return true;
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

// Lines are stored next to the other lines of their document and found by one index lookup.
QString FileEngine::clusteredSuffix() const { return QStringLiteral(" WITHOUT ROWID"); }

}  // namespace velmar::sqlite
