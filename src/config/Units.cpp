#include "config/Units.h"

#include <QRegularExpression>

#include "config/UnitCodes.h"
#include "store/Database.h"
#include "store/Records.h"
#include "util/Errors.h"

namespace velmar {

namespace {

const Table& units() { return companyTable("G_UM"); }

QString requiredCode(const QString& typed) {
  static const QRegularExpression code(QStringLiteral("^[A-Z0-9]{2,3}$"));
  const QString capitals = typed.trimmed().toUpper();
  if (!code.match(capitals).hasMatch())
    throw RuleError(QStringLiteral("Codul unitatii are 2 sau 3 litere mari si cifre, de exemplu H87 !"),
                    "COD");
  if (!isUnitCode(capitals))
    throw RuleError(QStringLiteral("Codul %1 nu este in lista codurilor de unitati !").arg(capitals), "COD");
  return capitals;
}

}  // namespace

void addUnit(const Row& unit) {
  Row row = rowOf("UM COD");
  row.set("UM", unit.text("UM").trimmed());
  row.set("COD", requiredCode(unit.text("COD")));
  if (row.text("UM").isEmpty()) throw RuleError(QStringLiteral("Introduceti unitatea de masura !"), "UM");
  Transaction transaction(database());
  if (!OpenRs("SELECT UM FROM G_UM WHERE UPPER(UM) = ?", {row.text("UM").toUpper()}).isEmpty())
    throw RuleError(QStringLiteral("Unitatea de masura %1 exista deja !").arg(row.text("UM")), "UM");
  insertRecord(units(), row);
  transaction.commit();
}

void changeUnitCode(const QString& unit, const QString& code) {
  updateField(units(), unit, "COD", requiredCode(code));
}

void removeUnit(const QString& unit) { deleteRecord(units(), unit); }

}  // namespace velmar
