#include "store/PostgresConnection.h"

#include <libpq-fe.h>
#include <array>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QMutex>
#include <QRegularExpression>
#include <QSysInfo>
#include <QThread>

#include "store/EngineTexts.h"

namespace velmar::postgres {

namespace {

constexpr const char* kConnectSeconds = "5";
constexpr const char* kOtherConnectSeconds = "2";
constexpr int kPromotionMs = 15'000;
constexpr int kPromotionPauseMs = 200;
constexpr int kRefused = 23;  // as SQLite's number for a refused authorization

QString text(const char* utf8) { return QString::fromUtf8(utf8).trimmed(); }

// Advice for errors that a user can correct, by the first characters of the SQLSTATE.
QString advice(const QString& state) {
  const auto is = [&state](const char* start) { return state.startsWith(QLatin1String(start)); };
  if (is("08") || is("57P") || state.isEmpty())
    return QStringLiteral(
        "Legatura cu serverul de baze de date s-a pierdut, nu s-a salvat nimic. Incercati din nou.");
  if (is("55P03") || is("55006") || is("40"))
    return QStringLiteral("Baza de date este folosita in acest moment de alt utilizator. Incercati din nou.");
  if (is("53100"))
    return QStringLiteral("Discul este plin, nu s-a salvat nimic. Eliberati spatiu si incercati din nou.");
  if (is("28"))
    return QStringLiteral("Serverul nu primeste utilizatorul sau parola. Verificati setarile serverului.");
  if (is("3D000"))
    return QStringLiteral("Lipseste baza de date. Restaurati o copie salvata sau alegeti alt folder.");
  return {};
}

// The SQLite error numbers of the same faults.
int numberOf(const QString& state) {
  constexpr std::pair<const char*, int> kNumbers[] = {{"23", 19}, {"55P03", 5},  {"55006", 5},
                                                      {"40", 5},  {"53100", 13}, {"3D000", 14},
                                                      {"08", 10}, {"57P", 10},   {"28", kRefused}};
  for (const auto& [start, number] : kNumbers)
    if (state.startsWith(QLatin1String(start))) return number;
  return state.isEmpty() ? 10 : 1;
}

StoreError describe(const QString& state, const QString& message, const QString& database) {
  const int number = numberOf(state);
  const QString help = advice(state);
  if (help.isEmpty()) return StoreError(number, postgresReason(state, message));
  return StoreError(number,
                    QStringLiteral("%1 (%2: %3)").arg(help, database, postgresReason(state, message)));
}

// What the administrator must do when the role may not create a database, or change one of another role.
StoreError lacksRight(const QString& role, const QString& message) {
  static const QRegularExpression kNames(QStringLiteral("\"(.+)\""));
  if (message.contains(QStringLiteral("owner")) || message.contains(QStringLiteral("copy")))
    return StoreError(kRefused,
                      QStringLiteral("Baza de date \"%1\" apartine altui utilizator al serverului. Rugati "
                                     "administratorul serverului sa execute comanda: ALTER DATABASE \"%1\" "
                                     "OWNER TO \"%2\";")
                          .arg(kNames.match(message).captured(1), role));
  return StoreError(kRefused,
                    QStringLiteral("Utilizatorul \"%1\" nu poate crea baze de date pe server. Rugati "
                                   "administratorul serverului sa execute comanda: ALTER ROLE "
                                   "\"%1\" CREATEDB;")
                        .arg(role));
}

bool isAboutDatabases(const QString& message) {
  static const QRegularExpression kRefusal(
      QStringLiteral("^(permission denied to \\w+ database|must be owner of database)"));
  return kRefusal.match(message).hasMatch();
}

}  // namespace

QString connectionName(const QString& login) {
  return QStringLiteral("Velmar|%1|%2").arg(QSysInfo::machineHostName(), login);
}

namespace {

AskPassword askPassword;

// Passwords of the servers that required one, until the process ends. Connections of other threads use them.
QHash<QString, QString> passwords;
QMutex passwordsMutex;

// The user can be asked only in the thread of the windows.
bool canAsk() {
  return askPassword && QCoreApplication::instance() &&
         QThread::currentThread() == QCoreApplication::instance()->thread();
}

// Faults of encryption and of the server's identity, by what libpq reports.
constexpr std::pair<const char*, const char*> kIdentityFaults[] = {
    {"channel binding",
     "Serverul de baze de date nu dovedeste ca este cel adevarat, asa ca parola nu i-a fost trimisa. "
     "Verificati "
     "adresa din Server.ini si rugati administratorul serverului sa ceara parola prin scram-sha-256 (in "
     "pg_hba.conf)."},
    {"does not support SSL",
     "Serverul de baze de date nu primeste legaturi criptate (TLS), iar setarile le cer. Cereti pornirea TLS "
     "pe "
     "server sau schimbati tls in Server.ini."},
    {"does not match host name",
     "Certificatul serverului este facut pentru alt nume decat cel din Server.ini. Parola nu a fost "
     "trimisa."},
    {"root certificate file",
     "Certificatul cu care se verifica serverul lipseste sau nu poate fi citit. Verificati rootcert in "
     "Server.ini."},
    {"certificate",
     "Certificatul serverului nu este cel asteptat, poate raspunde alt server. Parola nu a fost trimisa."},
    {"sslmode",
     "Setarea tls din Server.ini este gresita. Poate fi disable, allow, prefer, require, verify-ca sau "
     "verify-full."}};

// libpq reports only a text, no code, when a server cannot be reached.
StoreError connectError(const QString& message, const QString& database) {
  const auto says = [&message](const char* words) { return message.contains(QLatin1String(words)); };
  const auto error = [&](int number, const QString& text) {
    return StoreError(number, QStringLiteral("%1 (%2)").arg(text, database));
  };
  for (const auto& [english, romanian] : kIdentityFaults)
    if (says(english)) return error(kRefused, QString::fromLatin1(romanian));
  if (says("session is read-only"))
    return error(10, QStringLiteral("Nici un server din Server.ini nu primeste scrieri: cel principal nu "
                                    "raspunde, iar cel de rezerva nu a fost promovat. Incercati din nou."));
  if (says("permission denied for database"))
    return error(kRefused,
                 QStringLiteral("Utilizatorul nu are dreptul sa se conecteze la baza de date. Rugati "
                                "administratorul serverului sa dea dreptul CONNECT."));
  if (says("password") || says("pg_hba") || (says("role") && says("does not exist")))
    return describe(QStringLiteral("28"), message, database);
  return describe(says("does not exist") ? QStringLiteral("3D000") : QStringLiteral("08006"), message,
                  database);
}

}  // namespace

}  // namespace velmar::postgres

