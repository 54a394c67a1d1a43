// Converts header fields between the stored value and the text of the control.
#pragma once

#include "documents/DocumentKind.h"
#include "store/Row.h"

namespace velmar {

/// The value to store for a typed text that has passed its checks.
Value storedHeaderValue(HeaderFieldType type, const QString& typed);

/// The text that the control shows for the stored value.
QString shownHeaderText(HeaderFieldType type, const Row& header, const QString& column);

}  // namespace velmar
