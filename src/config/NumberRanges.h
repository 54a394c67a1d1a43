// The ranges from which customer invoices and delivery notes take their numbers: series, first and last
// number.
#pragma once

#include "store/Row.h"

namespace velmar {

/// The row with both ranges trimmed. A range is complete (a series without digits, limits of digits alone,
/// the first below the last) or wholly empty, which means none; else throws RuleError naming the column.
Row checkedRanges(const Row& row);

}  // namespace velmar
