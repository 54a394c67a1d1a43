#include "config/Warehouses.h"

#include "config/Checks.h"
#include "config/Numbers.h"
#include "config/Session.h"
#include "store/Database.h"
#include "store/Records.h"
#include "util/Errors.h"

namespace velmar {

Recordset workingWarehouses() {
  const QString all = QStringLiteral("SELECT COD, DENUMIRE FROM G_MULTIMAGAZIE ORDER BY COD NULLS FIRST");
  Recordset found = OpenRs(all);
  if (!found.isEmpty()) return found;
  Transaction transaction(database());
  // Another workstation may have created it meanwhile.
  const qint64 code = NumarUrmator(QStringLiteral("G_MULTIMAGAZIE"));
  if (OpenRs(all).isEmpty())
    ExecutaSql("INSERT INTO G_MULTIMAGAZIE (COD, DENUMIRE) VALUES (?, ?)",
               {code, QStringLiteral("Magazie %1").arg(code)});
  transaction.commit();
  return OpenRs(all);
}

qint64 addWarehouse(const Row& warehouse) {
  const QString name = warehouse.text("DENUMIRE").trimmed();
  if (name.isEmpty())
    throw RuleError(QStringLiteral("Va rugam specificati denumirea magaziei!"), "DENUMIRE", 0, "Atentie");
  Transaction transaction(database());
  if (Exista(name, "Magazie"))
    throw RuleError(
        QStringLiteral("Magazia cu denumirea %1 exista deja ! Magazia nu se poate adauga !").arg(name),
        "DENUMIRE");
  Row row = rowOf("COD DENUMIRE JURNAL");
  row.set("COD", NumarUrmator("G_MULTIMAGAZIE"));
  row.set("DENUMIRE", name);
  row.set("JURNAL", Value::raw(warehouse.value("JURNAL")));
  insertRecord(companyTable("G_MULTIMAGAZIE"), row);
  transaction.commit();
  return row.integer("COD");
}

void renameWarehouse(qint64 code, const QString& typed) {
  const QString name = typed.trimmed();
  if (name.isEmpty()) return;
  Row row = rowOf("COD DENUMIRE");
  row.set("COD", code);
  row.set("DENUMIRE", name);
  Transaction transaction(database());
  if (!OpenRs("SELECT COD FROM G_MULTIMAGAZIE WHERE DENUMIRE = ? AND COD <> ?", {name, code}).isEmpty())
    throw RuleError(QStringLiteral("Magazia cu denumirea %1 exista deja !").arg(name), "DENUMIRE");
  if (!updateRecord(companyTable("G_MULTIMAGAZIE"), row)) throw gone();
  transaction.commit();
}

void requireRemovableWarehouse(qint64 code) {
  if (code == session().gMagazie) throw RuleError(QStringLiteral("Magazia de lucru nu se poate sterge !"));
  if (Exista(QString::number(code), "MAG_IN_GLINII"))
    throw RuleError(QStringLiteral("Exista documente pentru aceasta magazie si nu poate fi eliminata !"));
}

void removeWarehouse(qint64 code) {
  Transaction transaction(database());
  requireRemovableWarehouse(code);
  deleteRecord(companyTable("G_MULTIMAGAZIE"), code);
  transaction.commit();
}

}  // namespace velmar
