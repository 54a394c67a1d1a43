#include "reports/Variables.h"

#include "config/Session.h"

namespace velmar {

void Variables::add(const QString& name, const QVariant& value) {
  data_.extraVariables.push_back(described(name, value));
}

void Variables::addColumns(const Recordset& rows, const QStringList& columns, const QString& prefix) {
  if (rows.isEmpty()) return;
  for (const QString& column : columns)
    add(prefix + column, rows.first().has(column) ? rows.first().value(column) : QVariant(QString()));
}

void Variables::addCompany() {
  const Recordset company = session().gDataEnv.open("Get_Info");
  addColumns(company, {"DENUMIRE", "CAPSOC", "NREGCOM", "STRADA1", "NR1", "BLOC1", "AP1", "ORAS1"});
  if (!company.isEmpty()) add("SECTOR1", company.first().text("SECTOR1"));
  addColumns(company, {"JUDET1"});
  addColumns(company, {"BANCA", "CONTBANCAR", "CODFISCAL"}, "KT_");
}

}  // namespace velmar
