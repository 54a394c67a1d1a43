// What customers have ordered and not received yet.
#pragma once

namespace velmar {

/// Order lines of which nothing is told to be delivered have 0 delivered from now on.
void repairDeliveredQuantities();

}  // namespace velmar