void velmar::setAskPassword(AskPassword ask) { postgres::askPassword = std::move(ask); }

namespace velmar::postgres {

Connection::Connection(const Server& server, const QString& database)
    : handle_(nullptr, PQfinish), server_(server), database_(database) {
  const QString place = QStringLiteral("%1@%2:%3").arg(server.user, server.host).arg(server.port);
  {
    const QMutexLocker lock(&passwordsMutex);
    password_ = passwords.value(place);
  }
  connect();
  while (wantsPassword() && canAsk()) {
    const auto typed = askPassword(server, !password_.isEmpty());
    if (!typed) throw Cancelled();
    password_ = *typed;
    connect();
  }
  if (PQstatus(handle_.get()) != CONNECTION_OK)
    throw connectError(text(PQerrorMessage(handle_.get())), database);
  if (password_.isEmpty()) return;
  const QMutexLocker lock(&passwordsMutex);
  passwords.insert(place, password_);
}

// No password was given, or a wrong one.
bool Connection::wantsPassword() const {
  if (PQstatus(handle_.get()) == CONNECTION_OK) return false;
  return PQconnectionNeedsPassword(handle_.get()) ||
         text(PQerrorMessage(handle_.get())).contains(QStringLiteral("password authentication failed"));
}

namespace {

QString placeOf(PGconn* handle) {
  return QString::fromUtf8(PQhost(handle)) + u':' + QString::fromUtf8(PQport(handle));
}

// Each promotion of a standby begins a new timeline.
int timelineOf(PGconn* handle) {
  const Result found(PQexec(handle, "SELECT left(pg_walfile_name(pg_current_wal_lsn()), 8)"), PQclear);
  return PQntuples(found.get()) == 1 ? QByteArray(PQgetvalue(found.get(), 0, 0)).toInt(nullptr, 16) : 0;
}

}  // namespace

// A server that was lost may come back as it was, and accept writes beside the promoted standby, which is the
// right one.
void Connection::connect() {
  handle_.reset();  // the server ends its part of a lost connection, and releases its locks
  handle_ = connected(server_, kConnectSeconds);
  if (!server_.hasStandby() || PQstatus(handle_.get()) != CONNECTION_OK) return;
  const QString place = placeOf(handle_.get());
  for (const Server& host : server_.hosts()) {
    if (host.host + u':' + host.port == place) continue;
    Handle other = connected(host, kOtherConnectSeconds);
    if (PQstatus(other.get()) == CONNECTION_OK && timelineOf(other.get()) > timelineOf(handle_.get()))
      handle_ = std::move(other);
  }
}

Connection::Handle Connection::connected(const Server& server, const char* timeout) const {
  const std::pair<const char*, QByteArray> settings[] = {
      {"host", server.host.toUtf8()},
      {"port", server.port.toUtf8()},
      // Of several hosts the one that is no standby.
      {"target_session_attrs", "read-write"},
      {"user", server.user.toUtf8()},
      {"password", password_.toUtf8()},
      {"dbname", database_.toUtf8()},
      {"sslmode", server.tls.toUtf8()},
      {"sslrootcert", server.rootCertificate.toUtf8()},
      // TLS alone does not prevent that another server with any certificate gets the password.
      {"channel_binding", server.requiresTls() ? "require" : ""},
      {"application_name", connectionName({}).toUtf8()},
      {"client_encoding", "UTF8"},
      {"connect_timeout", timeout},
      // A machine that has disappeared from the network is noticed in half a minute.
      {"keepalives_idle", "10"},
      {"keepalives_interval", "5"},
      {"keepalives_count", "3"},
      {"tcp_user_timeout", "20000"},
      // Statements are planned for their actual values; the indexes of a company fit in memory.
      {"options",
       "-c plan_cache_mode=force_custom_plan -c random_page_cost=1.1 -c client_min_messages=warning "
       "-c DateStyle=ISO"}};
  std::vector<const char*> names, values;
  for (const auto& [name, value] : settings)
    if (!value.isEmpty()) {
      names.push_back(name);
      values.push_back(value.constData());
    }
  names.push_back(nullptr);
  values.push_back(nullptr);
  Handle handle(PQconnectdbParams(names.data(), values.data(), 0), PQfinish);
  PQsetNoticeProcessor(
      handle.get(), [](void*, const char*) {}, nullptr);
  return handle;
}

Result Connection::checked(pg_result* raw) {
  Result result(raw, PQclear);
  const ExecStatusType status = PQresultStatus(raw);
  if (status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK) return result;
  const char* state = PQresultErrorField(raw, PG_DIAG_SQLSTATE);
  const char* message = PQresultErrorField(raw, PG_DIAG_MESSAGE_PRIMARY);
  if (status == PGRES_EMPTY_QUERY) throw StoreError(1, QStringLiteral("instructiunea este goala"));
  if (state && QLatin1String(state) == QLatin1String("0A000") && strstr(message, "cached plan"))
    throw PlanOutdated(1, text(message));
  // The server has announced the end, or the connection is broken: libpq may notice only at the next
  // statement.
  farewell_ =
      status == PGRES_FATAL_ERROR && (!state || QLatin1String(state).startsWith(QLatin1String("57P")));
  if (message && isAboutDatabases(text(message)))
    throw lacksRight(text(PQuser(handle_.get())), text(message));
  throw describe(QString::fromLatin1(state ? state : ""),
                 text(message ? message : PQerrorMessage(handle_.get())), database_);
}

Result Connection::run(const QString& sql) {
  return checked(PQexec(handle_.get(), sql.toUtf8().constData()));
}

void Connection::prepare(const QByteArray& name, const QString& sql) {
  checked(
      PQprepare(handle_.get(), name.constData(), withNumberedMarks(sql).toUtf8().constData(), 0, nullptr));
}

Result Connection::execute(const QByteArray& name, const Values& values) {
  const Bounds bounds(values);
  return checked(
      PQexecPrepared(handle_.get(), name.constData(), bounds.count(), bounds.texts(), nullptr, nullptr, 0));
}

int Connection::executeEach(const QByteArray& name, const std::vector<Values>& rows) {
  // Small enough that the answers, which are read afterwards, fit in the socket buffers.
  constexpr size_t kAtOnce = 128;
  int changed = 0;
  for (size_t done = 0; done < rows.size(); done += kAtOnce)
    changed += pipelined(name, &rows[done], std::min(kAtOnce, rows.size() - done));
  return changed;
}

int Connection::pipelined(const QByteArray& name, const Values* rows, size_t count) {
  PQenterPipelineMode(handle_.get());
  for (size_t i = 0; i < count; ++i) {
    const Bounds bounds(rows[i]);
    PQsendQueryPrepared(handle_.get(), name.constData(), bounds.count(), bounds.texts(), nullptr, nullptr, 0);
  }
  PQpipelineSync(handle_.get());
  int changed = 0;
  std::exception_ptr failure;
  // A result and a null for each statement; after an error the others report that they were not run.
  for (size_t i = 0; i < count; ++i) {
    try {
      changed += changedBy(checked(PQgetResult(handle_.get())));
    } catch (...) {
      if (!failure) failure = std::current_exception();
      if (isLost()) break;
    }
    PQclear(PQgetResult(handle_.get()));
  }
  PQclear(PQgetResult(handle_.get()));
  PQexitPipelineMode(handle_.get());
  if (failure) std::rethrow_exception(failure);
  return changed;
}

void Connection::each(const QByteArray& name, const Values& values,
                      const std::function<void(std::vector<QVariant>&& cells)>& use) {
  const Bounds bounds(values);
  PQsendQueryPrepared(handle_.get(), name.constData(), bounds.count(), bounds.texts(), nullptr, nullptr, 0);
  PQsetSingleRowMode(handle_.get());
  // Reads all remaining results, so that the connection is ready for the next statement.
  std::exception_ptr failure;
  while (pg_result* raw = PQgetResult(handle_.get())) {
    if (PQresultStatus(raw) == PGRES_SINGLE_TUPLE) {
      const Result row(raw, PQclear);
      if (failure) continue;
      try {
        use(cellsOf(raw, 0));
      } catch (...) {
        failure = std::current_exception();
      }
      continue;
    }
    try {
      checked(raw);
    } catch (...) {
      if (!failure) failure = std::current_exception();
    }
  }
  if (failure) std::rethrow_exception(failure);
}

void Connection::forget(const QByteArray& name) {
  run(QStringLiteral("DEALLOCATE ") + QString::fromLatin1(name));
}

void Connection::interrupt() const {
  const std::unique_ptr<PGcancel, void (*)(PGcancel*)> request(PQgetCancel(handle_.get()), PQfreeCancel);
  std::array<char, 256> fault{};
  if (request) PQcancel(request.get(), fault.data(), static_cast<int>(fault.size()));
}

bool Connection::isLost() const { return farewell_ || PQstatus(handle_.get()) != CONNECTION_OK; }

bool Connection::inFailedTransaction() const { return PQtransactionStatus(handle_.get()) == PQTRANS_INERROR; }

bool Connection::renewIfLost() {
  if (!isLost()) return false;
  if (inTransaction_) throw describe(QStringLiteral("08006"), text(PQerrorMessage(handle_.get())), database_);
  reconnect();
  farewell_ = false;
  if (!login_.isEmpty()) showLogin();
  return true;
}

void Connection::reconnect() {
  QElapsedTimer waited;
  waited.start();
  while (true) {
    connect();
    if (PQstatus(handle_.get()) == CONNECTION_OK) return;
    if (!server_.hasStandby() || waited.elapsed() >= kPromotionMs)
      throw describe(QStringLiteral("08006"), text(PQerrorMessage(handle_.get())), database_);
    QThread::msleep(kPromotionPauseMs);
  }
}

void Connection::setLogin(const QString& login) {
  login_ = login;
  showLogin();
}

void Connection::showLogin() {
  prepare({}, QStringLiteral("SELECT set_config('application_name', ?, false)"));
  execute({}, {connectionName(login_)});
}

}  // namespace velmar::postgres
