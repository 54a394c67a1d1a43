// The rows of the template: charts of accounts, VAT rates, currencies, journals, operations, parameters, the
// first user. They are in tab-separated files, one for each table, in src/store/template.
#pragma once

#include <QString>

namespace velmar {

class Database;

/// Fills the empty tables of a new template.
void insertTemplateData(Database& database);

/// Fills one empty table of an older company with the rows of the template.
void insertTemplateRows(Database& database, const QString& table);

}  // namespace velmar
