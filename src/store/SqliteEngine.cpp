#include "store/SqliteEngine.h"

#include <sqlite3.h>
#include <algorithm>
#include <atomic>
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
  static std::atomic<int> counter = 0;
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

// A sample of each index is enough for the planner, and takes milliseconds in a large file.
void FileEngine::studyTables() {
  run(QStringLiteral("PRAGMA analysis_limit = 1000"));
  run(QStringLiteral("ANALYZE"));
}

void FileEngine::refreshStatistics() {
  run(QStringLiteral("PRAGMA analysis_limit = 1000"));
  run(QStringLiteral("PRAGMA optimize"));
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

namespace {

// Calls a function from time to time while the work runs on the connection; its exception stops the work and
// is thrown again.
template <typename Work>
void runWatched(sqlite3* connection, const std::function<void()>& meanwhile, Work&& work) {
  struct Watch {
    const std::function<void()>& call;
    std::exception_ptr stop;
    // The engine is written in C: an exception must not pass through it.
    static int comeBy(void* self) {
      auto* watch = static_cast<Watch*>(self);
      if (watch->stop) return 1;
      try {
        watch->call();
        return 0;
      } catch (...) {
        watch->stop = std::current_exception();
        return 1;
      }
    }
  };
  constexpr int kStepsBetween = 10'000;
  Watch watch{meanwhile, {}};
  if (meanwhile) sqlite3_progress_handler(connection, kStepsBetween, &Watch::comeBy, &watch);
  const auto noLonger =
      qScopeGuard([connection] { sqlite3_progress_handler(connection, 0, nullptr, nullptr); });
  try {
    work();
  } catch (const StoreError&) {
    if (watch.stop) std::rethrow_exception(watch.stop);
    throw;
  }
}

}  // namespace

void FileEngine::requireWhole(const std::function<void()>& meanwhile) {
  runWatched(handleOf(connection_), meanwhile, [this] {
    const Recordset found = prepare(QStringLiteral("PRAGMA integrity_check(1)"))->query({});
    const QString verdict = found.isEmpty() ? QString() : found.first().at(0).toString();
    if (verdict != QStringLiteral("ok")) throw describe(SQLITE_CORRUPT, verdict, path_);
  });
}

void FileEngine::requireInPlace() {
  int moved = 0;
  if (sqlite3_file_control(handleOf(connection_), "main", SQLITE_FCNTL_HAS_MOVED, &moved) != SQLITE_OK ||
      !moved)
    return;
  throw StoreError(
      kFileFailure,
      QStringLiteral("Fisierul %1 nu mai este la locul lui: a fost sters, mutat sau inlocuit cat "
                     "timp societatea era deschisa. Nu s-a salvat nimic.")
          .arg(path_));
}

void FileEngine::interrupt() { sqlite3_interrupt(handleOf(connection_)); }

bool FileEngine::copyAsFile(const QString& path, const EngineProgress& progress) {
  const qint64 full = std::max<qint64>(1, QFileInfo(path_).size());
  const auto report = [&] {
    progress(static_cast<int>(std::min<qint64>(99, 100 * QFileInfo(path).size() / full)), 100);
  };
  runWatched(handleOf(connection_), progress ? std::function<void()>(report) : nullptr,
             [&] { prepare(QStringLiteral("VACUUM INTO ?"))->run({QFileInfo(path).absoluteFilePath()}); });
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
