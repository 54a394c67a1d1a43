// The receipt of a cash sale on its way to the fiscal register. What was sent is known to the company before
// the register is started, so that no crash brings a second receipt unasked.
#pragma once

#include "documents/Drafts.h"
#include "documents/TypedHeader.h"
#include "store/Row.h"

namespace velmar {

enum class ReceiptOutcome {
  Printed,
  NotPrinted,  ///< or not known to be: the user has been told, or does not know either
  OnPaper      ///< belongs on an ordinary printer: no register is used, or its program is not installed
};

/// Prints the receipt of a draft on the company's register (`CasaMarcat`) when the box CheckCasaMarcat is
/// ticked. Stores the header, marks the draft as being sent, and prints its lines, which must be those that
/// the user saw in `shown`. Ends with LISTAT set when the receipt was printed, else with a draft that can be
/// printed again. Where an earlier attempt never came to its end, or the user gives up waiting, it is asked
/// whether the receipt came out. Throws RuleError when the draft cannot be printed, StoreError when the
/// company cannot be written; a draft that is marked then stays so, and the next attempt asks.
ReceiptOutcome printCashReceipt(const TypedHeader& typed, const Row& header, const ShownDraft& shown);

}  // namespace velmar
