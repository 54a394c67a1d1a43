// The VAT rates: a percentage and the account to which the VAT is posted.
#pragma once

#include "store/Row.h"

namespace velmar {

/// Adds the rate with the row's `PROCENT` and `CONT` and returns its code. Throws RuleError, naming the
/// column, for a percentage that is not a number or an account that is too short.
qint64 addVatRate(const Row& rate);

/// Deletes the rate, even if it is in use.
void removeVatRate(qint64 code);

}  // namespace velmar
