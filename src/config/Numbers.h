// The next free numbers of documents and codes, and the last line of a document. Numbers of documents are
// text; those that do not read as a number, or lie beyond 9e15, never count.
#pragma once

#include <QString>

namespace velmar {

/// One more than the highest number of the table, 1 for an empty one. The spelling of the name chooses the
/// column (tables named otherwise count by `COD`). Throws StoreError for an unknown table, and number 13 when
/// the codes of G_ARTMAG, or of a table counted by COD, are not all numbers.
qint64 NumarUrmator(const QString& table);

/// The highest line number of a document, 0 when it has no lines. Throws StoreError for a table that holds no
/// document lines.
qint64 LinieUrmatoare(const QString& table, const QString& number);

/// One more than the highest invoice number in the stock ledger, storno invoices included.
qint64 FacturaUrmatoare();

/// One more than the highest number of a cash sale in the stock ledger.
qint64 BonUrmator();

}  // namespace velmar
