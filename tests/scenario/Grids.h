// Grids, list views and trees: reading cells as they are shown, and editing them by the keyboard.
#pragma once

#include "Windows.h"

namespace velmar::scenario {

/// Registers what the grid and tree handles call.
void addGridFunctions(Functions& functions, Windows& windows);
void addTreeFunctions(Functions& functions, Windows& windows);

}  // namespace velmar::scenario
