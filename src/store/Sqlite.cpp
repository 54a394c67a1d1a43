#include "store/Sqlite.h"

#include <sqlite3.h>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QSqlDriver>
#include <QSqlQuery>
#include <QThread>
#include <QUrl>
#include <QVariant>
#include <string_view>

#include "store/EngineTexts.h"
#include "store/SqlitePlace.h"
#include "util/FileNames.h"
#include "util/FileRights.h"
#include "util/NumberText.h"

namespace velmar::sqlite {

namespace {

constexpr int kOpenWaitMs = 5000;
constexpr int kOpenPauseMs = 20;

// Advice for errors that a user can correct, by SQLite's primary result codes.
QString advice(int code) {
  switch (code) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return QStringLiteral(
          "Baza de date este folosita in acest moment de alt utilizator. Incercati din nou.");
    case SQLITE_READONLY:
      return QStringLiteral(
          "Baza de date nu poate fi scrisa. Verificati drepturile asupra fisierului si folderului.");
    case SQLITE_CANTOPEN:
      return QStringLiteral(
          "Baza de date nu poate fi deschisa. Verificati ca fisierul exista si ca folderul poate fi scris.");
    case SQLITE_FULL:
      return QStringLiteral("Discul este plin, nu s-a salvat nimic. Eliberati spatiu si incercati din nou.");
    case SQLITE_IOERR:
      return QStringLiteral("Discul nu raspunde, nu s-a salvat nimic. Verificati discul si spatiul liber.");
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
      return QStringLiteral(
          "Fisierul nu este o baza de date Velmar sau este deteriorat. Restaurati o copie salvata.");
    default:
      return {};
  }
}

void roundEven(sqlite3_context* context, int, sqlite3_value** arguments) {
  if (sqlite3_value_type(arguments[0]) == SQLITE_NULL) return sqlite3_result_null(context);
  try {
    const Decimal value = Decimal::fromDouble(sqlite3_value_double(arguments[0]));
    sqlite3_result_double(context, Round(value, sqlite3_value_int(arguments[1])).toDouble());
  } catch (const Error& error) {
    sqlite3_result_error(context, error.what(), -1);
  }
}

void isNumeric(sqlite3_context* context, int, sqlite3_value** arguments) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(arguments[0]));
  if (!text) return sqlite3_result_int(context, 0);
  // Nearly all document numbers are plain digits; a ledger has a million of them.
  const std::string_view view(text);
  const bool digitsOnly = !view.empty() && view.find_first_not_of("0123456789") == std::string_view::npos;
  sqlite3_result_int(context, digitsOnly || isNumericText(QString::fromUtf8(text)) ? -1 : 0);
}

void registerFunctions(const QSqlDatabase& connection) {
  sqlite3* handle = handleOf(connection);
  constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
  sqlite3_create_function(handle, "ROUND_EVEN", 2, kFlags, nullptr, roundEven, nullptr, nullptr);
  sqlite3_create_function(handle, "IS_NUMERIC", 1, kFlags, nullptr, isNumeric, nullptr, nullptr);
}

bool isBusy(const QSqlError& error) {
  const int code = error.nativeErrorCode().toInt() & 0xff;
  return code == SQLITE_BUSY || code == SQLITE_LOCKED;
}

// The last process that closes a file locks it briefly for the checkpoint: wait for it.
QVariant pragma(const QSqlDatabase& connection, const QString& text, const QString& path) {
  QSqlQuery query(connection);
  QElapsedTimer waited;
  waited.start();
  while (!query.exec(QStringLiteral("PRAGMA ") + text)) {
    if (!isBusy(query.lastError()) || waited.elapsed() > kOpenWaitMs) throw describe(query.lastError(), path);
    QThread::msleep(kOpenPauseMs);
  }
  return query.next() ? query.value(0) : QVariant();
}

// SQLite's limit for the length of a path.
void requireShortPath(const QString& path) {
  constexpr int kLongest = 500;
  if (QFile::encodeName(QFileInfo(path).absoluteFilePath()).size() > kLongest)
    throw StoreError(
        SQLITE_CANTOPEN,
        QStringLiteral("Calea %1 este prea lunga. Alegeti un folder cu o cale mai scurta.").arg(path));
}

// With an empty authority, however many slashes the path begins with.
QString uriOf(const QString& path) {
  const QString absolute = QFileInfo(path).absoluteFilePath();
  return QStringLiteral("file://") + (absolute.startsWith(u'/') ? "" : "/") +
         QString::fromLatin1(QUrl::toPercentEncoding(absolute, "/:"));
}

StoreError noDatabase(const QString& path) {
  return StoreError(
      SQLITE_NOTADB,
      QStringLiteral(
          "Fisierul %1 nu este o baza de date Velmar sau este deteriorat. Restaurati o copie salvata.")
          .arg(path));
}

// The first read of an open file.
int applicationOf(const QSqlDatabase& connection, const QString& path) {
  try {
    return pragma(connection, QStringLiteral("application_id"), path).toInt();
  } catch (const StoreError& error) {
    if (isDamage(error)) throw noDatabase(path);
    throw;
  }
}

