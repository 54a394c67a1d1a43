// A document on its way: its header and lines, and what its validation will write.
#pragma once

#include <vector>

#include "accounting/Notes.h"
#include "stock/Ledger.h"
#include "store/Row.h"

namespace velmar {

struct DocumentKind;

struct Document {
  const DocumentKind* kind = nullptr;
  QString number;
  Row header;              ///< a row of the kind's header table
  std::vector<Row> lines;  ///< rows of its line table, by NRLINIE
};

/// What validation will write, worked out before anything is written.
struct Plan {
  std::vector<LedgerDocument> ledger;
  std::vector<StockChange> stock;
  std::vector<PostingStep> posting;  ///< empty: nothing is posted
};

}  // namespace velmar
