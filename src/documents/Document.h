// A document on its way: its header and lines, and what its validation will write.
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
  /// The header as it stood on screen, by HeaderField::key(): what no table stores comes from here.
  QHash<QString, QString> typed = {};
};

/// The document's ledger entry as far as all kinds have it alike: key, kind and direction, warehouse,
/// partner, date and remark. The rules add the rest.
LedgerDocument ledgerOf(const Document& document);

/// Adds the totals of a document in lei: value without VAT, VAT, cost.
void addTotalsInLei(LedgerDocument& ledger, const Decimal& value, const Decimal& vat, const Decimal& cost);

/// What a return to a supplier takes off the receipt that it names.
struct ReceiptReturn {
  QString receipt;                     ///< ledger key as typed
  QHash<QString, Decimal> quantities;  ///< positive, by article
};

/// What validation will write, worked out before anything is written.
struct Plan {
  std::vector<LedgerDocument> ledger;
  std::vector<Row> costedLines;  ///< lines of the draft whose cost the lots have decided
  QStringList costColumns;       ///< what of them
  std::vector<Consumption> lots;
  ReceiptReturn returned;
  std::vector<StockChange> stock;
  Posting posting;
};

}  // namespace velmar
