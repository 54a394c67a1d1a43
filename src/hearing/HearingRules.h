// The rules that the data of the hearing-device trade must fulfil, for the check.
#pragma once

#include "documents/OtherTrade.h"

namespace velmar {

/// - a validated invoice, storno or voucher and its ledger rows belong together, with the same totals and
///   costs; the totals of a header are those of its lines;
/// - an invoice moves stock unless it was cancelled, a storno never, a voucher unless an invoice has it;
/// - an order is on one invoice of each party, a voucher on one invoice; links name what exists, and are
///   marked exactly with a storno or a cancelled invoice;
/// - the notes have the amounts of the document.
std::vector<CheckRule> hearingRules();

}  // namespace velmar
