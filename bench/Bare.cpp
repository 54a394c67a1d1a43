#include "Bare.h"

#include "util/Errors.h"

namespace velmar::bench {

namespace {

sqlite3* opened(const QString& path) {
  sqlite3* handle = nullptr;
  if (sqlite3_open_v2(path.toUtf8().constData(), &handle, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) {
    sqlite3_close(handle);
    throw StoreError(SQLITE_CANTOPEN, path);
  }
  return handle;
}

}  // namespace

BareConnection::BareConnection(const QString& path) : handle_(opened(path), sqlite3_close) {
  run("PRAGMA journal_mode=WAL; PRAGMA synchronous=FULL; PRAGMA cache_size=-65536; PRAGMA temp_store=MEMORY; "
      "PRAGMA wal_autocheckpoint=4000");
}

void BareConnection::run(const char* sql) {
  if (const int code = sqlite3_exec(handle_.get(), sql, nullptr, nullptr, nullptr); code != SQLITE_OK)
    throw StoreError(code, QString::fromUtf8(sqlite3_errmsg(handle_.get())));
}

BareStatement BareConnection::prepare(const char* sql) {
  sqlite3_stmt* statement = nullptr;
  if (const int code = sqlite3_prepare_v2(handle_.get(), sql, -1, &statement, nullptr); code != SQLITE_OK)
    throw StoreError(code, QString::fromUtf8(sqlite3_errmsg(handle_.get())));
  return BareStatement(statement);
}

BareStatement& BareStatement::bind(int position, std::string_view text) {
  sqlite3_bind_text(statement_.get(), position, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
  return *this;
}

BareStatement& BareStatement::bind(int position, double number) {
  sqlite3_bind_double(statement_.get(), position, number);
  return *this;
}

BareStatement& BareStatement::bind(int position, int number) {
  sqlite3_bind_int(statement_.get(), position, number);
  return *this;
}

bool BareStatement::step() {
  const int code = sqlite3_step(statement_.get());
  if (code == SQLITE_ROW) return true;
  if (code == SQLITE_DONE) return false;
  throw StoreError(code, QString::fromUtf8(sqlite3_errmsg(sqlite3_db_handle(statement_.get()))));
}

std::string_view BareStatement::text(int column) const {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_.get(), column));
  return text ? std::string_view(text) : std::string_view();
}

int BareStatement::run() {
  int rows = 0;
  while (step()) ++rows;
  reset();
  return rows;
}

}  // namespace velmar::bench
