// The company's warehouses.
#pragma once

#include "store/Row.h"

namespace velmar {

/// All warehouses, by code: `COD`, `DENUMIRE`. If there is none, "Magazie 1" is created first.
Recordset workingWarehouses();

/// Adds the warehouse with the row's `DENUMIRE` and `JURNAL` (cash journal, may be null) and returns its
/// code. Throws RuleError, naming the column, for a name that is missing or taken.
qint64 addWarehouse(const Row& warehouse);

/// Renames the warehouse; an empty name changes nothing. Throws RuleError when the name is too long or the
/// warehouse no longer exists.
void renameWarehouse(qint64 code, const QString& name);

/// Throws RuleError for the working warehouse and for one that has documents.
void requireRemovableWarehouse(qint64 code);
/// Deletes the warehouse. Throws as requireRemovableWarehouse().
void removeWarehouse(qint64 code);

}  // namespace velmar
