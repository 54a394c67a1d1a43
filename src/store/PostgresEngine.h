// The engine for a company on a PostgreSQL server.
#pragma once

#include "store/Engine.h"
#include "store/PostgresConnection.h"

namespace velmar::postgres {

class ServerEngine : public Engine {
 public:
  /// Connects to the database, after creating it if `create` is set. Throws StoreError.
  ServerEngine(const Server& server, const QString& path, bool create);

  std::shared_ptr<EngineStatement> prepare(const QString& sql) override;
  void run(const QString& sql) override;
  bool tryBeginWrite() override;
  void beginSnapshot() override;
  int rowsPerInsert() const override;
  void continueNumbering(const Table& table) override;
  QStringList plan(const QString& sql) override;
  void compact() override;
  QString declaredType(const Column& column) const override;
  QString indexedColumn(const Table& table, const QString& column) const override;
  QString clusteredSuffix() const override { return {}; }
  QString identifier(const QString& name) const override;
  std::optional<ColumnType> kindOf(const TableShape& table, const ColumnShape& column) const override;
  QStringList ownKinds() override;
  std::vector<StoredStatement> companyTriggers() const override;
  void studyTables() override;
  void interrupt() override;
  void prepareSchema() override;
  QStringList tables() override;
  TableShape tableShape(const QString& table) override;
  std::vector<StoredStatement> indexesOf(const QString& table) override;
  std::vector<StoredStatement> views() override;
  std::vector<StoredStatement> triggers() override;
  void dropTrigger(const QString& name) override;
  void reshape(const TableShape& from, const TableShape& to) override;
  void limitLockWaits() override;
  void setLogin(const QString& login) override { connection_->setLogin(login); }

 private:
  void prepareCommitMarks();
  QString commitMark() const;
  std::optional<bool> wasCommitted();
  QStringList filledTables();
  Recordset ask(const QString& sql, const Values& values = {});
  void alterColumn(const QString& table, const ColumnShape& from, const ColumnShape& to);
  void retype(const QString& alter, const ColumnShape& from, const ColumnShape& to);
  void require(const QString& table, const QString& alter, const ColumnShape& to);
  void numberRows(const QString& table, const QString& column);

  std::shared_ptr<Connection> connection_;
  QString client_;     ///< the key of this connection in the table of commits; empty without a standby
  qint64 commit_ = 0;  ///< the number of the last transaction
  std::shared_ptr<int> generation_;  ///< of the connection: statements prepared on an earlier one are lost
  QHash<QString, std::shared_ptr<EngineStatement>> questions_;  ///< queries on the catalogue
};

/// Marks the database as being created by this process, while the object exists.
class DraftLock {
 public:
  DraftLock(const Server& server, const QString& name);
  /// False while another process creates it.
  bool isHeld() const { return held_; }

 private:
  Connection connection_;
  bool held_ = false;
};

/// The databases of the server whose names are the prefix of the settings followed by a match of the regular
/// expression.
QStringList databasesLike(const Server& server, const QString& expression);
/// Drops an incomplete database, or the remainder of a replacement, unless somebody is creating or using it.
void dropAbandoned(const Server& server, const QString& name);

/// Whether the server has a database of that name.
bool databaseExists(const Server& server, const QString& name);
/// Creates a database as a copy of another one, completely or not at all.
void copyDatabase(const Server& server, const QString& from, const QString& to);
/// Replaces the database `to` by `from`, which no longer exists under its own name afterwards; atomic. Throws
/// StoreError when somebody is connected to either.
void replaceDatabase(const Server& server, const QString& from, const QString& to);
/// Renames a database; connected users are disconnected.
void renameDatabase(const Server& server, const QString& from, const QString& to);
void dropDatabase(const Server& server, const QString& name);

}  // namespace velmar::postgres
