// Grids, list views and trees: reading cells as displayed, and editing them with the keyboard.
#pragma once

#include "Windows.h"

namespace velmar::scenario {

/// Registers the functions that the grid and tree handles call.
void addGridFunctions(Functions& functions, Windows& windows);
void addTreeFunctions(Functions& functions, Windows& windows);

}  // namespace velmar::scenario
