// Proposes the number of a new document.
#pragma once

#include <QString>

#include "documents/DocumentKind.h"

namespace velmar {

struct ProposedNumber {
  QString number;       ///< empty: the user types it
  bool locked = false;  ///< the number cannot be changed
  QString warning;      ///< to be shown: the range is nearly or completely used up
};

/// The number for a new document of the kind. It is not reserved until the header is stored.
ProposedNumber proposeNumber(const DocumentKind& kind);

/// The number for a new invoice whose drafts are in that table, from the range of customer invoices.
ProposedNumber proposeInvoiceNumber(const QString& table);

/// As proposeNumber, but shows the warning; "" if the user types the number.
QString NumarDocument(const QString& prefix);

const QString kNoSeries = QStringLiteral("00");

/// The series of the kind's numbers; kNoSeries: none.
QString seriesOf(const DocumentKind& kind);

}  // namespace velmar
