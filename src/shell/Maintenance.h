// Maintenance of the open company: compaction, backup, restore.
#pragma once

#include <QString>

#include "store/CompanyCopy.h"

namespace velmar {

/// The folder with the backups of `gCaleBD`; created if `make` is set. Throws StoreError.
QString backupFolder(bool make = false);

/// The name for a backup of the open company at this time.
QString savedCopyName();

/// Saves the open company to the folder, under savedCopyName(); returns the path. Throws StoreError.
QString saveOpenCompany(const QString& folder, const CopyProgress& progress = {});

/// Shows the message that the open company was saved.
void reportSaved();

/// The question to ask before restoreOpenCompany().
QString restoreQuestion(const QString& file);

/// Replaces the open company by the saved one and opens it again, also after a failure, with its parameters
/// in the session. Throws RuleError while others work in it, and StoreError.
void restoreOpenCompany(const QString& file, const CopyProgress& progress = {});

/// Throws RuleError with their names while others work in the open company.
void requireAlone();

/// Compacts the open company and shows the result.
void CompacteazaBD();

/// Saves the open company and the layouts without a window and shows a message for both. Throws StoreError.
void SalveazaAutomat();

}  // namespace velmar
