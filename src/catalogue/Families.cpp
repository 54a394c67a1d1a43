#include "catalogue/Families.h"

#include "config/Checks.h"
#include "config/Numbers.h"
#include "store/Database.h"
#include "store/Records.h"

namespace velmar {

namespace {

struct Account {
  const char* column;
  const char* label;
};

// In the order of the checks, with their labels in messages.
const Account kAccounts[] = {{"CONTSTOCMARFA", "Cont stoc marfa"},
                             {"CONTCHELT", "Cont cheltuieli"},
                             {"CONTVEN", "Cont de venituri"},
                             {"CONTSTOCPROD", "Cont stoc de  productie"}};

const Table& families() { return companyTable("G_FAMART"); }

// The row to store; an account that differs from `before` must exist.
Row stored(const Row& family, const Row& before = {}) {
  Row row = rowOf("COD DENUMIRE CONTSTOCMARFA CONTCHELT CONTVEN CONTSTOCPROD");
  const QString name = family.text("DENUMIRE").trimmed();
  if (name.isEmpty())
    throw RuleError(QStringLiteral("Va rugam introduceti denumirea pentru familia de articole !"),
                    "DENUMIRE");
  row.set("DENUMIRE", name);
  for (const Account& account : kAccounts) {
    const QString symbol = family.text(account.column).trimmed();
    if (symbol.isEmpty())
      throw RuleError(QStringLiteral("Va rugam introduceti ") + account.label, account.column);
    row.set(account.column, symbol);
    requireKnownCode(row, account.column, "Cont", before);
  }
  return row;
}

}  // namespace

Row newFamily(const QString& name, const QString& CONTSTOCMARFA, const QString& CONTCHELT,
              const QString& CONTVEN, const QString& CONTSTOCPROD) {
  Row row = families().emptyRow();
  row.set("DENUMIRE", name);
  row.set("CONTSTOCMARFA", CONTSTOCMARFA);
  row.set("CONTCHELT", CONTCHELT);
  row.set("CONTVEN", CONTVEN);
  row.set("CONTSTOCPROD", CONTSTOCPROD);
  return row;
}

qint64 addFamily(const Row& family) {
  Row row = stored(family);
  Transaction transaction(database());
  row.set("COD", NumarUrmator("G_FAMART"));
  insertRecord(families(), row);
  transaction.commit();
  return row.integer("COD");
}

void saveFamily(const Row& family) {
  const qint64 code = family.text("COD").toLongLong();
  Row row = stored(family, record(families(), code));
  row.set("COD", code);
  if (!updateRecord(families(), row)) throw gone();
}

void removeFamily(qint64 code) { deleteRecord(families(), code); }

}  // namespace velmar
