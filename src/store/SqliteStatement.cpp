#include "store/SqliteStatement.h"

#include <sqlite3.h>

#include "store/Sqlite.h"

namespace velmar::sqlite {

namespace {

int bindOne(sqlite3_stmt* statement, int position, const QVariant& value) {
  if (value.isNull()) return sqlite3_bind_null(statement, position);
  switch (value.typeId()) {
    case QMetaType::LongLong:
    case QMetaType::Int:
    case QMetaType::Bool:
      return sqlite3_bind_int64(statement, position, value.toLongLong());
    case QMetaType::Double:
      return sqlite3_bind_double(statement, position, value.toDouble());
    case QMetaType::QByteArray: {
      const QByteArray bytes = value.toByteArray();
      return sqlite3_bind_blob64(statement, position, bytes.constData(),
                                 static_cast<sqlite3_uint64>(bytes.size()), SQLITE_TRANSIENT);
    }
    default: {
      // Qt distinguishes a null text from an empty one; a value read as null is stored as null again.
      const QString string = value.toString();
      if (string.isNull()) return sqlite3_bind_null(statement, position);
      const QByteArray text = string.toUtf8();
      return sqlite3_bind_text64(statement, position, text.constData(),
                                 static_cast<sqlite3_uint64>(text.size()), SQLITE_TRANSIENT, SQLITE_UTF8);
    }
  }
}

}  // namespace

Statement::Statement(sqlite3* connection, const QString& sql, const QString& path)
    : connection_(connection), statement_(nullptr, sqlite3_finalize), path_(path) {
  const QByteArray text = sql.toUtf8();
  sqlite3_stmt* prepared = nullptr;
  const char* rest = nullptr;
  const int code = sqlite3_prepare_v3(connection, text.constData(), static_cast<int>(text.size()),
                                      SQLITE_PREPARE_PERSISTENT, &prepared, &rest);
  statement_.reset(prepared);
  if (code != SQLITE_OK) fail();
  if (!prepared || !QByteArray(rest).trimmed().isEmpty())
    throw StoreError(SQLITE_ERROR, QStringLiteral("not a single statement: %1").arg(sql));
}

void Statement::bind(const Values& values) {
  if (sqlite3_bind_parameter_count(statement_.get()) != static_cast<int>(values.size()))
    throw StoreError(SQLITE_RANGE, QStringLiteral("Parameter count mismatch"));
  int position = 0;
  for (const Value& value : values)
    if (bindOne(statement_.get(), ++position, value.data()) != SQLITE_OK) fail();
}

bool Statement::step() {
  const int code = sqlite3_step(statement_.get());
  if (code == SQLITE_ROW) return true;
  if (code == SQLITE_DONE) return false;
  fail();
}

Recordset Statement::query(const Values& values) {
  bind(values);
  bool onRow = step();
  Recordset result(columns());
  for (; onRow; onRow = step()) result.append(cells());
  reset();
  return result;
}

void Statement::each(const Values& values, const EachRow& use) {
  bind(values);
  try {
    while (step()) use(cells());
  } catch (...) {
    reset();
    throw;
  }
  reset();
}

std::vector<QVariant> Statement::cells() const {
  const int width = sqlite3_column_count(statement_.get());
  std::vector<QVariant> read;
  read.reserve(static_cast<size_t>(width));
  for (int i = 0; i < width; ++i) read.push_back(value(i));
  return read;
}

int Statement::run(const Values& values) {
  bind(values);
  while (step()) continue;
  reset();
  return sqlite3_changes(connection_);
}

void Statement::reset() { sqlite3_reset(statement_.get()); }

std::shared_ptr<const Columns> Statement::columns() {
  // After a change of the tables the engine prepares the statement again by itself, possibly with other
  // columns.
  const int preparations = sqlite3_stmt_status(statement_.get(), SQLITE_STMTSTATUS_REPREPARE, 0);
  if (columns_ && preparations == preparations_) return columns_;
  QStringList names;
  const int count = sqlite3_column_count(statement_.get());
  for (int i = 0; i < count; ++i) names.append(QString::fromUtf8(sqlite3_column_name(statement_.get(), i)));
  columns_ = std::make_shared<Columns>(names);
  preparations_ = preparations;
  return columns_;
}

QVariant Statement::value(int column) const {
  sqlite3_stmt* statement = statement_.get();
  switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER:
      return QVariant(static_cast<qlonglong>(sqlite3_column_int64(statement, column)));
    case SQLITE_FLOAT:
      return QVariant(sqlite3_column_double(statement, column));
    case SQLITE_NULL:
      return {};
    case SQLITE_BLOB:
      return QVariant(QByteArray(static_cast<const char*>(sqlite3_column_blob(statement, column)),
                                 sqlite3_column_bytes(statement, column)));
    default: {
      const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
      return QVariant(QString::fromUtf8(text, sqlite3_column_bytes(statement, column)));
    }
  }
}

void Statement::fail() const {
  const StoreError error =
      describe(sqlite3_errcode(connection_), QString::fromUtf8(sqlite3_errmsg(connection_)), path_);
  if (statement_) sqlite3_reset(statement_.get());
  throw error;
}

}  // namespace velmar::sqlite
