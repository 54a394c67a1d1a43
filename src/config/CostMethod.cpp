#include "config/CostMethod.h"

#include "config/Session.h"
#include "store/Database.h"
#include "util/Errors.h"

namespace velmar {

void chooseCostMethod(const QString& method) {
  if (ExecutaSql("UPDATE kt_info SET TCOST = ? WHERE COALESCE(TCOST, '') NOT IN ('FIFO', 'MP')", {method}) ==
      0)
    throw RuleError(
        QStringLiteral("Metoda de evaluare a stocurilor a fost aleasa si nu se mai poate schimba !"),
        "TCOST");
  session().TCOST = method;
}

}  // namespace velmar
