// Corrections of running figures from the ledger: stock, open quantities of delivery notes, lots, issued
// quantities. Each is one transaction under the write lock.
#pragma once

#include <QDate>

#include "store/Row.h"
#include "util/Progress.h"

namespace velmar {

/// Sets the stock of all articles to that of the ledger, with 3 decimals, and to 0 for articles without
/// stock; clears the cost, also in currency, of articles with the stock 0. `progress` may throw Cancelled:
/// nothing is then changed.
void CorectArticoleTable(const Progress& progress = {});

/// As CorectArticoleTable(); and sets, from the lines that name a delivery note, what is left of it, in the
/// ledger and in its draft, and whether it is invoiced. A note that no line names keeps what is left.
void correctStockAndNotes(const Progress& progress = {});

/// The articles whose open lots differ from what the ledger left in them (addedToLots()), if they have an
/// open lot: ARTID, DENART, Cantitate (what they should have), CRamasa (their sum). By name.
Recordset lotDifferences();

/// Makes the lots of these articles add up to what the ledger left in them, as it is now: a surplus is taken
/// from the oldest lots, a deficit given back to the newest, as far as they have room.
void correctLots(const QStringList& articles, const Progress& progress = {});

/// Sets the issued quantity (CANTE) of each article that was issued by documents of that period, and returns
/// their number. Other articles keep theirs.
int setIssuedQuantities(const QDate& from, const QDate& to);

}  // namespace velmar
