// What the menu does to the open company as a whole: compacting it, copying it away, copying a saved copy
// back.
#pragma once

#include <QString>

#include "store/CompanyCopy.h"

namespace velmar {

/// The folder with the saved copies of `gCaleBD`; makes it when `make` is told. Throws StoreError.
QString backupFolder(bool make = false);

/// The name that a copy of the open company gets now.
QString savedCopyName();

/// Saves the open company to the folder, under savedCopyName(); gives the path. Throws StoreError.
QString saveOpenCompany(const QString& folder, const CopyProgress& progress = {});

/// Tells that the open company was saved.
void tellThatSaved();

/// What to ask before restoreOpenCompany().
QString restoreQuestion(const QString& file);

/// Puts the saved company in place of the open one, which is open again afterwards, also after a failure,
/// with its parameters in the session. Throws RuleError while others work in it, StoreError.
void restoreOpenCompany(const QString& file, const CopyProgress& progress = {});

/// Throws RuleError, naming them, while others work in the open company.
void requireAlone();

/// Compacts the open company and tells the outcome.
void CompacteazaBD();

/// Saves the open company and the report projects without a window and tells of both. Throws StoreError.
void SalveazaAutomat();

}  // namespace velmar
