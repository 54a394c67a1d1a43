#include "config/VatRates.h"

#include "config/Accounts.h"
#include "config/Checks.h"
#include "config/Numbers.h"
#include "store/Database.h"
#include "store/Records.h"

namespace velmar {

qint64 addVatRate(const Row& rate) {
  const QString noNumber = QStringLiteral("Va rugam introduceti o valoare numerica pentru cota TVA !");
  const auto percent = numberIn(rate, "PROCENT", noNumber);
  if (!percent) throw RuleError(noNumber, "PROCENT");
  if (percent->isNegative()) throw RuleError(QStringLiteral("Cota TVA nu poate fi negativa !"), "PROCENT");
  const QString account = rate.text("CONT").trimmed();
  if (const QString text = shortAccountObjection(account); !text.isEmpty()) throw RuleError(text, "CONT");
  Row row = rowOf("COD CONT PROCENT");
  row.set("CONT", account);
  requireKnownCode(row, "CONT", "Cont");
  row.set("PROCENT", *percent);
  Transaction transaction(database());
  row.set("COD", NumarUrmator("kt_cote"));
  insertRecord(companyTable("kt_cote"), row);
  transaction.commit();
  return row.integer("COD");
}

void removeVatRate(qint64 code) { deleteRecord(companyTable("kt_cote"), code); }

}  // namespace velmar
