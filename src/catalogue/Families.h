// Article families: the four accounts through which the movements of their articles post.
#pragma once

#include "store/Row.h"

namespace velmar {

/// A family with that name and the accounts of its goods in stock, its expenses, its revenue and its own
/// products in stock.
Row newFamily(const QString& name, const QString& CONTSTOCMARFA, const QString& CONTCHELT,
              const QString& CONTVEN, const QString& CONTSTOCPROD);

/// Adds the family of the row, its `COD` left aside, and gives its code. Throws RuleError, naming the column,
/// for the first thing missing.
qint64 addFamily(const Row& family);

/// Writes the row over the family with its `COD`. Throws as addFamily().
void saveFamily(const Row& family);

/// Deletes the family; its articles keep its code.
void removeFamily(qint64 code);

}  // namespace velmar
