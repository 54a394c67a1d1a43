// Saves a company to one file and brings a saved one back, whatever engine the company runs on.
#pragma once

#include <functional>
#include <QDateTime>
#include <QString>

#include "store/CompanyCopy.h"

namespace velmar {

/// Name of the folder with the saved copies, inside the databases folder.
inline const QString kBackupFolderName = QStringLiteral("Salv_Tarvon");

/// The name of an automatic copy: file name without extension + "_" + moment + ".mdb".
QString savedCopyName(const QString& fileName, const QDateTime& moment);
/// The name of a copy that a user makes: the first letters of the company's name stand before it.
QString savedCopyName(const QString& companyName, const QString& fileName, const QDateTime& moment);

/// Saves the company at the path `company` to a file, as it stands now and while others work in it; whole or
/// not at all, and a file that stands there is replaced. Throws StoreError.
void saveCompany(const QString& company, const QString& file, const CopyProgress& progress = {});

/// Puts the company that was saved to a file in place of the one at the path `company`, brought to the
/// structure of this program, whole or not at all. `release` is called when all is prepared, before the
/// company itself is touched, and must close its database. Throws StoreError, also when the file is no whole
/// company, RuleError while somebody works in the company.
void restoreCompany(const QString& file, const QString& company, const std::function<void()>& release,
                    const CopyProgress& progress = {});

/// Throws RuleError, naming them, when processes other than that of `login` on this computer work in the
/// company.
void requireNobodyElse(const QString& company, const QString& login);

/// Removes the file that an older program left when it failed to compact this company, with its side files.
/// Throws StoreError when it cannot be removed.
void removeCompactLeftover(const QString& folder, const QString& fileName);

}  // namespace velmar
