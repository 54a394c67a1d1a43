// A connection to a PostgreSQL server by its own C interface, the text of its errors, and what is done with
// whole databases.
#pragma once

#include <functional>
#include <memory>
#include <QStringList>
#include <QVariant>

#include "store/Row.h"
#include "store/Server.h"
#include "util/Errors.h"

struct pg_conn;
struct pg_result;

namespace velmar::postgres {

using Result = std::unique_ptr<pg_result, void (*)(pg_result*)>;

/// How a connection names itself to the server: program, computer, login.
QString connectionName(const QString& login);

class Connection {
 public:
  /// Throws StoreError.
  Connection(const Server& server, const QString& database);

  /// Runs one statement without values. Throws StoreError.
  Result run(const QString& sql);
  /// Prepares a statement, its marks "?", under that name.
  void prepare(const QByteArray& name, const QString& sql);
  Result execute(const QByteArray& name, const Values& values);
  /// Runs the statement for each row of values without waiting for one answer before the next question; gives
  /// the number of rows changed. Throws the first error.
  int executeEach(const QByteArray& name, const std::vector<Values>& rows);
  /// Hands over the rows one by one, none of them kept.
  void each(const QByteArray& name, const Values& values,
            const std::function<void(std::vector<QVariant>&& cells)>& use);
  void forget(const QByteArray& name);

  /// Whether an error has left a transaction in which nothing but undoing it is possible.
  bool inFailedTransaction() const;

  /// Makes a connection that was lost anew and tells whether it did: what was prepared on it is gone. Throws
  /// StoreError while a transaction stands: what it did is gone as well, and nothing may follow it.
  bool renewIfLost();
  bool isLost() const;
  /// A transaction begins or ends.
  void setInTransaction(bool in) { inTransaction_ = in; }

 private:
  Result checked(pg_result* result);
  void connect(const Server& server, const QString& password);
  bool wantsPassword() const;
  int pipelined(const QByteArray& name, const Values* rows, size_t count);

  std::unique_ptr<pg_conn, void (*)(pg_conn*)> handle_;
  QString database_;
  bool inTransaction_ = false;
  bool farewell_ = false;  ///< the server said that it ends the connection
};

/// The tables have changed since a statement was prepared: it has to be prepared anew.
class PlanOutdated : public StoreError {
 public:
  using StoreError::StoreError;
};

/// Spellings of column names by their small letters.
using Spelling = QHash<QString, QString>;

/// How the statement spells the columns that it gives: by their aliases, else as their tables are described.
Spelling spellingOf(const QString& sql);

/// The rows of a result with the types that the other engine would give: whole numbers, doubles, texts, dates
/// as ISO text. Columns that no spelling is known of keep their small letters.
Recordset recordsetOf(const Result& result, const Spelling& spelling = {});

/// The number of rows that the statement changed.
int changedBy(const Result& result);

/// The statement with the marks of this engine ($1, $2 ...).
QString withNumberedMarks(const QString& sql);

}  // namespace velmar::postgres
