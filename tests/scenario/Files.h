// File access for scenarios: contents are texts with one character per byte, so that they can be compared
// exactly.
#pragma once

#include "Functions.h"

namespace velmar::scenario {

/// Registers readFile, writeFile, removeFile, exists and pdfText.
void addFileFunctions(Functions& functions);

}  // namespace velmar::scenario
