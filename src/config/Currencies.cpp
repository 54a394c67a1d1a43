#include "config/Currencies.h"

#include "config/Checks.h"
#include "store/Database.h"
#include "store/Records.h"

namespace velmar {

namespace {

// Of several rates of a day the one entered last is valid.
const QString kRates = QStringLiteral(
    "SELECT COD, DATA, CURS, ID FROM kt_val2 WHERE COD = ?%1 "
    "ORDER BY DATA DESC NULLS LAST, ID DESC%2");

}  // namespace

void addCurrency(const Row& currency) {
  const QString code = currency.text("COD").trimmed();
  if (code.isEmpty()) throw RuleError(QStringLiteral("Va rugam completati codul valutei  !"), "COD");
  Row row = rowOf("COD TITLU");
  row.set("COD", code);
  row.set("TITLU", currency.text("TITLU").trimmed());
  Transaction transaction(database());
  if (Exista(code, "CodValuta"))
    throw RuleError(QStringLiteral("Acest cod de valuta exista deja ! Adaugarea nu se poate efectua !"),
                    "COD");
  insertRecord(companyTable("kt_val"), row);
  transaction.commit();
}

void removeCurrency(const QString& code) { deleteRecord(companyTable("kt_val"), code); }

void enterRate(const QString& currency, const Row& rate) {
  const QString noNumber = QStringLiteral("Va rugam introduceti o valoare numerica !");
  const auto value = numberIn(rate, "CURS", noNumber);
  if (!value) throw RuleError(noNumber, "CURS");
  if (*value <= 0) throw RuleError(QStringLiteral("Cursul trebuie sa fie mai mare decat 0 !"), "CURS");
  if (currency.isEmpty()) throw RuleError(QStringLiteral("Va rugam selectati un cod de valuta !"));
  Row row = rowOf("COD CURS DATA");
  row.set("COD", currency);
  row.set("CURS", *value);
  row.set("DATA", rate.date("DATA"));
  Transaction transaction(database());
  const Recordset newest = newestRates(currency, 1);
  if (!newest.isEmpty() && newest.first().date("DATA") == row.date("DATA"))
    updateField(companyTable("kt_val2"), newest.first().integer("ID"), "CURS", *value);
  else
    insertRecord(companyTable("kt_val2"), row);
  transaction.commit();
}

Recordset newestRates(const QString& currency, const std::optional<int>& count) {
  return count ? OpenRs(kRates.arg(QString(), QStringLiteral(" LIMIT ?")), {currency, *count})
               : OpenRs(kRates.arg(QString(), QString()), {currency});
}

Recordset ratesOf(const QString& currency, const QDate& day) {
  return OpenRs(kRates.arg(QStringLiteral(" AND DATA = ?"), QString()), {currency, day});
}

bool ROL() { return !OpenRs("SELECT TITLU FROM kt_val WHERE COD = 'ROL' AND TITLU = 'LEI VECHI'").isEmpty(); }

}  // namespace velmar
