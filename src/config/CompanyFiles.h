// Creates and deletes companies: the file and the row of the list, together or not at all.
#pragma once

#include "store/CompanyCopy.h"
#include "store/CompanyList.h"
#include "store/Row.h"

namespace velmar {

/// Creates the company's file from the folder's template and adds the company to the list. Throws RuleError
/// with the column at fault (COD, DENUMIRE; empty when the code is taken), or StoreError. While the file is
/// being created the name is in `gDenSocietateNoua`.
void createCompany(const QString& folder, const QString& code, const QString& name,
                   QString& gDenSocietateNoua);

/// Moves a complete company file into the folder and adds it to the list under that code. Throws as
/// createCompany(); the file is then not moved.
void adoptCompany(const QString& folder, const QString& code, const QString& name, const QString& file);

/// Copies a company into another databases folder, of files or of a server, and adds it to the list there,
/// completely or not at all. Throws RuleError when its code is taken there, StoreError when the verification
/// of the copy fails.
void copyCompany(const QString& folder, const Company& company, const QString& other,
                 const CopyProgress& progress = {});

/// Asks a user with all rights whether roster entries of the company's database that cannot be verified,
/// those of other computers and damaged ones, may be removed: they would prevent deleting and restoring for
/// good. Says whose they are and since when. Throws StoreError when one cannot be removed.
void offerToForget(const QString& databasePath);

/// The companies whose database is in the folder while the list does not have them: their creation was
/// interrupted. Their names are those that the databases have.
QList<Company> unlistedCompanies(const QString& folder);
/// Adds such a company to the list. Throws RuleError when its code is taken meanwhile, StoreError.
void listCompany(const QString& folder, const Company& company);
/// Deletes the database of such a company. Throws RuleError while it is in use or when it is in the list now.
void removeUnlisted(const QString& folder, const Company& company);

/// Throws RuleError when the company must not be deleted: the first company, the open one, and one that is in
/// use.
void requireRemovable(const QString& folder, const Company& company);

/// The question shown before removeCompany().
QString removalQuestion(const Company& company);

/// Deletes the company's file and its row in the list. Throws RuleError as requireRemovable(), or StoreError.
void removeCompany(const QString& folder, const Company& company);

/// The companies as a record set with the columns COD, DENUMIRE, NUMEBD.
Recordset companyRecordset(const QList<Company>& companies);

}  // namespace velmar
