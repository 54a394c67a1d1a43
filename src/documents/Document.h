// A document: its header and lines, and the plan of what its validation writes.
#pragma once

#include <QHash>
#include <vector>

#include "accounting/Posting.h"
#include "stock/Ledger.h"
#include "stock/Lots.h"
#include "store/Row.h"

namespace velmar {

struct DocumentKind;

struct Document {
  const DocumentKind* kind = nullptr;
  QString number;
  Row header;              ///< a row of the kind's header table
  std::vector<Row> lines;  ///< rows of its line table, by NRLINIE
  /// The header as shown on screen, by HeaderField::key(), for values that no table stores.
  QHash<QString, QString> typed = {};
};

/// The part of the document's ledger entry common to all kinds: key, kind and direction, warehouse, partner,
/// date and remark. The rules add the rest.
LedgerDocument ledgerOf(const Document& document);

/// Adds the totals of a document in lei: value without VAT, VAT, cost.
void addTotalsInLei(LedgerDocument& ledger, const Decimal& value, const Decimal& vat, const Decimal& cost);

/// The quantities by which a return to a supplier reduces the receipt that it refers to.
struct ReceiptReturn {
  QString receipt;                     ///< ledger key as typed
  QHash<QString, Decimal> quantities;  ///< positive, by article
};

/// What validation will write, determined before anything is written.
struct Plan {
  std::vector<LedgerDocument> ledger;
  std::vector<Row> costedLines;  ///< lines of the draft whose cost was determined by the lots
  QStringList costColumns;       ///< the columns to store for them
  std::vector<Consumption> lots;
  ReceiptReturn returned;
  std::vector<StockChange> stock;
  Posting posting;
};

}  // namespace velmar
