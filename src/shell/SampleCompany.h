// A ready company for newcomers, "EXEMPLU SRL": families, partners, articles and three months of vouchers,
// made by the program's own services the way a user would.
#pragma once

#include <QString>

namespace velmar {

inline const QString kSampleCode = QStringLiteral("02");
/// How the folder is called in which it is made until it is whole.
inline const QString kSamplePrefix = QStringLiteral("Exemplu-");

/// Makes the sample company in the databases folder (which becomes `gCaleBD`) when code "02" is not in its
/// list yet; gives whether it was made. Opens the company while it works and leaves none open. Throws
/// StoreError; the folder is then as it was.
bool makeSampleCompany(QString folder);

}  // namespace velmar
