// The company's warehouses.
#pragma once

#include "store/Row.h"

namespace velmar {

/// The warehouses to work in, by code: `COD`, `DENUMIRE`. A company without any is given "Magazie 1" first.
Recordset workingWarehouses();

/// Adds the warehouse with the row's `DENUMIRE` and `JURNAL` (cash journal, may be null) and gives its code.
/// Throws RuleError, naming the column, for a name that is missing or taken.
qint64 addWarehouse(const Row& warehouse);

/// Gives the warehouse another name. Throws RuleError when the name is too long or there is no such warehouse
/// any more; an empty name changes nothing.
void renameWarehouse(qint64 code, const QString& name);

/// Throws RuleError for the working warehouse and for one that has documents.
void requireRemovableWarehouse(qint64 code);
/// Deletes the warehouse. Throws as requireRemovableWarehouse().
void removeWarehouse(qint64 code);

}  // namespace velmar
