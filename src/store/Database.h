// One company file: statements with bound values, transactions, and the errors a user can act on.
//
// Several processes work in one file at once. Whoever writes takes the write lock at the start and waits for
// it politely; readers never wait. A committed transaction survives a power cut.
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
  /// Opens a company file or the template. Throws StoreError with a text that says what to do when the file
  /// is missing, damaged, no company, or written by a newer program.
  static std::unique_ptr<Database> open(const QString& path);

  /// Makes an empty file at `path`, which must not exist yet. The caller gives it its tables.
  static std::unique_ptr<Database> create(const QString& path);

  ~Database();
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  const QString& path() const;

  /// Runs a SELECT, or inside a Transaction a statement with RETURNING, and reads it out.
  Recordset query(const QString& sql, const Values& values = {});

  /// Runs a SELECT and hands over the cells of each row, none of them kept: for more rows than memory should
  /// hold.
  void each(const QString& sql, const std::function<void(std::vector<QVariant>&& cells)>& use,
            const Values& values = {});

  /// Runs a statement that gives no rows; gives the number of rows it changed. Outside a Transaction it is
  /// one of its own.
  int execute(const QString& sql, const Values& values = {});

  /// Runs a statement once for each row of values, all in one transaction; gives the number of rows changed.
  int executeEach(const QString& sql, const std::vector<Values>& rows);

  /// Inserts rows. Every row has a value for each column.
  void insertRows(const QString& table, const QStringList& columns, const std::vector<Values>& rows);

  bool inTransaction() const;

  /// The engine's plan of a statement, whose values need not be known, one step a line.
  QStringList queryPlan(const QString& sql);

  /// Makes a table with its indexes, as the description tells.
  void createTable(const Table& table);
  /// Lets the numbers that the engine gives go on behind those that stand in the table.
  void continueNumbering(const Table& table);
  /// Gives back the room of what was deleted. Throws StoreError, and then everything is as it was.
  void compact();
  /// Reads everything; throws StoreError when the database is damaged.
  void requireWhole();
  /// Writes the database as it stands now, while others work, to a file at `path`, which must not exist yet.
  /// `progress` hears how much of how much is done and throws Cancelled to stop. Gives false, and writes
  /// nothing, where the company is in no file.
  bool copyAsFile(const QString& path, const std::function<void(int done, int of)>& progress);

  /// Makes what tables need before they can be made.
  void prepareSchema();

  /// What the sources of the store ask of the connection itself: its catalogue and changes of structure.
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

/// A write transaction: takes the write lock at once, undoes everything unless committed. Inside another one
/// it is a savepoint of that one. After a statement has failed in it nothing is left to do but to undo it.
class Transaction {
 public:
  /// Waits for the write lock; after 5 seconds it asks the user, who may give up (throws Cancelled).
  explicit Transaction(Database& database);
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  void commit();
  /// Undoes the work and gives the lock back before the end of the scope, so that a message can be shown.
  void rollback();

 private:
  Database& database_;
  int depth_;
  bool open_ = true;
};

/// Reads as of one moment, whatever others write meanwhile, for as long as the object lives. Nothing is
/// written meanwhile, and no transaction is open.
class Snapshot {
 public:
  explicit Snapshot(Database& database);
  ~Snapshot();
  Snapshot(const Snapshot&) = delete;
  Snapshot& operator=(const Snapshot&) = delete;

 private:
  Database& database_;
};

/// The open company's database; null while none is open.
Database* openDatabase();

/// The open company's database. Throws StoreError when no company is open.
Database& database();

/// Opens the company file `gCaleBD` + `gNumeBD` names, in place of the one that was open.
void setOpenDatabase(std::unique_ptr<Database> database);

/// Reads a SELECT of the open company out.
Recordset OpenRs(const QString& sql, const Values& values = {});
Recordset OpenRsClient(const QString& sql, const Values& values = {});
/// As OpenRs, on the database given or, without one, on the open company's.
Recordset getDisconectedRecordset(const QString& sql, Database* on = nullptr, const Values& values = {});
/// Empties a record set.
void CloseRs(Recordset& recordset);
/// One statement in a transaction of its own, or in the one that is open; gives the number of rows changed.
int ExecutaSql(const QString& sql, const Values& values = {});

}  // namespace velmar
