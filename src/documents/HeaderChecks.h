// The checks of a document's header before it is stored.
#pragma once

#include "documents/TypedHeader.h"

namespace velmar {

/// Throws RuleError for the first check of the kind that the header fails, naming the field. `isNew`: the
/// document is not stored yet, so that its number must be free.
void requireHeader(const TypedHeader& typed, bool isNew);

/// Whether documents of the kind may have the VAT rate of that code.
bool isOfferedRate(const DocumentKind& kind, const QString& code);

/// Throws RuleError, naming the field, for an unknown journal, currency or cost centre, an exchange rate that
/// is not above 0, or a text that is not plain (PlainText.h). Values that are unchanged from `stored`, the
/// header as last shown (texts by HeaderField::key()), are accepted.
void requireKnownCodes(const TypedHeader& typed, const QHash<QString, QString>& stored);

}  // namespace velmar
