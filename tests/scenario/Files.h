// Files of a scenario as text of single bytes, so that contents compare to the byte.
#pragma once

#include "Functions.h"

namespace velmar::scenario {

/// Registers readFile, writeFile, removeFile, exists and pdfText.
void addFileFunctions(Functions& functions);

}  // namespace velmar::scenario
