#include "store/PostgresEngine.h"

#include <QElapsedTimer>
#include <QThread>

#include "store/PostgresFunctions.h"

namespace velmar::postgres {

namespace {

constexpr int kWriteLock = 0x564C4D52;  // locks of this kind are each database's own
constexpr int kCopyWaitMs = 15'000;
constexpr int kCopyPauseMs = 100;

// Prepared when it is first run, and again on a connection that was made anew.
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

 private:
  void prepare() {
    static int counter = 0;
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
      // A transaction is lost with it; it can be begun again.
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

// The database that every server has, to do something with whole databases from.
Connection maintenance(const Server& server) { return {server, QStringLiteral("postgres")}; }

QString quotedName(const QString& name) {
  QString quoted = name;
  return u'"' + quoted.replace(u'"', QStringLiteral("\"\"")) + u'"';
}

void createEmpty(const Server& server, const QString& name) {
  maintenance(server).run(QStringLiteral("CREATE DATABASE %1 TEMPLATE template0 ENCODING 'UTF8' LOCALE 'C'")
                              .arg(quotedName(name)));
}

}  // namespace

ServerEngine::ServerEngine(const Server& server, const QString& path, bool create)
    : generation_(std::make_shared<int>(1)) {
  const QString name = databaseOnServer(server, path);
  if (create) createEmpty(server, name);
  connection_ = std::make_shared<Connection>(server, name);
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
    // Whether the server had done it when the answer was lost, nobody can tell from here.
    throw StoreError(
        error.number(),
        QStringLiteral("Legatura cu serverul s-a pierdut chiar in timpul salvarii. Verificati daca "
                       "datele au fost salvate inainte de a incerca din nou."));
  }
}

bool ServerEngine::tryBeginWrite() {
  if (connection_->renewIfLost()) ++*generation_;
  connection_->run(QStringLiteral("BEGIN"));
  connection_->setInTransaction(true);
  const Recordset locked = recordsetOf(
      connection_->run(QStringLiteral("SELECT pg_try_advisory_xact_lock(%1) AS locked").arg(kWriteLock)));
  if (locked.first().flag("LOCKED")) return true;
  run(QStringLiteral("ROLLBACK"));
  return false;
}

void ServerEngine::beginSnapshot() {
  if (connection_->renewIfLost()) ++*generation_;
  connection_->run(QStringLiteral("BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY"));
  connection_->setInTransaction(true);
}

// A round trip costs more than the rows that it carries.
int ServerEngine::rowsPerInsert() const { return 128; }

void ServerEngine::continueNumbering(const Table& table) {
  for (const Column& column : table.columns())
    if (column.type == ColumnType::AutoNumber)
      connection_->run(
          QStringLiteral("SELECT setval(pg_get_serial_sequence('%1', '%2'), (SELECT MAX(%2) FROM "
                         "%1)) FROM %1 LIMIT 1")
              .arg(quoted(table.name()), column.name.toLower()));
}

QStringList ServerEngine::plan(const QString& sql) {
  QString known = sql;
  QStringList steps;
  for (const Row& row :
       recordsetOf(connection_->run(QStringLiteral("EXPLAIN ") + known.replace(u'?', "NULL"))))
    steps.append(row.at(0).toString());
  return steps;
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

void ServerEngine::prepareSchema() {
  for (const char* statement : kFunctions) connection_->run(QString::fromLatin1(statement));
}

bool databaseExists(const Server& server, const QString& name) {
  Connection connection = maintenance(server);
  connection.prepare("exists", "SELECT datname FROM pg_database WHERE datname = ?");
  return !recordsetOf(connection.execute("exists", {name})).isEmpty();
}

// The engine refuses to copy a database that anybody is connected to, which the template is for moments only.
void copyDatabase(const Server& server, const QString& from, const QString& to) {
  Connection connection = maintenance(server);
  QElapsedTimer waited;
  waited.start();
  while (true) {
    try {
      connection.run(QStringLiteral("CREATE DATABASE %1 TEMPLATE %2").arg(quotedName(to), quotedName(from)));
      return;
    } catch (const StoreError&) {
      if (waited.elapsed() > kCopyWaitMs) throw;
      QThread::msleep(kCopyPauseMs);
    }
  }
}

void renameDatabase(const Server& server, const QString& from, const QString& to) {
  maintenance(server).run(
      QStringLiteral("ALTER DATABASE %1 RENAME TO %2").arg(quotedName(from), quotedName(to)));
}

void dropDatabase(const Server& server, const QString& name) {
  maintenance(server).run(QStringLiteral("DROP DATABASE IF EXISTS %1 WITH (FORCE)").arg(quotedName(name)));
}

}  // namespace velmar::postgres
