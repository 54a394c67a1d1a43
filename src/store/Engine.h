// Interface of a database engine. Code outside the store does not depend on which engine is used.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <QString>

#include "store/Schema.h"
#include "store/Structure.h"

namespace velmar {

/// Receives the cells of a row.
using EachRow = std::function<void(std::vector<QVariant>&& cells)>;

/// Called with the amount done and the total; an exception stops the work.
using EngineProgress = std::function<void(int done, int of)>;

/// A prepared statement.
class EngineStatement {
 public:
  virtual ~EngineStatement() = default;

  /// Runs it with a value for each parameter and reads all rows. Throws StoreError.
  virtual Recordset query(const Values& values) = 0;
  /// Runs it and passes on each row without storing it. Throws StoreError.
  virtual void each(const Values& values, const EachRow& use) = 0;
  /// Runs it to the end; returns the number of rows changed. Throws StoreError.
  virtual int run(const Values& values) = 0;
  /// Runs it once for each row of values, inside a transaction; returns the number of rows changed. After a
  /// StoreError the transaction can only be rolled back.
  virtual int runEach(const std::vector<Values>& rows) {
    int changed = 0;
    for (const Values& values : rows) changed += run(values);
    return changed;
  }
};

/// A connection to one database.
class Engine {
 public:
  virtual ~Engine() = default;

  /// Throws StoreError when the text is not exactly one statement.
  virtual std::shared_ptr<EngineStatement> prepare(const QString& sql) = 0;
  /// Runs a statement without parameters and result rows.
  virtual void run(const QString& sql) = 0;
  /// Begins a transaction with the company's write lock; returns false, at once or after a short wait, when
  /// another process holds it.
  virtual bool tryBeginWrite() = 0;
  /// Begins a transaction that reads the current state of the database, whatever others write meanwhile.
  virtual void beginSnapshot() = 0;
  /// The plan of a statement, without its values, one line for each step.
  virtual QStringList plan(const QString& sql) = 0;
  /// Releases the space of deleted rows. If it throws StoreError, nothing has changed.
  virtual void compact() = 0;
  /// Checks the whole database and throws StoreError if it is damaged; only for engines that store it in a
  /// file. `meanwhile` is called now and then; its exception stops the check.
  virtual void requireWhole(const std::function<void()>& /*meanwhile*/) {}
  /// Throws StoreError when the open file is not the one that is found at its path any more.
  virtual void requireInPlace() {}
  /// Writes the current state of the database to a file of the engine; `progress` is called with percentages
  /// and may throw. Returns false if the engine has no such file.
  virtual bool copyAsFile(const QString&, const EngineProgress&) { return false; }

  /// Makes the running statement fail; called from another thread.
  virtual void interrupt() = 0;

  /// The declaration of a column of that type, including NOT NULL and default.
  virtual QString declaredType(const Column& column) const = 0;
  /// The name, quoted as statements of this engine require; a plain name is not case-sensitive.
  virtual QString identifier(const QString& name) const { return quotedIdentifier(name); }
  /// The type of a column; nothing for a type that only this engine has.
  virtual std::optional<ColumnType> kindOf(const TableShape& table, const ColumnShape& column) const = 0;
  /// The names of objects that only this engine supports, such as computed columns.
  virtual QStringList ownKinds() = 0;
  /// The triggers that each company has, in this engine's SQL.
  virtual std::vector<StoredStatement> companyTriggers() const = 0;
  /// How an index declares one of its columns, so that rows ordered by it, nulls first if it is nullable, are
  /// read from the index in order.
  virtual QString indexedColumn(const Table&, const QString& column) const { return column; }
  /// The suffix of CREATE TABLE for a table whose key has several columns.
  virtual QString clusteredSuffix() const = 0;
  /// How many rows a statement should insert at once.
  virtual int rowsPerInsert() const = 0;
  /// Makes automatic numbering continue after the highest inserted number.
  virtual void continueNumbering(const Table&) {}
  /// Updates the engine's statistics of the tables, after many rows were written at once.
  virtual void studyTables() {}
  /// Updates those statistics that the statements of this connection missed or that are outdated; quick.
  virtual void refreshStatistics() {}
  /// Shows the login of the user to the other users of the database, where the engine can.
  virtual void setLogin(const QString&) {}
  /// Creates what the tables require before they are created.
  virtual void prepareSchema() {}

  /// Reading the catalogue. Names of tables are spelt as `tables` returns them.
  virtual QStringList tables() = 0;
  virtual TableShape tableShape(const QString& table) = 0;
  /// The indexes of a table except that of its key.
  virtual std::vector<StoredStatement> indexesOf(const QString& table) = 0;
  /// The stored queries, each after those that it may use.
  virtual std::vector<StoredStatement> views() = 0;
  /// The triggers, including those that only this company has.
  virtual std::vector<StoredStatement> triggers() = 0;
  virtual void dropTrigger(const QString& name) = 0;
  /// Changes a table from shape `from` to shape `to`, which has the same columns and possibly more, with its
  /// rows and indexes; inside a transaction. No stored query or company trigger may use it
  /// meanwhile. Throws StoreError when a
  /// value does not fit its column's new type; the caller must then roll back.
  virtual void reshape(const TableShape& from, const TableShape& to) = 0;
  /// Makes structure changes in the open transaction fail instead of waiting long for another user.
  virtual void limitLockWaits() {}
};

}  // namespace velmar
