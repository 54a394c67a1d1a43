// The databases of a folder: found without regard to case, made, copied and removed together with the files
// that the engine keeps beside them; or those of the server that the folder names (store/Server.h).
#pragma once

#include <functional>
#include <optional>
#include <QString>

namespace velmar {

class Database;

/// Name of the template in a databases folder.
inline const QString kTemplateName = QStringLiteral("Tarvon.mdb");
/// Name of the first company's file.
inline const QString kFirstCompanyName = QStringLiteral("Tarvon01.mdb");

/// Whether the folder, or the server that it names, holds a database of that name.
bool databaseExists(const QString& folder, const QString& name);

/// Does the work while no other process does any under the same name in the folder; others wait, up to 15
/// seconds. Throws StoreError when the wait was in vain, or the folder is missing or cannot be written.
void underFileLock(const QString& folder, const QString& name, const std::function<void()>& work);

/// The file name of the company with that code: "Tarvon" + code in upper case + ".mdb".
QString companyFileName(const QString& code);

/// Writes the template with the structure and the initial rows of this program into the folder, whole or not
/// at all, unless the one that stands there is this program's. Throws StoreError.
void bringTemplateUpToDate(const QString& folder);

/// Makes a company file from the folder's template, whole or not at all, with the periods of the current
/// year. Throws StoreError, also when a file of that name stands already. Two processes must not make the
/// same file at once: to be called under the lock of the list of companies.
void makeCompanyFile(const QString& folder, const QString& fileName);

/// Stamps the program's revision on the database of that name in the folder, and the company name waiting in
/// `gDenSocietateNoua`, which then becomes "00".
void MarcheazaVersiune(const QString& folder, const QString& fileName, QString& gDenSocietateNoua);

/// Has `fill` make the database at the path it is given, then puts that in place of the one at `path`: whole
/// or not at all. Throws StoreError.
void makeDatabaseWhole(const QString& path, const std::function<void(const QString& draft)>& fill);

/// The revision that the database was last brought to; nothing when it does not tell, also for want of the
/// table or column.
std::optional<qint64> revisionOf(Database& database);

/// Puts the closed database file `draft` in place of the file at `path`, if one stands there. Throws
/// StoreError.
void putFileInPlace(const QString& draft, const QString& path);

/// Moves a closed database from one folder to another of the same kind. Throws StoreError.
void moveDatabase(const QString& from, const QString& to);

/// Makes the folder `inner` keep its databases where `folder` does, apart from those of other folders.
void shareServer(const QString& folder, const QString& inner);

/// Deletes a database file and its side files. Throws StoreError.
void removeDatabaseFile(const QString& folder, const QString& fileName);

/// Removes the databases that the settings of a server in the folder have there for this folder alone;
/// nothing where the settings name no such.
void removeDatabasesOf(const QString& folder);

/// Removes what killed processes left half made of the databases of the folder; never what somebody is still
/// making. Throws StoreError.
void sweepDrafts(const QString& folder);

/// The revision of the program, kept in `kt_info.VERSIUNE` of the databases that it made.
int programRevision();

}  // namespace velmar
