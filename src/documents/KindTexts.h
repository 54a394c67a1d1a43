// The wording, checks, fields and line columns of the kinds, each kind's in a source of its own.
#pragma once

#include "documents/DocumentKind.h"

namespace velmar {

/// Lays the kind's own description over its facts; a kind whose window does not exist yet has none.
void describe(DocumentKind& kind);

void describeInputVoucher(DocumentKind& kind);

}  // namespace velmar
