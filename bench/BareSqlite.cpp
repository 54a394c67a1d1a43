#include <sqlite3.h>

#include "Bare.h"
#include "util/Errors.h"

namespace velmar::bench {

namespace {

constexpr int kLockWaitMs = 60'000;

using Handle = std::unique_ptr<sqlite3, int (*)(sqlite3*)>;

[[noreturn]] void fail(int code, sqlite3* handle) {
  throw StoreError(code, QString::fromUtf8(sqlite3_errmsg(handle)));
}

Handle opened(const QString& path) {
  sqlite3* raw = nullptr;
  const int code = sqlite3_open_v2(path.toUtf8().constData(), &raw, SQLITE_OPEN_READWRITE, nullptr);
  Handle handle(raw, sqlite3_close);
  if (code != SQLITE_OK) throw StoreError(SQLITE_CANTOPEN, path);
  sqlite3_busy_timeout(raw, kLockWaitMs);
  return handle;
}

class FileCursor : public BareCursor {
 public:
  FileCursor(sqlite3* handle, const char* sql) : statement_(nullptr, sqlite3_finalize) {
    sqlite3_stmt* statement = nullptr;
    if (const int code = sqlite3_prepare_v2(handle, sql, -1, &statement, nullptr); code != SQLITE_OK)
      fail(code, handle);
    statement_.reset(statement);
  }

  void bind(int position, std::string_view text) override {
    sqlite3_bind_text(statement_.get(), position, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
  }
  void bind(int position, double number) override { sqlite3_bind_double(statement_.get(), position, number); }
  void bind(int position, int number) override { sqlite3_bind_int(statement_.get(), position, number); }
  bool step() override {
    const int code = sqlite3_step(statement_.get());
    if (code == SQLITE_ROW) return true;
    if (code == SQLITE_DONE) return false;
    fail(code, sqlite3_db_handle(statement_.get()));
  }
  double number(int column) const override { return sqlite3_column_double(statement_.get(), column); }
  std::string_view text(int column) const override {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_.get(), column));
    return text ? std::string_view(text) : std::string_view();
  }
  int integer(int column) const override { return sqlite3_column_int(statement_.get(), column); }
  int columns() const override { return sqlite3_column_count(statement_.get()); }
  void reset() override { sqlite3_reset(statement_.get()); }

 private:
  std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement_;
};

class FileLink : public BareLink {
 public:
  explicit FileLink(const QString& path) : handle_(opened(path)) {
    run("PRAGMA journal_mode=WAL; PRAGMA synchronous=FULL; PRAGMA cache_size=-65536; "
        "PRAGMA temp_store=MEMORY; PRAGMA wal_autocheckpoint=4000");
  }

  void run(const char* sql) override {
    if (const int code = sqlite3_exec(handle_.get(), sql, nullptr, nullptr, nullptr); code != SQLITE_OK)
      fail(code, handle_.get());
  }
  void beginWrite() override { run("BEGIN IMMEDIATE"); }
  std::unique_ptr<BareCursor> prepare(const char* sql) override {
    return std::make_unique<FileCursor>(handle_.get(), sql);
  }

 private:
  Handle handle_;
};

}  // namespace

std::unique_ptr<BareLink> bareFile(const QString& path) { return std::make_unique<FileLink>(path); }

}  // namespace velmar::bench
