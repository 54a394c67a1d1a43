// The hearing-device trade as the list of documents, the reprint and the check see it.
#pragma once

#include "documents/ListingKind.h"

namespace velmar {

/// Makes this the other trade of the process (documents/OtherTrade.h). To be called once, at the start.
void registerHearingTrade();

/// The listing forms of the trade: of invoices, which is that of customer invoices, of stornos, and of repair
/// vouchers.
const ListingKind& hearingInvoicePaper();
const ListingKind& hearingStornoPaper();
const ListingKind& repairVoucherPaper();

}  // namespace velmar
