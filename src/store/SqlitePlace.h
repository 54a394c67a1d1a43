// Which file a journal belongs to. SQLite applies "FILE-wal" to whatever lies at FILE: a file that was put
// there while another one was open would be overwritten with pages of that one.
#pragma once

#include <QString>

namespace velmar::sqlite {

/// The file in which the identity of the database at that path is remembered.
QString placeMark(const QString& path);

/// Remembers which file lies at the path.
void rememberPlace(const QString& path);

/// Throws StoreError when the journal of the path has data of another file than the one that lies there. A
/// file in the place of one that left no data is remembered from now on, if that one was.
void requireOwnJournal(const QString& path);

}  // namespace velmar::sqlite
