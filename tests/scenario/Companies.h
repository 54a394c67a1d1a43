// The companies of a scenario: makes them, opens the program on them and looks into their database.
#pragma once

#include "Folders.h"

namespace velmar::scenario {

class Answers;

/// Registers company, start, sql, paths, today and setToday.
void addCompanyFunctions(Functions& functions, Folders& folders, Answers& answers);

}  // namespace velmar::scenario
