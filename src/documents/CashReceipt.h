// Prints the receipt of a cash sale on the fiscal register. The attempt is stored before the register is
// started, so that after a crash the user is asked before a second receipt is printed.
#pragma once

#include "documents/Drafts.h"
#include "documents/TypedHeader.h"
#include "store/Row.h"

namespace velmar {

enum class ReceiptOutcome {
  Printed,
  NotPrinted,  ///< or unknown; the user has been informed or asked
  OnPaper      ///< to be printed on an ordinary printer: no register is used, or its program is not installed
};

/// Prints the receipt of a draft on the company's register (`CasaMarcat`) when the box CheckCasaMarcat is
/// ticked. Stores the header, marks the draft as being sent, and prints its lines, which must be those that
/// the user saw in `shown`. Ends with LISTAT set when the receipt was printed, else with a draft that can be
/// printed again. If an earlier attempt did not end, or the user gives up waiting, the user is asked whether
/// the receipt was printed. Throws RuleError when the draft cannot be printed, StoreError when the company
/// cannot be written; the draft may then remain marked, and the next attempt asks.
ReceiptOutcome printCashReceipt(const TypedHeader& typed, const Row& header, const ShownDraft& shown);

}  // namespace velmar
