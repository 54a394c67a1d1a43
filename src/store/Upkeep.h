// Backs up a company to one file and restores it, for every engine.
#pragma once

#include <functional>
#include <QDateTime>
#include <QString>

#include "store/CompanyCopy.h"

namespace velmar {

/// Name of the folder with the saved copies, inside the databases folder.
inline const QString kBackupFolderName = QStringLiteral("Salv_Tarvon");

/// What begins the names of the temporary folders in which copies are made.
inline const QString kSavePrefix = QStringLiteral(".salvare-");

/// The name of an automatic copy: file name without extension + "_" + moment + ".mdb".
QString savedCopyName(const QString& fileName, const QDateTime& moment);
/// The name of a copy that a user makes: it begins with the first letters of the company's name.
QString savedCopyName(const QString& companyName, const QString& fileName, const QDateTime& moment);

/// Checks the open company for damage and saves its current state to a file, while others work in it;
/// completely or not at all. An existing file is replaced. The company's own file may have been removed,
/// moved or replaced meanwhile. Throws StoreError.
void saveCompany(Database& company, const QString& file, const CopyProgress& progress = {});

/// Replaces the company at the path `company` by the one saved in the file, upgraded to the structure of this
/// program, completely or not at all. `release` is called when everything is prepared and before the company
/// is modified; it must close the company's database. Throws StoreError, also when the file is not a valid
/// company, and RuleError while somebody works in the company.
void restoreCompany(const QString& file, const QString& company, const std::function<void()>& release,
                    const CopyProgress& progress = {});

/// Throws RuleError with their names when processes other than that of `login` on this computer work in the
/// company.
void requireNobodyElse(const QString& company, const QString& login);

/// Removes the file that an older program left when it failed to compact this company, with its side files.
/// Throws StoreError when it cannot be removed.
void removeCompactLeftover(const QString& folder, const QString& fileName);

}  // namespace velmar
