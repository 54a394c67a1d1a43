// SQLite-specific code: opening a file, the write lock, SQL functions, the texts of errors.
#pragma once

#include <QSqlDatabase>
#include <QSqlError>

#include "util/Errors.h"

struct sqlite3;

namespace velmar::sqlite {

/// Mark a file as a database of this program, and the version of its format (independent of
/// kt_info.VERSIUNE).
inline constexpr int kApplicationId = 0x564C4D52;  // "VLMR"
inline constexpr int kFormatVersion = 1;

/// How long the engine waits for a lock before it reports that the file is busy.
inline constexpr int kBusyTimeoutMs = 200;

/// Opens `path` under the given connection name, or creates the file. Throws StoreError.
QSqlDatabase open(const QString& path, const QString& connectionName, bool create);

/// The SQLite handle of an open connection.
sqlite3* handleOf(const QSqlDatabase& connection);

/// Whether another connection, of this or another process, has the file open. False for a file that is no
/// longer a database. Throws StoreError when the journal beside it is another file's.
bool isInUse(const QString& path);

/// Takes the write lock; returns false when another process holds it. Throws StoreError that names `path`.
bool tryBeginWrite(QSqlDatabase& connection, const QString& path);

/// The error with advice in Romanian.
StoreError describe(const QSqlError& error, const QString& path);
StoreError describe(int extendedCode, const QString& engineText, const QString& path);

/// Whether the file is damaged, or no database at all.
bool isDamage(const StoreError& error);

/// The side files that SQLite keeps for a database file.
QStringList sideFiles(const QString& path);

}  // namespace velmar::sqlite
