// Which number a new document is offered.
#pragma once

#include <QString>

#include "documents/DocumentKind.h"

namespace velmar {

struct ProposedNumber {
  QString number;       ///< empty: the user types it
  bool locked = false;  ///< the number may not be typed over
  QString warning;      ///< to be shown: the range is nearly or wholly used up
};

/// The number for a new document of the kind. Nothing is reserved: it is taken when the header is stored.
ProposedNumber proposeNumber(const DocumentKind& kind);

/// As proposeNumber for a prefix, with its warning shown; "" where the user types the number.
QString NumarDocument(const QString& prefix);

}  // namespace velmar
