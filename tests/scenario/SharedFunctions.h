// Functions of the core that a scenario can call by name, with plain values.
#pragma once

#include "Functions.h"

namespace velmar::scenario {

/// Registers `shared`, which takes a name and the arguments.
void addSharedFunctions(Functions& functions);

/// Converts a plain value of a script for a statement or parameter: whole numbers become integers.
QVariant databaseValue(const QVariant& value);

}  // namespace velmar::scenario
