#include "store/PostgresEngine.h"

#include <atomic>
#include <QElapsedTimer>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QThread>
#include <QUuid>

#include "store/PostgresFunctions.h"
#include "util/Errors.h"

namespace velmar::postgres {

namespace {

constexpr int kWriteLock = 0x564C4D52;  // advisory locks are separate for each database
constexpr int kDraftLock = 0x564C4444;
constexpr int kMarksLock = 0x564C434D;
const QString kOldMark = QStringLiteral(".vechi");
constexpr int kCopyWaitMs = 4000;
constexpr int kCopyPauseMs = 100;
constexpr int kCompactWaitMs = 5000;
constexpr int kLockWaitMs = 1000;
constexpr int kOutcomeWaitMs = 10'000;
constexpr int kBusy = 5;

// Prepared when it is first run, and again after a reconnection.
class ServerStatement : public EngineStatement {
 public:
  ServerStatement(std::shared_ptr<Connection> connection, std::shared_ptr<int> generation, const QString& sql)
      : connection_(std::move(connection)), generation_(std::move(generation)), sql_(sql) {
    prepare();
  }

  Recordset query(const Values& values) override {
    const Result result = execute(values);
    if (spelling_.isEmpty()) spelling_ = spellingOf(sql_);
    return recordsetOf(result, spelling_);
  }
  void each(const Values& values, const EachRow& use) override {
    requireConnection();
    connection_->each(name_, values, use);
  }
  int run(const Values& values) override { return changedBy(execute(values)); }
  int runEach(const std::vector<Values>& rows) override {
    if (rows.size() == 1) return run(rows.front());
    requireConnection();
    return connection_->executeEach(name_, rows);
  }

 private:
  void prepare() {
    static std::atomic<int> counter = 0;
    name_ = "velmar" + QByteArray::number(++counter);
    connection_->prepare(name_, sql_);
    prepared_ = *generation_;
  }

  void requireConnection() {
    if (connection_->renewIfLost()) ++*generation_;
    if (prepared_ != *generation_) prepare();
  }

  Result execute(const Values& values) {
    requireConnection();
    try {
      return connection_->execute(name_, values);
    } catch (const PlanOutdated&) {
      // An open transaction is lost with it; it can be started again.
      prepared_ = 0;
      if (connection_->inFailedTransaction()) throw;
      connection_->forget(name_);
      prepare();
      return connection_->execute(name_, values);
    }
  }

