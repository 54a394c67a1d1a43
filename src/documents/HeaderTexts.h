// A field of a document's header as its column holds it and as its control shows it.
#pragma once

#include "documents/DocumentKind.h"
#include "store/Row.h"

namespace velmar {

/// What the column holds for a typed text that has passed its checks.
Value storedHeaderValue(HeaderFieldType type, const QString& typed);

/// What the control shows of the stored value.
QString shownHeaderText(HeaderFieldType type, const Row& header, const QString& column);

}  // namespace velmar
