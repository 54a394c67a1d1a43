#include "catalogue/Families.h"

#include "config/Numbers.h"
#include "store/Database.h"
#include "store/Schema.h"
#include "util/Errors.h"

namespace velmar {

namespace {

struct Box {
  const char* column;
  const char* label;
  QString Family::*member;
};

// In the order of the checks; the labels are those of the messages.
const Box kAccounts[] = {{"CONTSTOCMARFA", "Cont stoc marfa", &Family::CONTSTOCMARFA},
                         {"CONTCHELT", "Cont cheltuieli", &Family::CONTCHELT},
                         {"CONTVEN", "Cont de venituri", &Family::CONTVEN},
                         {"CONTSTOCPROD", "Cont stoc de  productie", &Family::CONTSTOCPROD}};

}  // namespace

qint64 addFamily(const Family& family) {
  const Table& table = companyTable("G_FAMART");
  Row row = table.emptyRow();
  if (family.DENUMIRE.trimmed().isEmpty())
    throw RuleError(QStringLiteral("Va rugam introduceti denumirea pentru familia de articole !"),
                    "DENUMIRE");
  row.set("DENUMIRE", family.DENUMIRE.trimmed());
  for (const Box& box : kAccounts) {
    const QString account = (family.*box.member).trimmed();
    if (account.isEmpty()) throw RuleError(QStringLiteral("Va rugam introduceti ") + box.label, box.column);
    row.set(box.column, account);
  }
  requireWidths(table, row);
  Transaction transaction(database());
  const qint64 code = NumarUrmator("G_FAMART");
  database().insertRows(table.name(),
                        {"COD", "DENUMIRE", "CONTSTOCMARFA", "CONTCHELT", "CONTVEN", "CONTSTOCPROD"},
                        {{code, row.text("DENUMIRE"), row.text("CONTSTOCMARFA"), row.text("CONTCHELT"),
                          row.text("CONTVEN"), row.text("CONTSTOCPROD")}});
  transaction.commit();
  return code;
}

}  // namespace velmar
