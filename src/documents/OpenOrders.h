// Customer orders that are not delivered yet.
#pragma once

namespace velmar {

/// Sets the delivered quantity of order lines to 0 where it is null.
void repairDeliveredQuantities();

}  // namespace velmar
