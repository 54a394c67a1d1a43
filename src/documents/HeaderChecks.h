// Checks of the codes and texts in a document's header before it is stored.
#pragma once

#include "documents/TypedHeader.h"

namespace velmar {

/// The message for a date outside the entry period, with its ends.
QString periodText();

/// Whether documents of the kind may have the VAT rate of that code.
bool isOfferedRate(const DocumentKind& kind, const QString& code);

/// Throws RuleError, naming the field, for an unknown journal, currency or cost centre, an exchange rate that
/// is not above 0, or a text that is not plain (PlainText.h). Values that are unchanged from `stored`, the
/// header as last shown (texts by HeaderField::key()), are accepted.
void requireKnownCodes(const TypedHeader& typed, const QHash<QString, QString>& stored);

}  // namespace velmar
