// What a database engine refused, in Romanian: the engines say it in English. Names of tables and columns are
// kept.
#pragma once

#include <QString>

namespace velmar {

/// Of SQLite's primary error code and message.
QString sqliteReason(int code, const QString& message);

/// Of PostgreSQL's five-letter code and message.
QString postgresReason(const QString& state, const QString& message);

}  // namespace velmar
