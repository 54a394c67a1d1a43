#include "documents/OpenOrders.h"

#include "store/Database.h"

namespace velmar {

void repairDeliveredQuantities() { ExecutaSql("UPDATE G_LCOMCL SET CANTLIV = 0 WHERE CANTLIV IS NULL"); }

}  // namespace velmar
