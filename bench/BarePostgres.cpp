#include <libpq-fe.h>
#include <charconv>
#include <optional>
#include <QFileInfo>
#include <string>
#include <vector>

#include "Bare.h"
#include "store/PostgresConnection.h"
#include "store/Server.h"
#include "util/Errors.h"

namespace velmar::bench {

namespace {

using Handle = std::unique_ptr<PGconn, void (*)(PGconn*)>;
using Answer = std::unique_ptr<PGresult, void (*)(PGresult*)>;

Answer checked(PGconn* handle, PGresult* raw) {
  Answer answer(raw, PQclear);
  const ExecStatusType status = PQresultStatus(raw);
  if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK)
    throw StoreError(1, QString::fromUtf8(PQerrorMessage(handle)));
  return answer;
}

// One round trip for each run; the rows are read from the result.
class ServerCursor : public BareCursor {
 public:
  ServerCursor(PGconn* handle, const char* sql) : handle_(handle), answer_(nullptr, PQclear) {
    static int counter = 0;
    name_ = "bare" + std::to_string(++counter);
    const QByteArray marked = postgres::withNumberedMarks(QString::fromUtf8(sql)).toUtf8();
    checked(handle_, PQprepare(handle_, name_.c_str(), marked.constData(), 0, nullptr));
    const Answer described = checked(handle_, PQdescribePrepared(handle_, name_.c_str()));
    values_.resize(static_cast<size_t>(PQnparams(described.get())));
  }

  void bind(int position, std::string_view text) override {
    values_[static_cast<size_t>(position) - 1].assign(text);
  }
  void bind(int position, double number) override { bindNumber(position, number); }
  void bind(int position, int number) override { bindNumber(position, number); }
  bool step() override {
    if (!answer_) {
      std::vector<const char*> texts;
      for (const std::string& value : values_) texts.push_back(value.c_str());
      answer_ = checked(handle_, PQexecPrepared(handle_, name_.c_str(), static_cast<int>(texts.size()),
                                                texts.data(), nullptr, nullptr, 0));
      row_ = -1;
    }
    return ++row_ < PQntuples(answer_.get());
  }
  double number(int column) const override { return std::strtod(cell(column), nullptr); }
  std::string_view text(int column) const override { return cell(column); }
  int integer(int column) const override { return static_cast<int>(std::strtol(cell(column), nullptr, 10)); }
  int columns() const override { return PQnfields(answer_.get()); }
  void reset() override { answer_.reset(); }

 private:
  template <typename Number>
  void bindNumber(int position, Number number) {
    char digits[40];
    bind(position, std::string_view(digits, std::to_chars(digits, digits + sizeof digits, number).ptr));
  }
  const char* cell(int column) const { return PQgetvalue(answer_.get(), row_, column); }

  PGconn* handle_;
  std::string name_;
  std::vector<std::string> values_;
  Answer answer_;
  int row_ = -1;
};

class ServerLink : public BareLink {
 public:
  explicit ServerLink(const QString& path) : handle_(nullptr, PQfinish) {
    const auto server = serverOf(QFileInfo(path).path());
    const QByteArray host = server->host.toUtf8();
    const QByteArray port = server->port.toUtf8();
    const QByteArray user = server->user.toUtf8();
    const QByteArray database = databaseOnServer(*server, path).toUtf8();
    const char* const names[] = {"host", "port", "user", "dbname", "options", nullptr};
    const char* const values[] = {host.constData(),     port.constData(),   user.constData(),
                                  database.constData(), "-c DateStyle=ISO", nullptr};
    handle_.reset(PQconnectdbParams(names, values, 0));
    if (PQstatus(handle_.get()) != CONNECTION_OK)
      throw StoreError(1, QString::fromUtf8(PQerrorMessage(handle_.get())));
  }

  void run(const char* sql) override { checked(handle_.get(), PQexec(handle_.get(), sql)); }
  void beginWrite() override { run("BEGIN; SELECT pg_advisory_xact_lock(1)"); }
  std::unique_ptr<BareCursor> prepare(const char* sql) override {
    return std::make_unique<ServerCursor>(handle_.get(), sql);
  }

 private:
  Handle handle_;
};

}  // namespace

std::unique_ptr<BareLink> bareServer(const QString& path) { return std::make_unique<ServerLink>(path); }

}  // namespace velmar::bench
