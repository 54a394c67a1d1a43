#include "store/Database.h"

#include <optional>
#include <QElapsedTimer>
#include <QSqlQuery>
#include <QThread>

#include "store/DataChanges.h"
#include "store/Sqlite.h"
#include "store/SqliteStatement.h"
#include "util/Messages.h"

namespace velmar {

namespace {

constexpr int kLockWaitMs = 5000;
constexpr int kLockPauseMs = 20;
constexpr int kPreparedLimit = 200;
const QString kWaitQuestion = QStringLiteral(
    "Baza de date este folosita in acest moment de alt utilizator.\r\nDoriti sa mai asteptati ?");

std::unique_ptr<Database> theOpenDatabase;

}  // namespace

/// The connection, its prepared statements and the depth of its transactions.
struct Database::Engine {
  QString path;
  QString name;
  QSqlDatabase connection;
  QHash<QString, std::shared_ptr<sqlite::Statement>> prepared;
  int depth = 0;
  QSet<QString> written;  ///< tables that the open transaction has written
  bool recording = false;
  QStringList recorded;

  Engine(const QString& file, bool create) : path(file) {
    static int counter = 0;
    name = QStringLiteral("velmar-%1").arg(++counter);
    try {
      connection = sqlite::open(path, name, create);
    } catch (...) {
      QSqlDatabase::removeDatabase(name);
      throw;
    }
  }

  ~Engine() {
    prepared.clear();
    connection.close();
    connection = QSqlDatabase();
    QSqlDatabase::removeDatabase(name);
  }

  void run(const QString& text) {
    QSqlQuery query(connection);
    if (!query.exec(text)) throw sqlite::describe(query.lastError(), path);
  }

  std::shared_ptr<sqlite::Statement> prepare(const QString& sql) {
    if (recording && !recorded.contains(sql)) recorded.append(sql);
    const auto known = prepared.constFind(sql);
    if (known != prepared.cend()) return *known;
    if (prepared.size() >= kPreparedLimit) prepared.clear();
    auto statement = std::make_shared<sqlite::Statement>(sqlite::handleOf(connection), sql, path);
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
    while (!sqlite::tryBeginWrite(connection, path)) {
      if (waited.elapsed() > kLockWaitMs) {
        if (Mesaj(kWaitQuestion, kRetryCancel + kExclamation) != kResultRetry) throw Cancelled();
        waited.restart();
      }
      QThread::msleep(kLockPauseMs);
    }
  }
};

Database::Database(std::unique_ptr<Engine> engine) : engine_(std::move(engine)) {}

Database::~Database() = default;

std::unique_ptr<Database> Database::open(const QString& path) {
  return std::unique_ptr<Database>(new Database(std::make_unique<Engine>(path, false)));
}

std::unique_ptr<Database> Database::create(const QString& path) {
  return std::unique_ptr<Database>(new Database(std::make_unique<Engine>(path, true)));
}

const QString& Database::path() const { return engine_->path; }

Recordset Database::query(const QString& sql, const Values& values) {
  const auto statement = engine_->prepare(sql);
  if (inTransaction()) engine_->noteWritten(sql);
  statement->bind(values);
  bool onRow = statement->step();
  Recordset result(statement->columns());
  const int width = static_cast<int>(result.columns().size());
  for (; onRow; onRow = statement->step()) {
    std::vector<QVariant> cells;
    cells.reserve(static_cast<size_t>(width));
    for (int i = 0; i < width; ++i) cells.push_back(statement->value(i));
    result.append(std::move(cells));
  }
  statement->reset();
  return result;
}

int Database::execute(const QString& sql, const Values& values) { return executeEach(sql, {values}); }

int Database::executeEach(const QString& sql, const std::vector<Values>& rows) {
  std::optional<Transaction> own;
  if (!inTransaction()) own.emplace(*this);
  int changed = 0;
  const auto statement = engine_->prepare(sql);
  engine_->noteWritten(sql);
  for (const Values& values : rows) {
    statement->bind(values);
    changed += statement->run();
  }
  if (own) own->commit();
  return changed;
}

void Database::insertRows(const QString& table, const QStringList& columns, const std::vector<Values>& rows) {
  if (rows.empty()) return;
  executeEach(QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                  .arg(table, columns.join(QStringLiteral(", ")),
                       QStringList(columns.size(), QStringLiteral("?")).join(QStringLiteral(", "))),
              rows);
}

bool Database::inTransaction() const { return engine_->depth > 0; }

QStringList Database::queryPlan(const QString& sql) {
  constexpr int kDetail = 3;
  sqlite::Statement plan(sqlite::handleOf(engine_->connection), QStringLiteral("EXPLAIN QUERY PLAN ") + sql,
                         path());
  QStringList steps;
  while (plan.step()) steps.append(plan.value(kDetail).toString());
  return steps;
}

QStringList Database::takeRecordedStatements() {
  engine_->recording = true;
  return std::exchange(engine_->recorded, {});
}

Transaction::Transaction(Database& database) : database_(database), depth_(database.engine_->depth + 1) {
  if (depth_ == 1) {
    database_.engine_->beginWrite();
  } else {
    database_.engine_->run(QStringLiteral("SAVEPOINT step%1").arg(depth_));
  }
  // Only now: what runs while the question of the wait stands is outside this transaction.
  database_.engine_->depth = depth_;
}

Transaction::~Transaction() { rollback(); }

void Transaction::commit() {
  database_.engine_->run(depth_ == 1 ? QStringLiteral("COMMIT")
                                     : QStringLiteral("RELEASE step%1").arg(depth_));
  open_ = false;
  --database_.engine_->depth;
  if (depth_ == 1) emit dataChanges().written(std::exchange(database_.engine_->written, {}));
}

void Transaction::rollback() {
  if (!open_) return;
  open_ = false;
  --database_.engine_->depth;
  if (depth_ == 1) database_.engine_->written.clear();
  try {
    if (depth_ == 1) {
      database_.engine_->run(QStringLiteral("ROLLBACK"));
    } else {
      database_.engine_->run(QStringLiteral("ROLLBACK TO step%1").arg(depth_));
      database_.engine_->run(QStringLiteral("RELEASE step%1").arg(depth_));
    }
  } catch (const StoreError&) {
    // After a full disk the engine has already undone the transaction by itself; nothing is left to undo.
  }
}

Database* openDatabase() { return theOpenDatabase.get(); }

Database& database() {
  if (!theOpenDatabase) throw StoreError(0, QStringLiteral("Nu este deschisa nici o societate."));
  return *theOpenDatabase;
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
