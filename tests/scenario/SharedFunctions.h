// Functions of the core that a scenario may call by name, with plain values.
#pragma once

#include "Functions.h"

namespace velmar::scenario {

/// Registers `shared`, which takes a name and the arguments.
void addSharedFunctions(Functions& functions);

/// A plain value of a script as one for a statement or a parameter: whole numbers stay whole.
QVariant databaseValue(const QVariant& value);

}  // namespace velmar::scenario
