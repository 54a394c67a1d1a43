// The company's chart of accounts (0 general, 1 budget, 2 non-profit). It can be replaced as a whole until
// the first entry is posted.
#pragma once

#include "store/Row.h"

namespace velmar {

/// True while there are no entries.
bool accountPlanMayChange();

/// Replaces the accounts and the VAT rates by those of the plan and clears the accounts of the journals, in
/// one transaction. Throws RuleError when there are entries.
void changeAccountPlan(int plan);

/// The plan's default posting accounts, by column of `kt_par`; null where the plan has none.
Row defaultAccounts(int plan);

}  // namespace velmar
