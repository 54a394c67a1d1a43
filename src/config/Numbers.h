// The next free numbers of documents and codes, and the last line of a document. Document numbers are text;
// those that are not numeric, or beyond 9e15, are ignored.
#pragma once

#include <QString>

namespace velmar {

/// The highest number of the table plus one, 1 for an empty table. The column depends on the exact spelling
/// of the name (`COD` for names not listed). Throws StoreError for an unknown table, with number 13 when
/// codes of G_ARTMAG, or of a table numbered by COD, are not numeric.
qint64 NumarUrmator(const QString& table);

/// The highest line number of a document, 0 when it has no lines. Throws StoreError for a table without
/// document lines.
qint64 LinieUrmatoare(const QString& table, const QString& number);

/// The highest invoice number in the stock ledger plus one, storno invoices included.
qint64 FacturaUrmatoare();

/// The highest number of a cash sale in the stock ledger plus one.
qint64 BonUrmator();

}  // namespace velmar
