// The lists of what was validated: documents with their lines, and stock movements.
#pragma once

#include "store/Filter.h"

namespace velmar {

class Database;

/// All documents of the ledger, with the partner's name; key ID.
const ListQuery& documentList();
/// The columns of documentList() that a filter offers.
QList<FilterField> documentFilter();
/// The lines of a document, by line; the parameter is its key.
const QString& documentLinesSql();

/// All lines of the ledger whose article and warehouse exist; key DOCID, LINIE.
const ListQuery& movementList();
/// The columns of movementList() that a filter offers.
QList<FilterField> movementFilter();

/// Sums over movements, in lei with 4 decimals.
struct MovementTotals {
  qint64 count = 0;
  Decimal vat;           ///< VALTVA
  Decimal value;         ///< VALOAREFT
  Decimal valueWithVat;  ///< VALOARETTI
  Decimal cost;          ///< VALCOST
};
MovementTotals movementTotals(Database& connection, const Condition& condition);

}  // namespace velmar