  std::shared_ptr<Connection> connection_;
  std::shared_ptr<int> generation_;
  QString sql_;
  QByteArray name_;
  Spelling spelling_;
  int prepared_ = 0;
};

// A connection to the database that every server has, for commands on whole databases.
Connection maintenance(const Server& server) { return {server, QStringLiteral("postgres")}; }

QString quotedName(const QString& name) {
  QString quoted = name;
  return u'"' + quoted.replace(u'"', QStringLiteral("\"\"")) + u'"';
}

void createEmpty(const Server& server, const QString& name) {
  maintenance(server).run(QStringLiteral("CREATE DATABASE %1 TEMPLATE template0 ENCODING 'UTF8' LOCALE 'C'")
                              .arg(quotedName(name)));
}

// The engine refuses to copy or rename a database with connections. Connections to the template are short,
// but the server may keep a connection for a moment after it was closed: so this retries.
void runWhenFree(const Server& server, const QString& sql) {
  Connection connection = maintenance(server);
  QElapsedTimer waited;
  waited.start();
  while (true) {
    try {
      connection.run(sql);
      return;
    } catch (const StoreError& error) {
      if (error.number() != kBusy || waited.elapsed() > kCopyWaitMs) throw;
      QThread::msleep(kCopyPauseMs);
    }
  }
}

}  // namespace

ServerEngine::ServerEngine(const Server& server, const QString& path, bool create)
    : generation_(std::make_shared<int>(1)) {
  const QString name = databaseOnServer(server, path);
  if (create) createEmpty(server, name);
  connection_ = std::make_shared<Connection>(server, name);
  if (server.hasStandby()) prepareCommitMarks();
}

// Each transaction writes its number into the row of its connection. If the answer to a COMMIT is lost, the
// row shows on the server that works then, whichever it is, whether it was committed. Numbers of the server's
// own transactions do not: a promoted standby may use them again.
void ServerEngine::prepareCommitMarks() {
  client_ = QUuid::createUuid().toString(QUuid::WithoutBraces);
  if (!recordsetOf(connection_->run(QStringLiteral("SELECT to_regclass('velmar_internal.commits') AS found")))
           .first()
           .isNull("found"))
    return;
  connection_->run(
      QStringLiteral("BEGIN; SELECT pg_advisory_xact_lock(%1); CREATE SCHEMA IF NOT EXISTS velmar_internal; "
                     "CREATE TABLE IF NOT EXISTS velmar_internal.commits (client UUID PRIMARY KEY, number "
                     "BIGINT, moment TIMESTAMPTZ); COMMIT")
          .arg(kMarksLock));
}

QString ServerEngine::commitMark() const {
  return QStringLiteral(
             "INSERT INTO velmar_internal.commits (client, number, moment) VALUES ('%1', %2, now()) "
             "ON CONFLICT (client) DO UPDATE SET number = excluded.number, moment = excluded.moment")
      .arg(client_)
      .arg(commit_);
}

// Whether the last transaction was committed; nothing if that cannot be found out. The lock waits for a
// server process that is still committing it; the own commit waits until the standby has it too.
std::optional<bool> ServerEngine::wasCommitted() {
  if (client_.isEmpty()) return std::nullopt;
  try {
    if (connection_->renewIfLost()) ++*generation_;
    connection_->run(QStringLiteral("BEGIN; SET LOCAL lock_timeout = %1; SELECT pg_advisory_xact_lock(%2)")
                         .arg(kOutcomeWaitMs)
                         .arg(kWriteLock));
    const Recordset mark = recordsetOf(connection_->run(
        QStringLiteral("SELECT number FROM velmar_internal.commits WHERE client = '%1'").arg(client_)));
    const bool committed = !mark.isEmpty() && mark.first().integer("number") == commit_;
    ++commit_;
    connection_->run(commitMark());
    connection_->run(QStringLiteral("COMMIT"));
    return committed;
  } catch (const StoreError&) {
    return std::nullopt;
  }
}

std::shared_ptr<EngineStatement> ServerEngine::prepare(const QString& sql) {
  if (connection_->renewIfLost()) ++*generation_;
  return std::make_shared<ServerStatement>(connection_, generation_, sql);
}

void ServerEngine::run(const QString& sql) {
  const bool commits = sql == QStringLiteral("COMMIT");
  if (commits || sql == QStringLiteral("ROLLBACK")) connection_->setInTransaction(false);
  try {
    connection_->run(sql);
  } catch (const StoreError& error) {
    if (!commits || !connection_->isLost()) throw;
    const auto committed = wasCommitted();
    if (committed && *committed) return;
    if (committed) throw;
    throw StoreError(
        error.number(),
        QStringLiteral("Legatura cu serverul s-a pierdut chiar in timpul salvarii. Verificati daca "
                       "datele au fost salvate inainte de a incerca din nou."));
  }
}

// One round trip. The server keeps waiting writers in order and wakes the next one at once. Transactions find
// rows by keys, for which a generic plan is as good as a custom one.
bool ServerEngine::tryBeginWrite() {
  if (connection_->renewIfLost()) ++*generation_;
  connection_->setInTransaction(true);
  try {
    QString begin = QStringLiteral(
                        "BEGIN; SET LOCAL lock_timeout = %1; SELECT pg_advisory_xact_lock(%2); "
                        "SET LOCAL lock_timeout = 0; SET LOCAL plan_cache_mode = auto")
                        .arg(kLockWaitMs)
                        .arg(kWriteLock);
    ++commit_;
    if (!client_.isEmpty()) begin += QStringLiteral("; ") + commitMark();
    connection_->run(begin);
    return true;
  } catch (const StoreError& error) {
    const bool isHeld = error.number() == kBusy && connection_->inFailedTransaction();
    if (connection_->isLost())
      connection_->setInTransaction(false);
    else
      run(QStringLiteral("ROLLBACK"));
    if (isHeld) return false;
    throw;
  }
}

void ServerEngine::beginSnapshot() {
  if (connection_->renewIfLost()) ++*generation_;
  connection_->run(QStringLiteral("BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY"));
  connection_->setInTransaction(true);
}

void ServerEngine::interrupt() { connection_->interrupt(); }

// A round trip costs more than the rows that it transfers.
int ServerEngine::rowsPerInsert() const { return 128; }

void ServerEngine::continueNumbering(const Table& table) {
  for (const Column& column : table.columns())
    if (column.type == ColumnType::AutoNumber)
      connection_->run(
          QStringLiteral("SELECT setval(pg_get_serial_sequence('%1', '%2'), (SELECT MAX(%3) FROM "
                         "%4)) FROM %4 LIMIT 1")
              .arg(identifier(table.name()).replace(u'\'', QStringLiteral("''")),
                   identifier(column.name).mid(1).chopped(1).replace(u'\'', QStringLiteral("''")),
                   identifier(column.name), identifier(table.name())));
}

// The generic plan: with nulls as values the conditions would be optimized away.
QStringList ServerEngine::plan(const QString& sql) {
  static const QRegularExpression kMark(QStringLiteral("\\$\\d+"));
  const QByteArray name("velmar_plan");
  connection_->prepare(name, sql);
  const QStringList nulls(withNumberedMarks(sql).count(kMark), QStringLiteral("NULL"));
  QString asked = QStringLiteral("EXPLAIN EXECUTE ") + QString::fromLatin1(name);
  if (!nulls.isEmpty()) asked += QStringLiteral(" (%1)").arg(nulls.join(QStringLiteral(", ")));
  const auto forgotten = qScopeGuard([&] {
    try {
      connection_->forget(name);
    } catch (const StoreError&) {
      // The connection is lost, and the statement with it.
    }
  });
  run(QStringLiteral("SET plan_cache_mode = force_generic_plan"));
  const Recordset plan = recordsetOf(connection_->run(asked));
  run(QStringLiteral("RESET plan_cache_mode"));
  QStringList steps;
  for (const Row& row : plan) steps.append(row.at(0).toString());
  return steps;
}

// A table is locked while it is rewritten, so the wait for it is limited. An empty table is skipped: the
// engine plans worse for a table known to be empty than for one without statistics.
void ServerEngine::compact() {
  run(QStringLiteral("SET lock_timeout = %1").arg(kCompactWaitMs));
  const auto asBefore = qScopeGuard([this] {
    try {
      run(QStringLiteral("RESET lock_timeout"));
    } catch (const StoreError&) {
      // The connection is lost, and its settings with it.
    }
  });
  for (const QString& table : filledTables()) run(QStringLiteral("VACUUM (FULL, ANALYZE) ") + table);
  if (!client_.isEmpty())
    run(QStringLiteral("DELETE FROM velmar_internal.commits WHERE moment < now() - INTERVAL '30 days'"));
}

QStringList ServerEngine::filledTables() {
  QStringList names;
  for (const QString& table : tables()) {
    const QString name = quotedIdentifier(table);
    if (!recordsetOf(connection_->run(QStringLiteral("SELECT 1 AS found FROM %1 LIMIT 1").arg(name)))
             .isEmpty())
      names.append(name);
  }
  return names;
}

// Index-only scans require that VACUUM has marked all rows as visible.
void ServerEngine::studyTables() {
  for (const QString& table : filledTables()) run(QStringLiteral("VACUUM (ANALYZE) ") + table);
}

QString ServerEngine::declaredType(const Column& column) const {
  switch (column.type) {
    case ColumnType::Text:
      return QStringLiteral("CITEXT");
    case ColumnType::Integer:
      return QStringLiteral("BIGINT");
    case ColumnType::AutoNumber:
      return QStringLiteral("BIGINT GENERATED BY DEFAULT AS IDENTITY");
    case ColumnType::Boolean:
      return QStringLiteral("INTEGER NOT NULL DEFAULT 0");
    case ColumnType::Real:
      return QStringLiteral("DOUBLE PRECISION") +
             (column.zeroDefault ? QStringLiteral(" NOT NULL DEFAULT 0") : QString());
    case ColumnType::Date:
      return QStringLiteral("DATE");
    case ColumnType::Time:
      return QStringLiteral("TIME");
    case ColumnType::DateTime:
      return QStringLiteral("TIMESTAMP");
  }
  return {};
}

QString ServerEngine::indexedColumn(const Table& table, const QString& column) const {
  return table.isNullable(column) ? column + QStringLiteral(" NULLS FIRST") : column;
}

void ServerEngine::prepareSchema() {
  for (const char* statement : kFunctions) connection_->run(QString::fromLatin1(statement));
}

bool databaseExists(const Server& server, const QString& name) {
  Connection connection = maintenance(server);
  connection.prepare("exists", "SELECT datname FROM pg_database WHERE datname = ?");
  return !recordsetOf(connection.execute("exists", {name})).isEmpty();
}

DraftLock::DraftLock(const Server& server, const QString& name) : connection_(maintenance(server)) {
  connection_.prepare("draft",
                      QStringLiteral("SELECT pg_try_advisory_lock(%1, HASHTEXT(?)) AS held").arg(kDraftLock));
  held_ = recordsetOf(connection_.execute("draft", {name})).first().flag("held");
}

QStringList databasesLike(const Server& server, const QString& expression) {
  Connection connection = maintenance(server);
  connection.prepare("like",
                     "SELECT datname AS name FROM pg_database WHERE STARTS_WITH(datname, ?) "
                     "AND SUBSTR(datname, LENGTH(?) + 1) ~ ? ORDER BY datname");
  QStringList names;
  for (const Row& row : recordsetOf(connection.execute(
           "like", {server.prefix, server.prefix, QStringLiteral("^(%1)$").arg(expression)})))
    names.append(row.text("name"));
  return names;
}

void dropAbandoned(const Server& server, const QString& name) {
  const QString draft = name.endsWith(kOldMark) ? name.chopped(kOldMark.size()) : name;
  const DraftLock lock(server, draft);
  if (!lock.isHeld()) return;
  try {
    maintenance(server).run(QStringLiteral("DROP DATABASE IF EXISTS ") + quotedName(name));
  } catch (const StoreError&) {
    // The database is in use.
  }
}

void copyDatabase(const Server& server, const QString& from, const QString& to) {
  runWhenFree(server, QStringLiteral("CREATE DATABASE %1 TEMPLATE %2").arg(quotedName(to), quotedName(from)));
}

// Statements sent together form one transaction.
void replaceDatabase(const Server& server, const QString& from, const QString& to) {
  const QString rename = QStringLiteral("ALTER DATABASE %1 RENAME TO %2");
  const QString old = from + kOldMark;
  dropDatabase(server, old);
  runWhenFree(server, rename.arg(quotedName(to), quotedName(old)) + QStringLiteral("; ") +
                          rename.arg(quotedName(from), quotedName(to)));
  dropDatabase(server, old);
}

void renameDatabase(const Server& server, const QString& from, const QString& to) {
  maintenance(server).run(
      QStringLiteral("ALTER DATABASE %1 RENAME TO %2").arg(quotedName(from), quotedName(to)));
}

void dropDatabase(const Server& server, const QString& name) {
  maintenance(server).run(QStringLiteral("DROP DATABASE IF EXISTS %1 WITH (FORCE)").arg(quotedName(name)));
}

}  // namespace velmar::postgres
