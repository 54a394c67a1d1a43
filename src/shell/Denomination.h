// The denomination of 1 July 2005: 10,000 old lei became 1 new leu.
#pragma once

#include "util/Progress.h"

namespace velmar {

/// Whether the open company has documents before the denomination, in the ledger or as drafts with lines, and
/// was not converted.
bool hasOldLei();

/// Converts prices, values and rates in one transaction: each is rounded half to even to whole old lei, then
/// divided by 10,000; null stays null. Writes the marker that ROL() reads. Throws StoreError; nothing is then
/// written.
void convertToNewLei(const Progress& progress = {});

/// Asks, saves the company, converts it and reports the result.
void Denominare(const Progress& progress = {});

}  // namespace velmar
