// The stock by article and warehouse (G_STOCMAG). It is a sum of the ledger: triggers change it in the
// transaction that changes G_DOCUME or G_LDOCUM, whichever program does so, and the upgrade of a company
// computes it again.
//
// A line counts if its document exists and is an entry, an opening stock or an exit (TIPIE); the order in
// which headers and lines are written or deleted does not matter. The table has no row for an article that
// never moved in a warehouse. A line without article, warehouse or quantity does not count. The sums are kept
// to 6 decimals, while quantities have 3: a sum of doubles never drifts, and finer quantities of other
// programs are still added before they are rounded.
#pragma once

#include <QString>

namespace velmar {

class Database;
class Engine;

/// SQL of a query: the stock of the ledger by ARTID and CODMAG, in CANT, without rounding.
QString stockOfLedger();

/// Replaces G_STOCMAG by the stock of the ledger, in the open transaction.
void refillBalance(Database& database);

/// Creates the triggers of each company, which has none of them yet, in the open transaction.
void createCompanyTriggers(Engine& engine);

}  // namespace velmar
