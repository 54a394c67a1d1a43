// The plan of accounts that the company works by (0 general, 1 budget, 2 non-profit), replaced as a whole
// while nothing has been posted yet.
#pragma once

#include "store/Row.h"

namespace velmar {

/// Whether the plan may still be replaced: only while there is no entry.
bool accountPlanMayChange();

/// Replaces the chart of accounts by that of the plan, the VAT rates by the two of the plan, and takes the
/// accounts from the journals; all or nothing. Throws RuleError once there are entries.
void changeAccountPlan(int plan);

/// The accounts under which documents of that plan are posted, by column of `kt_par`; null where the plan has
/// none.
Row defaultAccounts(int plan);

}  // namespace velmar