void requireOurFormat(const QSqlDatabase& connection, const QString& path) {
  if (applicationOf(connection, path) != kApplicationId)
    throw StoreError(
        SQLITE_NOTADB,
        QStringLiteral("Fisierul %1 nu este o baza de date Velmar. Restaurati o copie salvata.").arg(path));
  if (pragma(connection, QStringLiteral("user_version"), path).toInt() > kFormatVersion)
    throw StoreError(SQLITE_NOTADB, QStringLiteral("Baza de date %1 a fost creata de o versiune mai noua a "
                                                   "programului. Instalati versiunea noua.")
                                        .arg(path));
}

}  // namespace

sqlite3* handleOf(const QSqlDatabase& connection) {
  return *static_cast<sqlite3* const*>(connection.driver()->handle().constData());
}

QSqlDatabase open(const QString& path, const QString& connectionName, bool create) {
  requireShortPath(path);
  if (!create) {
    // The file is never opened but by the engine: closing it would release the locks that the other
    // connections of this process have on it, and other processes would remove the journal under them.
    const QFileInfo file(path);
    if (!file.exists())
      throw StoreError(
          SQLITE_CANTOPEN,
          QStringLiteral("Lipseste baza de date %1. Restaurati o copie salvata sau alegeti alt folder.")
              .arg(path));
    requirePlainFile(path);
    if (!file.isReadable())
      throw StoreError(
          SQLITE_CANTOPEN,
          QStringLiteral("Baza de date %1 nu poate fi citita. Verificati drepturile asupra ei.").arg(path));
    if (file.size() == 0) throw noDatabase(path);  // the engine would make it one
    requireOwnJournal(path);
  }
  QSqlDatabase connection = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connectionName);
  connection.setDatabaseName(uriOf(path) + (create ? "?mode=rwc" : "?mode=rw"));
  connection.setConnectOptions(
      QStringLiteral("QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=%1").arg(kBusyTimeoutMs));
  if (!connection.open()) throw describe(connection.lastError(), path);
  registerFunctions(connection);
  protectFile(path);  // before the side files get the same rights
  // The file may come from anywhere: its schema runs no functions but harmless ones, damaged cells are found
  // when they are read, and no error of the disk ends the process.
  pragma(connection, QStringLiteral("trusted_schema=OFF"), path);
  pragma(connection, QStringLiteral("cell_size_check=ON"), path);
  pragma(connection, QStringLiteral("mmap_size=0"), path);
  if (create) {
    pragma(connection, QStringLiteral("application_id=%1").arg(kApplicationId), path);
    pragma(connection, QStringLiteral("user_version=%1").arg(kFormatVersion), path);
  } else {
    requireOurFormat(connection, path);
  }
  pragma(connection, QStringLiteral("journal_mode=WAL"), path);
  pragma(connection, QStringLiteral("synchronous=FULL"), path);
  pragma(connection, QStringLiteral("cache_size=-65536"), path);
  pragma(connection, QStringLiteral("temp_store=MEMORY"), path);
  // A large voucher writes some 400 pages. With the default of 1000, every third one would checkpoint the
  // journal while its user waits; 4000 pages are 16 MB on disk.
  pragma(connection, QStringLiteral("wal_autocheckpoint=4000"), path);
  return connection;
}

// Only the last connection can leave WAL mode.
bool isInUse(const QString& path) {
  const QString name = QStringLiteral("velmar-in-use");
  bool used = false;
  requireOwnJournal(path);
  {
    QSqlDatabase connection = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
    connection.setDatabaseName(uriOf(path) + QStringLiteral("?mode=rw"));
    connection.setConnectOptions(
        QStringLiteral("QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=%1").arg(kBusyTimeoutMs));
    if (connection.open()) {
      QSqlQuery query(connection);
      used = !query.exec(QStringLiteral("PRAGMA journal_mode=DELETE")) && isBusy(query.lastError());
    }
  }
  QSqlDatabase::removeDatabase(name);
  return used;
}

bool tryBeginWrite(QSqlDatabase& connection, const QString& path) {
  QSqlQuery query(connection);
  if (query.exec(QStringLiteral("BEGIN IMMEDIATE"))) return true;
  if (isBusy(query.lastError())) return false;
  throw describe(query.lastError(), path);
}

StoreError describe(const QSqlError& error, const QString& path) {
  return describe(error.nativeErrorCode().toInt(),
                  error.databaseText().isEmpty() ? error.driverText() : error.databaseText(), path);
}

StoreError describe(int extendedCode, const QString& engineText, const QString& path) {
  const int code = extendedCode & 0xff;
  const QString help = advice(code);
  if (help.isEmpty()) return StoreError(code, sqliteReason(code, engineText));
  return StoreError(code, QStringLiteral("%1 (%2)").arg(help, path));
}

bool isDamage(const StoreError& error) {
  return error.number() == SQLITE_CORRUPT || error.number() == SQLITE_NOTADB;
}

QStringList sideFiles(const QString& path) {
  return {path + QStringLiteral("-wal"), path + QStringLiteral("-shm"), path + QStringLiteral("-journal")};
}

}  // namespace velmar::sqlite
