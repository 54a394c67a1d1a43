// The databases of a folder: finds them ignoring case, creates, copies and removes them together with the
// engine's side files; or the databases on the server that the folder names (store/Server.h).
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

/// Runs the work under a lock of that name in the folder, waiting up to 15 seconds for other processes.
/// Throws StoreError when the wait times out, or the folder is missing or not writable.
void underFileLock(const QString& folder, const QString& name, const std::function<void()>& work);

inline const QString kCompanyPrefix = QStringLiteral("Tarvon");
inline const QString kCompanySuffix = QStringLiteral(".mdb");
/// The file name of the company with that code: "Tarvon" + code in upper case + ".mdb".
QString companyFileName(const QString& code);

/// The names of the databases of companies in the folder, or on the server that it names, without the
/// template.
QStringList companyDatabases(const QString& folder);

/// Writes the template with the structure and the initial rows of this program into the folder, completely or
/// not at all, unless the existing one is already of this version. Throws StoreError.
void bringTemplateUpToDate(const QString& folder);

/// Creates a company file from the folder's template, completely or not at all, with the periods of the
/// current year. Throws StoreError, also when a file of that name exists. Call it under the lock of the list
/// of companies, since two processes must not create the same file at once.
void makeCompanyFile(const QString& folder, const QString& fileName);

/// Writes the program's revision to the database of that name in the folder, and the company name from
/// `gDenSocietateNoua`, which then becomes "00".
void MarcheazaVersiune(const QString& folder, const QString& fileName, QString& gDenSocietateNoua);

/// Lets `fill` create a database at a temporary path, then replaces the one at `path` with it, completely or
/// not at all. Throws StoreError.
void makeDatabaseWhole(const QString& path, const std::function<void(const QString& draft)>& fill);

/// The revision to which the database was last upgraded; nothing if it is not recorded, or its table or
/// column is missing.
std::optional<qint64> revisionOf(Database& database);

/// Moves the closed database file `draft` to `path`, replacing any file there. Throws StoreError.
void putFileInPlace(const QString& draft, const QString& path);

/// Moves a closed database from one folder to another of the same kind. Throws StoreError.
void moveDatabase(const QString& from, const QString& to);

/// Makes the folder `inner` use the same server as `folder`, with its own prefix for the names of its
/// databases.
void shareServer(const QString& folder, const QString& inner);

/// Deletes a database file and its side files. Throws StoreError.
void removeDatabaseFile(const QString& folder, const QString& fileName);

/// Removes from the server the databases that have the folder's own prefix; does nothing if the folder has no
/// prefix of its own.
void removeDatabasesOf(const QString& folder);

/// Removes incomplete databases of the folder left by killed processes, but none that is still being created.
/// Throws StoreError.
void sweepDrafts(const QString& folder);

/// The revision of the program, stored in `kt_info.VERSIUNE` of the databases that it creates.
int programRevision();

}  // namespace velmar
