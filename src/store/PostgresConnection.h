// A connection to a PostgreSQL server through libpq, and the conversion of its errors.
#pragma once

#include <functional>
#include <memory>
#include <QVariant>

#include "store/PostgresValues.h"
#include "store/Server.h"
#include "util/Errors.h"

struct pg_conn;

namespace velmar::postgres {

/// The application name of a connection: program, computer, login.
QString connectionName(const QString& login);

class Connection {
 public:
  /// Throws StoreError.
  Connection(const Server& server, const QString& database);

  /// Runs one statement without values. Throws StoreError.
  Result run(const QString& sql);
  /// Prepares a statement, with "?" for its parameters, under that name.
  void prepare(const QByteArray& name, const QString& sql);
  Result execute(const QByteArray& name, const Values& values);
  /// Runs the statement for each row of values in pipeline mode, without waiting for each answer; returns the
  /// number of rows changed. Throws the first error.
  int executeEach(const QByteArray& name, const std::vector<Values>& rows);
  /// Passes on the rows one by one without storing them.
  void each(const QByteArray& name, const Values& values,
            const std::function<void(std::vector<QVariant>&& cells)>& use);
  void forget(const QByteArray& name);
  /// Makes the running statement fail; called from another thread.
  void interrupt() const;

  /// Whether an error has left a transaction that can only be rolled back.
  bool inFailedTransaction() const;

  /// Shows the login in the list of connections of the server, also after a reconnection.
  void setLogin(const QString& login);

  /// Reconnects if the connection was lost; returns whether it did, since prepared statements are then lost.
  /// If the server has a standby, waits for a while until one of them accepts writes. Throws StoreError
  /// inside a transaction, whose work is lost too and which must not continue.
  bool renewIfLost();
  bool isLost() const;
  /// To be called when a transaction begins or ends.
  void setInTransaction(bool in) { inTransaction_ = in; }

 private:
  using Handle = std::unique_ptr<pg_conn, void (*)(pg_conn*)>;

  Result checked(pg_result* result);
  void connect();
  Handle connected(const Server& server, const char* timeout) const;
  bool wantsPassword() const;
  void reconnect();
  void showLogin();
  int pipelined(const QByteArray& name, const Values* rows, size_t count);

  Handle handle_;
  Server server_;
  QString password_;
  QString database_;
  QString login_;
  bool inTransaction_ = false;
  bool farewell_ = false;  ///< the server has announced that it closes the connection
};

/// The tables have changed since a statement was prepared: it must be prepared again.
class PlanOutdated : public StoreError {
 public:
  using StoreError::StoreError;
};

}  // namespace velmar::postgres
