// What is SQLite's own: opening a file, the write lock, the functions of the database, the text of its
// errors.
#pragma once

#include <QSqlDatabase>
#include <QSqlError>

#include "util/Errors.h"

struct sqlite3;

namespace velmar::sqlite {

/// Marks a file as ours and tells the version of its format (kept apart from kt_info.VERSIUNE).
inline constexpr int kApplicationId = 0x564C4D52;  // "VLMR"
inline constexpr int kFormatVersion = 1;

/// How long the engine itself waits for a lock before it says that the file is busy.
inline constexpr int kBusyTimeoutMs = 200;

/// Opens `path` under the connection name given, or makes the file. Throws StoreError.
QSqlDatabase open(const QString& path, const QString& connectionName, bool create);

/// The engine's own handle of an open connection.
sqlite3* handleOf(const QSqlDatabase& connection);

/// Whether the file begins as a database of this engine does.
bool looksLikeDatabase(const QString& path);

/// Whether any other connection, of whatever process, has the file open. A file that is no database any more
/// is in nobody's use.
bool isInUse(const QString& path);

/// Takes the write lock; gives false when another process holds it. Throws StoreError, naming `path`.
bool tryBeginWrite(QSqlDatabase& connection, const QString& path);

/// The error with a Romanian text that says what to do.
StoreError describe(const QSqlError& error, const QString& path);
StoreError describe(int extendedCode, const QString& engineText, const QString& path);

/// The files that the engine keeps beside a database file.
QStringList sideFiles(const QString& path);

}  // namespace velmar::sqlite
