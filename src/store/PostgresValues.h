// Values, results and statements as libpq has them and as the program has them.
#pragma once

#include <memory>
#include <QStringList>
#include <QVariant>

#include "store/Row.h"

struct pg_result;

namespace velmar::postgres {

using Result = std::unique_ptr<pg_result, void (*)(pg_result*)>;

/// Parameter values for libpq, valid while the object exists.
class Bounds {
 public:
  explicit Bounds(const Values& values);
  int count() const { return static_cast<int>(texts_.size()); }
  const char* const* texts() const { return texts_.data(); }

 private:
  std::vector<QByteArray> bounds_;
  std::vector<const char*> texts_;
};

/// The cells of a row of the result.
std::vector<QVariant> cellsOf(const pg_result* result, int row);

/// Spellings of column names, by their names in lower case.
using Spelling = QHash<QString, QString>;

/// The spelling of the statement's result columns: by their aliases, otherwise as in the table description.
Spelling spellingOf(const QString& sql);

/// The rows of a result with the types that SQLite returns: whole numbers, doubles, texts, dates as ISO text.
/// Columns without a known spelling stay in lower case.
Recordset recordsetOf(const Result& result, const Spelling& spelling = {});

/// The number of rows that the statement changed.
int changedBy(const Result& result);

/// The statement with the parameter syntax of this engine ($1, $2 ...).
QString withNumberedMarks(const QString& sql);

}  // namespace velmar::postgres
