// One company database: statements with bound values, transactions, and errors with advice for the user.
//
// Several processes use one database at the same time. A writer takes the write lock at the start and waits
// for it if necessary; readers never wait. A committed transaction survives a power cut.
#pragma once

#include <functional>
#include <memory>
#include <QString>

#include "store/Row.h"

namespace velmar {

class Engine;
class Table;

class Database {
 public:
  /// Opens a company file or the template. Throws StoreError with advice when the file is missing, damaged,
  /// not a company, or written by a newer program.
  static std::unique_ptr<Database> open(const QString& path);

  /// Creates an empty file at `path`, which must not exist yet. The caller creates the tables.
  static std::unique_ptr<Database> create(const QString& path);

  ~Database();
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  const QString& path() const;

  /// Runs a SELECT, or inside a Transaction a statement with RETURNING, and reads all rows.
  Recordset query(const QString& sql, const Values& values = {});

  /// Runs a SELECT and passes on the cells of each row without storing them: for results too large for
  /// memory.
  void each(const QString& sql, const std::function<void(std::vector<QVariant>&& cells)>& use,
            const Values& values = {});

  /// Runs a statement that returns no rows; returns the number of rows changed. Outside a Transaction it is a
  /// transaction of its own.
  int execute(const QString& sql, const Values& values = {});

  /// Runs a statement once for each row of values, all in one transaction; returns the number of rows
  /// changed.
  int executeEach(const QString& sql, const std::vector<Values>& rows);

  /// Inserts rows. Every row has a value for each column.
  void insertRows(const QString& table, const QStringList& columns, const std::vector<Values>& rows);

  bool inTransaction() const;

  /// The engine's plan of a statement, without its values, one line for each step.
  QStringList queryPlan(const QString& sql);

  /// Creates a table with its indexes, as described.
  void createTable(const Table& table);
  /// Makes automatic numbering continue after the highest number in the table.
  void continueNumbering(const Table& table);
  /// Throws StoreError when the open file is no longer the one at its path; for the open company, the last
  /// documents are then offered to be saved elsewhere. Every transaction checks this.
  void requireInPlace() const;
  /// Releases the space of deleted rows. If it throws StoreError, nothing has changed.
  void compact();
  /// Checks the whole database; throws StoreError if it is damaged. `meanwhile` is called now and then; its
  /// exception stops the check.
  void requireWhole(const std::function<void()>& meanwhile = {});
  /// Writes the current state of the database, while others work, to a file at `path`, which must not exist
  /// yet. `progress` is called with the amount done and the total, and throws Cancelled to stop. Returns
  /// false, and writes nothing, if the company is not in a file.
  bool copyAsFile(const QString& path, const std::function<void(int done, int of)>& progress);

  /// Makes the statement that another thread runs here fail soon with StoreError. Only this may be called
  /// while another thread uses the object.
  void interrupt();

  /// Creates the SQL functions that tables require. To be called before createTable().
  void prepareSchema();

  /// The engine, for code of the store that reads the catalogue or changes the structure.
  Engine& engine();

  /// Texts of the statements run since the last call, each once; recording starts with the first call.
  QStringList takeRecordedStatements();

 private:
  friend class Transaction;
  friend class Snapshot;
  struct State;
  explicit Database(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

/// A write transaction: takes the write lock at once and rolls back unless committed. Inside another
/// transaction it is a savepoint. After a statement has failed in it, it can only be rolled back.
class Transaction {
 public:
  /// Waits for the write lock; after 5 seconds it asks the user, who may give up (throws Cancelled).
  explicit Transaction(Database& database);
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  void commit();
  /// Rolls back and releases the lock before the end of the scope, so that a message can be shown.
  void rollback();

 private:
  Database& database_;
  int depth_;
  bool open_ = true;
};

/// While the object exists, all reads see the same state, whatever others write. This process must not write
/// or have a transaction open meanwhile.
class Snapshot {
 public:
  explicit Snapshot(Database& database);
  ~Snapshot();
  Snapshot(const Snapshot&) = delete;
  Snapshot& operator=(const Snapshot&) = delete;

 private:
  Database& database_;
};

/// The open company's database, in this thread; null while none is open.
Database* openDatabase();

/// While the object exists, this connection is the open company's database in this thread.
class ThreadDatabase {
 public:
  explicit ThreadDatabase(Database& database);
  ~ThreadDatabase();
  ThreadDatabase(const ThreadDatabase&) = delete;
  ThreadDatabase& operator=(const ThreadDatabase&) = delete;
};

/// The open company's database. Throws StoreError when no company is open.
Database& database();

/// Makes it the open company's database, in place of the previous one; null closes the company.
void setOpenDatabase(std::unique_ptr<Database> database);

/// Runs a SELECT on the open company and reads all rows.
Recordset OpenRs(const QString& sql, const Values& values = {});
Recordset OpenRsClient(const QString& sql, const Values& values = {});
/// As OpenRs, on the database given or, without one, on the open company's.
Recordset getDisconectedRecordset(const QString& sql, Database* on = nullptr, const Values& values = {});
/// Empties a record set.
void CloseRs(Recordset& recordset);
/// Runs one statement in its own transaction, or in the open one; returns the number of rows changed.
int ExecutaSql(const QString& sql, const Values& values = {});

}  // namespace velmar
