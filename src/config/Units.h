// The units of measure and their codes on electronic invoices (recommendation 20 of UN/ECE).
#pragma once

#include "store/Row.h"

namespace velmar {

/// Adds the unit with the row's `UM` and `COD`. Throws RuleError, naming the column, for a unit that is
/// missing or known and for a code that isUnitCode() does not know.
void addUnit(const Row& unit);
/// Stores a new code. Throws RuleError as addUnit().
void changeUnitCode(const QString& unit, const QString& code);
void removeUnit(const QString& unit);

}  // namespace velmar
