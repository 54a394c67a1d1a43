// The warehouses that a user may work in.
#pragma once

#include "store/Row.h"

namespace velmar {

/// Code and name (COD, DENUMIRE) of the open company's warehouses, by code. A company without any gets its
/// first one.
Recordset workingWarehouses();

}  // namespace velmar
