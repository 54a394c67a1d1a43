// What the header of a document must hold before it is stored.
#pragma once

#include "documents/TypedHeader.h"

namespace velmar {

/// Throws RuleError for the first check of the kind that the header fails, naming the field. `isNew`: the
/// document is not stored yet, so that its number must be free.
void requireHeader(const TypedHeader& typed, bool isNew);

/// Whether documents of the kind may have the VAT rate of that code.
bool isOfferedRate(const DocumentKind& kind, const QString& code);

/// Throws RuleError for a journal, currency or cost centre that the company does not have, or a rate of
/// exchange that is not above 0, naming the field. What is the same in `stored`, the header as it was shown
/// last (texts by HeaderField::key()), passes.
void requireKnownCodes(const TypedHeader& typed, const QHash<QString, QString>& stored);

}  // namespace velmar
