// The sample companies for new users, made by the services that the windows use: "EXEMPLU SRL", a producer
// and trader with half a year of documents, and "EXEMPLU AUZ SRL", a hearing-aid shop.
#pragma once

#include <QString>

namespace velmar {

inline const QString kSampleCode = QStringLiteral("02");
inline const QString kHearingSampleCode = QStringLiteral("03");
/// Prefix of the temporary folder in which they are created.
inline const QString kSamplePrefix = QStringLiteral("Exemplu-");

/// Creates the sample company in the databases folder (which becomes `gCaleBD`) if code "02" is not in its
/// list yet; returns whether it was created. Opens the company meanwhile and leaves no company open. If it
/// throws StoreError, the folder is unchanged.
bool makeSampleCompany(const QString& folder);
/// The same for the hearing-aid shop, code "03".
bool makeHearingSampleCompany(const QString& folder);

}  // namespace velmar
