// The VAT rates: a percent and the account that it posts to.
#pragma once

#include "store/Row.h"

namespace velmar {

/// Adds the rate with the row's `PROCENT` and `CONT` and gives its code. Throws RuleError, naming the column,
/// for a percent that is no number or an account that is too short.
qint64 addVatRate(const Row& rate);

/// Deletes the rate, used or not.
void removeVatRate(qint64 code);

}  // namespace velmar
