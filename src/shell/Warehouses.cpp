#include "shell/Warehouses.h"

#include "config/Numbers.h"
#include "store/Database.h"

namespace velmar {

Recordset workingWarehouses() {
  const QString all = QStringLiteral("SELECT COD, DENUMIRE FROM G_MULTIMAGAZIE ORDER BY COD NULLS FIRST");
  Recordset found = OpenRs(all);
  if (!found.isEmpty()) return found;
  Transaction transaction(database());
  // Another workstation may have been faster.
  const qint64 code = NumarUrmator(QStringLiteral("G_MULTIMAGAZIE"));
  if (OpenRs(all).isEmpty())
    ExecutaSql("INSERT INTO G_MULTIMAGAZIE (COD, DENUMIRE) VALUES (?, ?)",
               {code, QStringLiteral("Magazie %1").arg(code)});
  transaction.commit();
  return OpenRs(all);
}

}  // namespace velmar
