// A connection to a PostgreSQL server by its own C interface, the text of its errors, and what is done with
// whole databases.
#pragma once

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

class Connection {
 public:
  /// Throws StoreError.
  Connection(const Server& server, const QString& database);

  /// Runs one statement without values. Throws StoreError.
  Result run(const QString& sql);
  /// Prepares a statement, its marks "?", under that name.
  void prepare(const QByteArray& name, const QString& sql);
  Result execute(const QByteArray& name, const Values& values);

  /// The connection was lost and made again: what was prepared on it is gone.
  bool renewIfLost();

 private:
  Result checked(pg_result* result);

  std::unique_ptr<pg_conn, void (*)(pg_conn*)> handle_;
  QString database_;
};

/// The rows of a result with the types that the other engine would give: whole numbers, doubles, texts, dates
/// as ISO text.
Recordset recordsetOf(const Result& result);

/// The number of rows that the statement changed.
int changedBy(const Result& result);

/// The statement with the marks of this engine ($1, $2 ...).
QString withNumberedMarks(const QString& sql);

}  // namespace velmar::postgres
