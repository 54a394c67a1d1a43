#include "store/Database.h"

#include <optional>
#include <QElapsedTimer>
#include <QSet>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QThread>

#include "store/Sqlite.h"
#include "util/Messages.h"

namespace velmar {

namespace {

constexpr int kLockWaitMs = 5000;
constexpr int kLockPauseMs = 20;
constexpr int kPreparedLimit = 200;
constexpr int kBoundLimit = 900;  // values in one statement that every engine takes
const QString kWaitQuestion = QStringLiteral(
    "Baza de date este folosita in acest moment de alt utilizator.\r\nDoriti sa mai asteptati ?");

std::unique_ptr<Database> theOpenDatabase;

}  // namespace

/// The connection, its prepared statements and the depth of its transactions.
struct Database::Engine {
  QString path;
  QString name;
  QSqlDatabase connection;
  QHash<QString, std::shared_ptr<QSqlQuery>> prepared;
  int depth = 0;
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

  std::shared_ptr<QSqlQuery> prepare(const QString& sql) {
    if (recording && !recorded.contains(sql)) recorded.append(sql);
    const auto known = prepared.constFind(sql);
    if (known != prepared.cend()) return *known;
    if (prepared.size() >= kPreparedLimit) prepared.clear();
    auto query = std::make_shared<QSqlQuery>(connection);
    query->setForwardOnly(true);
    if (!query->prepare(sql)) throw sqlite::describe(query->lastError(), path);
    prepared.insert(sql, query);
    return query;
  }

  std::shared_ptr<QSqlQuery> start(const QString& sql, const Values& values) {
    auto query = prepare(sql);
    for (size_t i = 0; i < values.size(); ++i) query->bindValue(static_cast<int>(i), values[i].data());
    if (!query->exec()) {
      const StoreError error = sqlite::describe(query->lastError(), path);
      query->finish();
      throw error;
    }
    return query;
  }

  void beginWrite() {
    QElapsedTimer waited;
    waited.start();
    while (!sqlite::tryBeginWrite(connection)) {
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
  const auto query = engine_->start(sql, values);
  const QSqlRecord record = query->record();
  const int width = record.count();
  QStringList names;
  names.reserve(width);
  for (int i = 0; i < width; ++i) names.append(record.fieldName(i));
  Recordset result(std::make_shared<Columns>(names));
  while (query->next()) {
    std::vector<QVariant> cells(static_cast<size_t>(width));
    for (int i = 0; i < width; ++i) cells[static_cast<size_t>(i)] = query->value(i);
    result.append(std::move(cells));
  }
  const QSqlError error = query->lastError();
  query->finish();
  if (error.isValid()) throw sqlite::describe(error, engine_->path);
  return result;
}

int Database::execute(const QString& sql, const Values& values) {
  if (!inTransaction()) {
    Transaction own(*this);
    const int changed = execute(sql, values);
    own.commit();
    return changed;
  }
  const auto query = engine_->start(sql, values);
  const int changed = query->numRowsAffected();
  query->finish();
  return changed;
}

void Database::insertRows(const QString& table, const QStringList& columns, const std::vector<Values>& rows) {
  if (rows.empty()) return;
  std::optional<Transaction> own;
  if (!inTransaction()) own.emplace(*this);
  const QString head =
      QStringLiteral("INSERT INTO %1 (%2) VALUES ").arg(table, columns.join(QStringLiteral(", ")));
  const QString marks = QStringLiteral("(") +
                        QStringList(columns.size(), QStringLiteral("?")).join(QStringLiteral(", ")) +
                        QStringLiteral(")");
  const size_t most = std::max<size_t>(1, static_cast<size_t>(kBoundLimit / columns.size()));
  for (size_t from = 0; from < rows.size(); from += most) {
    const size_t count = std::min(most, rows.size() - from);
    Values values;
    values.reserve(count * static_cast<size_t>(columns.size()));
    for (size_t i = from; i < from + count; ++i) values.insert(values.end(), rows[i].begin(), rows[i].end());
    execute(head + QStringList(static_cast<int>(count), marks).join(QStringLiteral(", ")), values);
  }
  if (own) own->commit();
}

bool Database::hasTable(const QString& table) {
  return engine_->connection.tables().contains(table, Qt::CaseInsensitive);
}

bool Database::inTransaction() const { return engine_->depth > 0; }

QStringList Database::queryPlan(const QString& sql) {
  QStringList steps;
  QSqlQuery plan(engine_->connection);
  if (!plan.exec(QStringLiteral("EXPLAIN QUERY PLAN ") + sql))
    throw sqlite::describe(plan.lastError(), path());
  while (plan.next()) steps.append(plan.value(3).toString());
  return steps;
}

QStringList Database::takeRecordedStatements() {
  engine_->recording = true;
  return std::exchange(engine_->recorded, {});
}

Transaction::Transaction(Database& database) : database_(database), depth_(++database.engine_->depth) {
  try {
    if (depth_ == 1) {
      database_.engine_->beginWrite();
    } else {
      database_.engine_->run(QStringLiteral("SAVEPOINT step%1").arg(depth_));
    }
  } catch (...) {
    --database_.engine_->depth;
    throw;
  }
}

Transaction::~Transaction() { rollback(); }

void Transaction::commit() {
  database_.engine_->run(depth_ == 1 ? QStringLiteral("COMMIT")
                                     : QStringLiteral("RELEASE step%1").arg(depth_));
  open_ = false;
  --database_.engine_->depth;
}

void Transaction::rollback() {
  if (!open_) return;
  open_ = false;
  --database_.engine_->depth;
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
