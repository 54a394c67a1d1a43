// The XML namespaces of UBL 2.1 documents.
#pragma once

#include <QString>

namespace velmar {

/// The namespace that UBL defines for a schema: "Invoice", "CreditNote", "CommonBasicComponents" or
/// "CommonAggregateComponents". The text is part of every file.
inline QString ublNamespace(const QString& schema) {
  return QStringLiteral("urn:oasis:names:specification:ubl:schema:xsd:%1-2").arg(schema);
}

}  // namespace velmar
