// Creates and deletes companies: the file and the row of the list, together or not at all.
#pragma once

#include "store/CompanyCopy.h"
#include "store/CompanyList.h"
#include "store/Row.h"

namespace velmar {

/// Makes the company's file from the folder's template and adds the company to the list. Throws RuleError
/// with the column at fault (COD, DENUMIRE), which is empty when the code is taken, or StoreError. The name
/// waits in `gDenSocietateNoua` while the file is made.
void createCompany(const QString& folder, const QString& code, const QString& name,
                   QString& gDenSocietateNoua);

/// Takes a finished company file, which is moved into the folder, as the company of that code. Throws as
/// createCompany(), and then the file stays where it was.
void adoptCompany(const QString& folder, const QString& code, const QString& name, const QString& file);

/// Copies a company into another databases folder, of files or of a server, and adds it to the list there:
/// whole or not at all. Throws RuleError when its code is taken there, StoreError when the copy cannot be
/// proved.
void copyCompany(const QString& folder, const Company& company, const QString& other,
                 const CopyProgress& progress = {});

/// Throws RuleError when the company must not be deleted: the first one, the open one, and one that somebody
/// works in.
void requireRemovable(const QString& folder, const Company& company);

/// The question to ask before removeCompany().
QString removalQuestion(const Company& company);

/// Deletes the company's file and its row in the list. Throws RuleError as requireRemovable(), or StoreError.
void removeCompany(const QString& folder, const Company& company);

/// The companies as a record set with the columns COD, DENUMIRE, NUMEBD.
Recordset companyRecordset(const QList<Company>& companies);

}  // namespace velmar
