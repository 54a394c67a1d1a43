// The sample company for new users, "EXEMPLU SRL": families, partners, articles and half a year of documents,
// created by the services that the windows use.
#pragma once

#include <QString>

namespace velmar {

inline const QString kSampleCode = QStringLiteral("02");
/// Prefix of the temporary folder in which it is created.
inline const QString kSamplePrefix = QStringLiteral("Exemplu-");

/// Creates the sample company in the databases folder (which becomes `gCaleBD`) if code "02" is not in its
/// list yet; returns whether it was created. Opens the company meanwhile and leaves no company open. If it
/// throws StoreError, the folder is unchanged.
bool makeSampleCompany(QString folder);

}  // namespace velmar
