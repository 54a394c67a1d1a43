#include "store/Database.h"

#include <optional>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QThread>

#include "store/DataChanges.h"
#include "store/PostgresEngine.h"
#include "store/Schema.h"
#include "store/SqliteEngine.h"
#include "util/Errors.h"
#include "util/Messages.h"

namespace velmar {

namespace {

constexpr int kLockWaitMs = 5000;
constexpr int kLockPauseMs = 20;
constexpr int kPreparedLimit = 200;
const QString kWaitQuestion = QStringLiteral(
    "Baza de date este folosita in acest moment de alt utilizator.\r\nDoriti sa mai asteptati ?");

std::unique_ptr<Database> theOpenDatabase;
thread_local Database* theThreadDatabase = nullptr;

std::unique_ptr<Engine> openEngine(const QString& path, bool create) {
  if (const auto server = serverOf(QFileInfo(path).path()))
    return std::make_unique<postgres::ServerEngine>(*server, path, create);
  return std::make_unique<sqlite::FileEngine>(path, create);
}

}  // namespace

/// The connection, its prepared statements and the depth of its transactions.
struct Database::State {
  QString path;
  std::unique_ptr<Engine> engine;
  QHash<QString, std::shared_ptr<EngineStatement>> prepared;
  int depth = 0;
  QSet<QString> written;  ///< tables that the open transaction has written
  bool recording = false;
  QStringList recorded;

  State(const QString& file, bool create) : path(file), engine(openEngine(file, create)) {}

  ~State() { prepared.clear(); }

  std::shared_ptr<EngineStatement> prepare(const QString& sql) {
    if (recording && !recorded.contains(sql)) recorded.append(sql);
    const auto known = prepared.constFind(sql);
    if (known != prepared.cend()) return *known;
    if (prepared.size() >= kPreparedLimit) prepared.clear();
    auto statement = engine->prepare(sql);
    prepared.insert(sql, statement);
    return statement;
  }

  void noteWritten(const QString& sql) {
    const QString table = writtenTable(sql);
    if (!table.isEmpty()) written.insert(table);
  }

  void beginWrite() {
    QElapsedTimer waited;
    waited.start();
    while (!engine->tryBeginWrite()) {
      if (waited.elapsed() > kLockWaitMs) {
        if (Mesaj(kWaitQuestion, kRetryCancel + kExclamation) != kResultRetry) throw Cancelled();
        waited.restart();
      }
      QThread::msleep(kLockPauseMs);
    }
    try {
      requireInPlace();
    } catch (const StoreError&) {
      engine->run(QStringLiteral("ROLLBACK"));
      throw;
    }
  }

