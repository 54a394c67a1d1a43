// Article families: the four accounts to which the movements of their articles are posted.
#pragma once

#include "store/Row.h"

namespace velmar {

/// A family with that name and the accounts of its goods in stock, its expenses, its revenue and its own
/// products in stock.
Row newFamily(const QString& name, const QString& CONTSTOCMARFA, const QString& CONTCHELT,
              const QString& CONTVEN, const QString& CONTSTOCPROD);

/// Adds the family of the row, whose `COD` is ignored, and returns its code. Throws RuleError, naming the
/// column, for the first missing value.
qint64 addFamily(const Row& family);

/// Changes the family with the row's `COD`. Throws as addFamily().
void saveFamily(const Row& family);

/// Deletes the family; its articles keep its code.
void removeFamily(qint64 code);

}  // namespace velmar
