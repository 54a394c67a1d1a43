// A prepared statement by the engine's own C interface: a validation binds thousands of values, and the
// toolkit's query class took half of its time.
#pragma once

#include <memory>
#include <QString>

#include "store/Engine.h"

struct sqlite3;
struct sqlite3_stmt;

namespace velmar::sqlite {

class Statement : public EngineStatement {
 public:
  /// Throws StoreError when the text is no single statement of the engine. `path` names the file in messages.
  Statement(sqlite3* connection, const QString& sql, const QString& path);

  Recordset query(const Values& values) override;
  void each(const Values& values, const EachRow& use) override;
  int run(const Values& values) override;

  /// Binds a value for each mark. Throws StoreError when their numbers differ.
  void bind(const Values& values);

  /// Runs to the next row; whether there is one. Throws StoreError.
  bool step();
  /// Gives up what is left to read, so that no read lock stays.
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
  int preparations_ = 0;  ///< how often the engine prepared anew when columns_ was read
};

}  // namespace velmar::sqlite