  void requireInPlace() const {
    try {
      engine->requireInPlace();
    } catch (const StoreError&) {
      if (theOpenDatabase && theOpenDatabase->state_.get() == this) emit dataChanges().fileLost();
      throw;
    }
  }
};

Database::Database(std::unique_ptr<State> state) : state_(std::move(state)) {}

Database::~Database() = default;

std::unique_ptr<Database> Database::open(const QString& path) {
  return std::unique_ptr<Database>(new Database(std::make_unique<State>(path, false)));
}

std::unique_ptr<Database> Database::create(const QString& path) {
  return std::unique_ptr<Database>(new Database(std::make_unique<State>(path, true)));
}

const QString& Database::path() const { return state_->path; }

Recordset Database::query(const QString& sql, const Values& values) {
  const auto statement = state_->prepare(sql);
  if (inTransaction()) state_->noteWritten(sql);
  return statement->query(values);
}

int Database::execute(const QString& sql, const Values& values) { return executeEach(sql, {values}); }

int Database::executeEach(const QString& sql, const std::vector<Values>& rows) {
  std::optional<Transaction> own;
  if (!inTransaction()) own.emplace(*this);
  const auto statement = state_->prepare(sql);
  state_->noteWritten(sql);
  const int changed = statement->runEach(rows);
  if (own) own->commit();
  return changed;
}

void Database::each(const QString& sql, const std::function<void(std::vector<QVariant>&& cells)>& use,
                    const Values& values) {
  state_->prepare(sql)->each(values, use);
}

// Many rows in one statement if the engine prefers it; the number of rows is halved for the remainder, so
// that few different statements are prepared.
void Database::insertRows(const QString& table, const QStringList& columns, const std::vector<Values>& rows) {
  if (rows.empty()) return;
  const QString marks =
      QStringLiteral("(%1)").arg(QStringList(columns.size(), QStringLiteral("?")).join(QStringLiteral(", ")));
  const QString start =
      QStringLiteral("INSERT INTO %1 (%2) VALUES ").arg(table, columns.join(QStringLiteral(", ")));
  if (state_->engine->rowsPerInsert() == 1) {
    executeEach(start + marks, rows);
    return;
  }
  std::optional<Transaction> own;
  if (!inTransaction()) own.emplace(*this);
  size_t size = static_cast<size_t>(state_->engine->rowsPerInsert());
  for (size_t done = 0; done < rows.size();) {
    while (size > rows.size() - done) size /= 2;
    const QString sql = start + QStringList(static_cast<qsizetype>(size), marks).join(QStringLiteral(", "));
    Values values;
    for (size_t i = 0; i < size; ++i)
      values.insert(values.end(), rows[done + i].begin(), rows[done + i].end());
    execute(sql, values);
    done += size;
  }
  if (own) own->commit();
}

bool Database::inTransaction() const { return state_->depth > 0; }

QStringList Database::queryPlan(const QString& sql) { return state_->engine->plan(sql); }

void Database::createTable(const Table& table) {
  for (const QString& sql : createStatements(table, *state_->engine)) execute(sql);
}

void Database::continueNumbering(const Table& table) { state_->engine->continueNumbering(table); }

void Database::requireInPlace() const { state_->requireInPlace(); }

void Database::compact() {
  requireInPlace();
  state_->engine->compact();
}

void Database::requireWhole(const std::function<void()>& meanwhile) {
  state_->engine->requireWhole(meanwhile);
}

bool Database::copyAsFile(const QString& path, const std::function<void(int done, int of)>& progress) {
  return state_->engine->copyAsFile(path, progress);
}

void Database::interrupt() { state_->engine->interrupt(); }

void Database::prepareSchema() { state_->engine->prepareSchema(); }

Engine& Database::engine() { return *state_->engine; }

QStringList Database::takeRecordedStatements() {
  state_->recording = true;
  return std::exchange(state_->recorded, {});
}

Transaction::Transaction(Database& database) : database_(database), depth_(database.state_->depth + 1) {
  if (depth_ == 1) {
    database_.state_->beginWrite();
  } else {
    database_.state_->engine->run(QStringLiteral("SAVEPOINT step%1").arg(depth_));
  }
  // Only now: code that runs while the user is asked whether to wait is outside this transaction.
  database_.state_->depth = depth_;
}

Transaction::~Transaction() { rollback(); }

void Transaction::commit() {
  if (depth_ == 1) database_.state_->requireInPlace();
  database_.state_->engine->run(depth_ == 1 ? QStringLiteral("COMMIT")
                                            : QStringLiteral("RELEASE step%1").arg(depth_));
  open_ = false;
  --database_.state_->depth;
  if (depth_ == 1) emit dataChanges().written(std::exchange(database_.state_->written, {}));
}

void Transaction::rollback() {
  if (!open_) return;
  open_ = false;
  --database_.state_->depth;
  if (depth_ == 1) database_.state_->written.clear();
  try {
    if (depth_ == 1) {
      database_.state_->engine->run(QStringLiteral("ROLLBACK"));
    } else {
      database_.state_->engine->run(QStringLiteral("ROLLBACK TO step%1").arg(depth_));
      database_.state_->engine->run(QStringLiteral("RELEASE step%1").arg(depth_));
    }
  } catch (const StoreError&) {
    // When the disk is full, the engine has already rolled back the transaction by itself.
  }
}

Snapshot::Snapshot(Database& database) : database_(database) { database_.state_->engine->beginSnapshot(); }

Snapshot::~Snapshot() {
  try {
    database_.state_->engine->run(QStringLiteral("ROLLBACK"));
  } catch (const StoreError&) {
    // The connection is lost, and the snapshot with it.
  }
}

Database* openDatabase() { return theThreadDatabase ? theThreadDatabase : theOpenDatabase.get(); }

ThreadDatabase::ThreadDatabase(Database& database) { theThreadDatabase = &database; }

ThreadDatabase::~ThreadDatabase() { theThreadDatabase = nullptr; }

Database& database() {
  Database* open = openDatabase();
  if (!open) throw StoreError(0, QStringLiteral("Nu este deschisa nici o societate."));
  return *open;
}

void setOpenDatabase(std::unique_ptr<Database> database) { theOpenDatabase = std::move(database); }

Recordset OpenRs(const QString& sql, const Values& values) { return database().query(sql, values); }

Recordset OpenRsClient(const QString& sql, const Values& values) { return OpenRs(sql, values); }

Recordset getDisconectedRecordset(const QString& sql, Database* on, const Values& values) {
  return (on ? *on : database()).query(sql, values);
}

void CloseRs(Recordset& recordset) { recordset = Recordset(); }

int ExecutaSql(const QString& sql, const Values& values) { return database().execute(sql, values); }

}  // namespace velmar
