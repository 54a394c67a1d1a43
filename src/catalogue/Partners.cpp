#include "catalogue/Partners.h"

#include "config/Numbers.h"
#include "config/Session.h"
#include "store/Database.h"
#include "store/Schema.h"
#include "util/Clock.h"
#include "util/Errors.h"

namespace velmar {

namespace {

Value textOrNull(const QString& text) { return text.trimmed().isEmpty() ? Value() : Value(text.trimmed()); }

}  // namespace

qint64 addPartner(const Partner& partner) {
  if (partner.NUME.trimmed().isEmpty())
    throw RuleError(QStringLiteral("Va rugam introduceti numele societatii ! Salvarea nu se poate efectua !"),
                    "NUME");
  if (partner.TIP.trimmed().isEmpty())
    throw RuleError(QStringLiteral("Trebuie sa alegeti tipul de tert!"), "TIP");
  const Table& table = companyTable("kt_ter");
  Row row = table.emptyRow();
  const std::pair<const char*, const QString&> texts[] = {{"NUME", partner.NUME},
                                                          {"TIP", partner.TIP},
                                                          {"CODFISCAL", partner.CODFISCAL},
                                                          {"RegCom", partner.RegCom},
                                                          {"AD", partner.AD},
                                                          {"CP", partner.CP},
                                                          {"ORAS", partner.ORAS},
                                                          {"Judet", partner.Judet},
                                                          {"TARA", partner.TARA},
                                                          {"BANCA", partner.BANCA},
                                                          {"CONTBANCAR", partner.CONTBANCAR}};
  QStringList columns{"COD", "CT", "UTILIZATOR", "DATAC"};
  Transaction transaction(database());
  const qint64 code = NumarUrmator("kt_ter");
  Values values{code, "RO", session().gUtilizator, clock::today()};
  for (const auto& [column, text] : texts) {
    row.set(column, textOrNull(text));
    columns.append(column);
    values.push_back(textOrNull(text));
  }
  requireWidths(table, row);
  database().insertRows(table.name(), columns, {values});
  transaction.commit();
  return code;
}

}  // namespace velmar
