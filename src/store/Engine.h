// What the store asks of a database engine. Nothing above the store knows which one runs.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <QString>

#include "store/Schema.h"
#include "store/Structure.h"

namespace velmar {

/// Takes the cells of a row.
using EachRow = std::function<void(std::vector<QVariant>&& cells)>;

/// Hears how much of how much is done; an exception stops the work.
using EngineProgress = std::function<void(int done, int of)>;

/// A statement prepared once and run as often as needed.
class EngineStatement {
 public:
  virtual ~EngineStatement() = default;

  /// Runs it with a value for each mark and reads the rows out. Throws StoreError.
  virtual Recordset query(const Values& values) = 0;
  /// Runs it and hands over each row, none of them kept. Throws StoreError.
  virtual void each(const Values& values, const EachRow& use) = 0;
  /// Runs it to the end; gives the number of rows changed. Throws StoreError.
  virtual int run(const Values& values) = 0;
  /// Runs it once for each row of values, inside a transaction; gives the number of rows changed. Throws
  /// StoreError, and nothing is left to do then but to undo the transaction.
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

  /// Throws StoreError when the text is no single statement.
  virtual std::shared_ptr<EngineStatement> prepare(const QString& sql) = 0;
  /// Runs a statement without values and rows.
  virtual void run(const QString& sql) = 0;
  /// Begins a transaction with the company's write lock; gives false when another process holds it, at once
  /// or after a moment's wait.
  virtual bool tryBeginWrite() = 0;
  /// Begins a transaction that reads the database as it stands now, whatever others write meanwhile.
  virtual void beginSnapshot() = 0;
  /// The plan of a statement, whose values need not be known, one step a line.
  virtual QStringList plan(const QString& sql) = 0;
  /// Gives back the room of what was deleted. Throws StoreError, and then everything is as it was.
  virtual void compact() = 0;
  /// Reads the whole database and throws StoreError when it is damaged, where the engine keeps it in a file.
  virtual void requireWhole() {}
  /// Writes the database as it stands now to a file of its own kind; `progress` hears the percents and may
  /// throw. Gives false where the engine has no such file.
  virtual bool copyAsFile(const QString&, const EngineProgress&) { return false; }

  /// How a column of that kind is declared, its marks for null and default included.
  virtual QString declaredType(const Column& column) const = 0;
  /// The name as statements of this engine take it, whatever it is; a plain one is the same in any case.
  virtual QString identifier(const QString& name) const { return quotedIdentifier(name); }
  /// What kind of values a column has; nothing for those that only this engine knows.
  virtual std::optional<ColumnType> kindOf(const TableShape& table, const ColumnShape& column) const = 0;
  /// Names what the database has that is neither table nor index nor stored query of a kind that both engines
  /// know: triggers, computed columns and the like.
  virtual QStringList ownKinds() = 0;
  /// How an index names one of its columns, so that what is ordered by them, nulls first where there may be
  /// some, is read from it in order.
  virtual QString indexedColumn(const Table&, const QString& column) const { return column; }
  /// What stands behind the columns of a table whose key has several of them.
  virtual QString clusteredSuffix() const = 0;
  /// How many rows a statement should insert at once.
  virtual int rowsPerInsert() const = 0;
  /// Lets the numbers that the engine gives by itself go on behind those that were inserted.
  virtual void continueNumbering(const Table&) {}
  /// Has the engine look at what the tables hold, after many rows were written at once.
  virtual void studyTables() {}
  /// Makes what the tables need before they can be made.
  virtual void prepareSchema() {}

  /// What the catalogue tells. Names of tables are spelt as `tables` gives them.
  virtual QStringList tables() = 0;
  virtual TableShape tableShape(const QString& table) = 0;
  /// The indexes of a table but for that of its key.
  virtual std::vector<StoredStatement> indexesOf(const QString& table) = 0;
  /// The stored queries, each behind those that it may rest on.
  virtual std::vector<StoredStatement> views() = 0;
  /// Makes a table whose shape is `from` one of shape `to`, which has the same columns and perhaps more, with
  /// its rows and indexes; inside a transaction. Stored queries must not stand on it meanwhile. Throws
  /// StoreError when a value has no place in its column's new type; the transaction is then to be undone.
  virtual void reshape(const TableShape& from, const TableShape& to) = 0;
  /// Lets the changes of structure in the open transaction fail rather than wait long for another user.
  virtual void limitLockWaits() {}
};

}  // namespace velmar
