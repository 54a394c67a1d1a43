// Names of a list that occur twice are shown with their codes.
#pragma once

#include <QStringList>

namespace velmar {

/// The names, those that occur more than once with the code of the same position: "GEMEN SRL (41)".
QStringList withCodesOfAlike(QStringList names, const QStringList& codes);

}  // namespace velmar
