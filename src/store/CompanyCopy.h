// Copies a whole company from one database to another, of whichever engines, and proves that nothing was
// lost.
#pragma once

#include <functional>
#include <QList>
#include <QString>

#include "util/Decimal.h"

namespace velmar {

class Database;

/// What a table holds, to be compared with another one: its rows, the exact sums of its numbers, and a mark
/// that any difference in any cell changes, in whatever order the rows come.
struct TableProof {
  QString table;
  qint64 rows = 0;
  QList<Decimal> sums;  ///< of the columns with numbers, in their order
  quint64 mark = 0;

  bool operator==(const TableProof&) const = default;
};

/// The proofs of all tables of a company, as of one moment.
QList<TableProof> proofOf(Database& company);

/// Hears how many tables of how many are done; throws Cancelled to stop.
using CopyProgress = std::function<void(int done, int of)>;

/// Makes a database at the path, where none may stand, with all that the company holds as of one moment, its
/// own tables and columns included, and compares both. Throws StoreError, naming it, when something cannot be
/// carried over. What a failure leaves there is the caller's to remove.
void copyToNewDatabase(Database& from, const QString& path, const CopyProgress& progress = {});

/// Copies the database at one path to another, whole or not at all; one that stands there is replaced. Either
/// may be a file or a database of a server, by its folder. Throws StoreError.
void copyDatabase(const QString& from, const QString& to, const CopyProgress& progress = {});

}  // namespace velmar
