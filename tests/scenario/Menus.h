// The menu and the tool bars of the main window.
#pragma once

#include "Functions.h"

namespace velmar::scenario {

/// Registers menu, menuState and toolbar.
void addMenuFunctions(Functions& functions);

}  // namespace velmar::scenario
