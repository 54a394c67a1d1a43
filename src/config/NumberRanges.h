// The ranges from which customer invoices and delivery notes take their numbers: series, first and last
// number.
#pragma once

#include "store/Row.h"

namespace velmar {

/// Returns the row with both ranges trimmed. A range is complete (a series without digits, limits of digits
/// only, the first below the last) or empty, which means no range; otherwise throws RuleError naming the
/// column.
Row checkedRanges(const Row& row);

}  // namespace velmar
