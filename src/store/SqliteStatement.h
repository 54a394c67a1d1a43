// A prepared statement through SQLite's C interface: a validation binds thousands of values, and Qt's query
// class took half of its time.
#pragma once

#include <memory>
#include <QString>

#include "store/Engine.h"

struct sqlite3;
struct sqlite3_stmt;

namespace velmar::sqlite {

class Statement : public EngineStatement {
 public:
  /// Throws StoreError when the text is not exactly one statement. `path` names the file in messages.
  Statement(sqlite3* connection, const QString& sql, const QString& path);

  Recordset query(const Values& values) override;
  void each(const Values& values, const EachRow& use) override;
  int run(const Values& values) override;

  /// Binds a value for each parameter. Throws StoreError when their numbers differ.
  void bind(const Values& values);

  /// Steps to the next row; returns whether there is one. Throws StoreError.
  bool step();
  /// Discards unread rows, so that no read lock remains.
  void reset();

  /// The columns of the result, once the statement has stepped.
  std::shared_ptr<const Columns> columns();
  QVariant value(int column) const;

 private:
  std::vector<QVariant> cells() const;
  [[noreturn]] void fail() const;

  sqlite3* connection_;
  std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement_;
  QString path_;
  std::shared_ptr<const Columns> columns_;
  int preparations_ = 0;  ///< the engine's count of re-preparations when columns_ was read
};

}  // namespace velmar::sqlite
