// Copies a whole company from one database to another, between any two engines, and verifies that nothing was
// lost.
#pragma once

#include <functional>
#include <QList>
#include <QString>

#include "util/Decimal.h"

namespace velmar {

class Database;

/// Fingerprint of a table's contents, for comparison: number of rows, exact sums of the numbers, and a
/// checksum that changes with any cell but does not depend on the order of the rows.
struct TableProof {
  QString table;
  qint64 rows = 0;
  QList<Decimal> sums;  ///< of the numeric columns, in their order
  quint64 mark = 0;

  bool operator==(const TableProof&) const = default;
};

/// The fingerprints of all tables of a company, from one snapshot.
QList<TableProof> proofOf(Database& company);

/// Called with the number of tables done and the total; throws Cancelled to stop.
using CopyProgress = std::function<void(int done, int of)>;

/// Creates a database at the path, which must not exist, with a snapshot of all data of the company,
/// including tables and columns that only it has, and compares both. Throws StoreError with its name when
/// something cannot be copied. After a failure the caller removes what was created.
void copyToNewDatabase(Database& from, const QString& path, const CopyProgress& progress = {});

/// Copies the database at one path to another, completely or not at all, replacing an existing one. Each may
/// be a file or a database on a server, depending on its folder. Throws StoreError.
void copyDatabase(const QString& from, const QString& to, const CopyProgress& progress = {});

}  // namespace velmar
