#include "config/VatRates.h"

#include <algorithm>

#include "config/Accounts.h"
#include "config/Checks.h"
#include "config/Numbers.h"
#include "store/Database.h"
#include "store/Records.h"
#include "util/Errors.h"

namespace velmar {

namespace {

// The rate with its category and exemption as they are stored.
Row checkedCategory(const Row& typed) {
  Row rate = typed;
  for (const char* column : {"CATEGORIE", "CODSCUTIRE"})
    rate.set(column, typed.text(column).trimmed().toUpper());
  rate.set("TEXTSCUTIRE", typed.text("TEXTSCUTIRE").trimmed());
  const QString category = rate.text("CATEGORIE");
  const bool hasReason = !rate.text("CODSCUTIRE").isEmpty() || !rate.text("TEXTSCUTIRE").isEmpty();
  const auto& all = vatCategories();
  if (!category.isEmpty() && std::none_of(all.begin(), all.end(), [&category](const VatCategory& each) {
        return category == QLatin1String(each.code);
      }))
    throw RuleError(QStringLiteral("Categoria %1 nu exista !").arg(category), "CATEGORIE");
  if (!category.isEmpty() && rate.decimal("PROCENT") != 0)
    throw RuleError(QStringLiteral("Numai o cota de 0 are categorie !"), "CATEGORIE");
  const bool isWithout = category.isEmpty() || category == QStringLiteral("Z");
  if (isWithout && hasReason)
    throw RuleError(QStringLiteral("Codul si textul scutirii cer o categorie scutita (E, AE, K, G) !"),
                    "CATEGORIE");
  for (const char* column : {"CATEGORIE", "CODSCUTIRE", "TEXTSCUTIRE"})
    if (rate.text(column).isEmpty()) rate.set(column, Value());
  return rate;
}

}  // namespace

const std::vector<VatCategory>& vatCategories() {
  static const std::vector<VatCategory> all = {{"Z", "Cota zero"},
                                               {"E", "Scutit"},
                                               {"AE", "Taxare inversa"},
                                               {"K", "Livrare intracomunitara"},
                                               {"G", "Export"}};
  return all;
}

qint64 addVatRate(const Row& rate) {
  const QString noNumber = QStringLiteral("Va rugam introduceti o valoare numerica pentru cota TVA !");
  const auto percent = numberIn(rate, "PROCENT", noNumber);
  if (!percent) throw RuleError(noNumber, "PROCENT");
  if (percent->isNegative()) throw RuleError(QStringLiteral("Cota TVA nu poate fi negativa !"), "PROCENT");
  const QString account = rate.text("CONT").trimmed();
  if (const QString text = shortAccountObjection(account); !text.isEmpty()) throw RuleError(text, "CONT");
  Row row = rowOf("COD CONT PROCENT CATEGORIE CODSCUTIRE TEXTSCUTIRE");
  row.set("CONT", account);
  requireKnownCode(row, "CONT", "Cont");
  row.set("PROCENT", *percent);
  for (const char* column : {"CATEGORIE", "CODSCUTIRE", "TEXTSCUTIRE"})
    if (rate.has(column)) row.set(column, rate.text(column));
  row = checkedCategory(row);
  Transaction transaction(database());
  row.set("COD", NumarUrmator("kt_cote"));
  insertRecord(companyTable("kt_cote"), row);
  transaction.commit();
  return row.integer("COD");
}

void changeVatCategory(qint64 code, const Row& typed) {
  Transaction transaction(database());
  const Row stored = record(companyTable("kt_cote"), code);
  if (stored.isEmpty()) throw gone();
  Row changed = rowOf({"PROCENT", "CATEGORIE", "CODSCUTIRE", "TEXTSCUTIRE"}, typed);
  changed.set("PROCENT", stored.decimal("PROCENT"));
  changed = checkedCategory(changed);
  for (const char* column : {"CATEGORIE", "CODSCUTIRE", "TEXTSCUTIRE"})
    updateField(companyTable("kt_cote"), code, column, Value::raw(changed.value(column)));
  transaction.commit();
}

void removeVatRate(qint64 code) { deleteRecord(companyTable("kt_cote"), code); }

}  // namespace velmar
