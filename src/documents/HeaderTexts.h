// Converts headers between the stored values and the texts of the controls.
#pragma once

#include "documents/TypedHeader.h"
#include "store/Row.h"

namespace velmar {

/// The value to store for a typed text that has passed its checks.
Value storedHeaderValue(HeaderFieldType type, const QString& typed);

/// The text that the control shows for the stored value.
QString shownHeaderText(HeaderFieldType type, const Row& header, const QString& column);

/// The text of the field in a new document.
QString newHeaderText(const DocumentKind& kind, const HeaderField& field);

/// The header of a new document to which nothing was typed yet: working warehouse, series, method of payment.
Row emptyHeader(const DocumentKind& kind);

/// The texts of a stored header, by HeaderField::key(), dates in ISO format. A field that is not stored has
/// the text of a new document or, if it keeps its value, that in `before`.
QHash<QString, QString> shownHeader(const DocumentKind& kind, const Row& header,
                                    const QHash<QString, QString>& before);

/// The header to store: `stored` with the typed values. The number of a stored document is kept; currency and
/// rate are cleared in lei.
Row storedHeader(const TypedHeader& typed, const Row& stored, bool isNew);

/// The kind's notice about a header in currency without a rate; "" when there is none.
QString missingRate(const TypedHeader& typed, const Row& header);

}  // namespace velmar
