#include "store/DatabaseFiles.h"

#include <filesystem>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QRegularExpression>
#include <QSettings>

#include "store/Database.h"
#include "store/Engine.h"
#include "store/PostgresEngine.h"
#include "store/Schema.h"
#include "store/Sqlite.h"
#include "store/SqlitePlace.h"
#include "store/TemplateData.h"
#include "util/Clock.h"
#include "util/Errors.h"
#include "util/FileNames.h"
#include "util/FileRights.h"

namespace velmar {

namespace {

constexpr int kLockMs = 15000;

void removeSideFiles(const QString& path) {
  for (const QString& side : sqlite::sideFiles(path)) QFile::remove(side);
  QFile::remove(sqlite::placeMark(path));
}

void removeWithSideFiles(const QString& path) {
  if (QFile::exists(path) && !QFile::remove(path))
    throw StoreError(
        kFileFailure,
        QStringLiteral("Fisierul %1 nu poate fi sters. Verificati drepturile asupra lui.").arg(path));
  removeSideFiles(path);
}

const QString kDraftMark = QStringLiteral(".nou");

StoreError beingMade(const QString& path) {
  return StoreError(kFileFailure,
                    QStringLiteral("Fisierul %1 este scris in acest moment de alt utilizator. Incercati "
                                   "din nou.")
                        .arg(QFileInfo(path).fileName()));
}

std::unique_ptr<QLockFile> lockOfDraft(const QString& draft) {
  auto lock = std::make_unique<QLockFile>(draft + QStringLiteral(".lock"));
  lock->setStaleLockTime(0);
  return lock;
}

void removeDraft(const QString& draft) {
  QFile::remove(draft);
  removeSideFiles(draft);
}

// On a server: uses a temporary name until the database is complete.
template <typename Fill>
void writeWholeOn(const Server& server, const QString& path, const QString& draft, Fill&& fill) {
  const QString draftName = databaseOnServer(server, draft);
  const QString name = databaseOnServer(server, path);
  const postgres::DraftLock lock(server, draftName);
  if (!lock.isHeld()) throw beingMade(path);
  postgres::dropDatabase(server, draftName);
  try {
    fill(draft);
    if (postgres::databaseExists(server, name))
      postgres::replaceDatabase(server, draftName, name);
    else
      postgres::renameDatabase(server, draftName, name);
  } catch (...) {
    postgres::dropDatabase(server, draftName);
    throw;
  }
}

// Uses a temporary file name until the database is complete, so that nobody sees an incomplete one.
template <typename Fill>
void writeWhole(const QString& path, Fill&& fill) {
  const QString draft = path + kDraftMark;
  if (const auto server = serverOf(QFileInfo(path).path())) return writeWholeOn(*server, path, draft, fill);
  const auto lock = lockOfDraft(draft);
  if (!lock->tryLock(0) && lock->error() == QLockFile::LockFailedError) throw beingMade(path);
  removeWithSideFiles(draft);
  try {
    fill(draft);
    putFileInPlace(draft, path);
  } catch (...) {
    removeDraft(draft);
    throw;
  }
}

// Under a lock: no process may replace the template meanwhile.
void copyTemplate(const QString& folder, const QString& target) {
  underFileLock(folder, kTemplateName, [&] {
    const QString source = pathInFolder(folder, kTemplateName);
    if (const auto server = serverOf(folder))
      return postgres::copyDatabase(*server, databaseOnServer(*server, source),
                                    databaseOnServer(*server, target));
    // Opening detects a missing or damaged template, and closing removes its side files.
    Database::open(source);
    if (!QFile::copy(source, target))
      throw StoreError(
          kFileFailure,
          QStringLiteral("Fisierul %1 nu poate fi scris. Verificati drepturile si spatiul liber.")
              .arg(target));
  });
}

void setPeriods(Database& database, int year) {
  const QDate start(year, 1, 1);
  const QDate end(year, 12, 31);
  database.execute(
      "UPDATE kt_par SET DATAIN = ?, DATASN = ?, DATAIN1 = ?, DATASN1 = ?, DATAIC = ?, DATASC = ?",
      {start, end, start.addYears(1), end.addYears(1), start, end});
}

// Whether the folder has no template, or one written by another version of the program.
bool templateIsOutdated(const QString& folder) {
  if (!databaseExists(folder, kTemplateName)) return true;
  return revisionOf(*Database::open(pathInFolder(folder, kTemplateName))) != programRevision();
}

void writeTemplate(const QString& folder) {
  writeWhole(pathInFolder(folder, kTemplateName), [](const QString& draft) {
    const auto database = Database::create(draft);
    Transaction transaction(*database);
    createCompanyTables(*database);
    insertTemplateData(*database);
    database->execute("UPDATE kt_info SET VERSIUNE = ?", {programRevision()});
    transaction.commit();
  });
}

// A journal without its database holds what was saved last before the database went away.
void requireNoLeftJournal(const QString& path) {
  for (const QString& side : sqlite::sideFiles(path))
    if (!side.endsWith(QStringLiteral("-shm")) && QFileInfo(side).size() > 0)
      throw StoreError(
          kFileFailure,
          QStringLiteral("Lipseste baza de date %1, dar fisierul %2 are date din ea. Aduceti baza de date "
                         "inapoi langa el, sau mutati-l in alt folder daca nu mai aveti nevoie de ele.")
              .arg(path, QFileInfo(side).fileName()));
}

}  // namespace

bool databaseExists(const QString& folder, const QString& name) {
  if (const auto server = serverOf(folder))
    return postgres::databaseExists(*server, databaseOnServer(*server, name));
  return existsInFolder(folder, name);
}

QString companyFileName(const QString& code) { return kCompanyPrefix + code.toUpper() + kCompanySuffix; }

QStringList companyDatabases(const QString& folder) {
  static const QRegularExpression isCompany(QStringLiteral("^tarvon([0-9a-z]{1,2})([.]mdb)?$"),
                                            QRegularExpression::CaseInsensitiveOption);
  QStringList names;
  if (const auto server = serverOf(folder)) {
    for (const QString& name : postgres::databasesLike(*server, QStringLiteral("tarvon[0-9a-z]{1,2}")))
      names.append(companyFileName(isCompany.match(name.mid(server->prefix.size())).captured(1)));
    return names;
  }
  for (const QString& name : QDir(folder).entryList(QDir::Files, QDir::Name))
    if (isCompany.match(name).hasMatch() && name.endsWith(kCompanySuffix, Qt::CaseInsensitive))
      names.append(name);
  return names;
}

void underFileLock(const QString& folder, const QString& name, const std::function<void()>& work) {
  const QString shownFolder = QDir::toNativeSeparators(folder);
  if (!QDir(folder).exists())
    throw StoreError(
        kFileFailure,
        QStringLiteral("Folderul %1 nu exista. Alegeti alt folder cu butonul \"Cautare\".").arg(shownFolder));
  QLockFile lock(QDir(folder).filePath(name + QStringLiteral(".lock")));
  if (!lock.tryLock(kLockMs))
    throw StoreError(
        kFileFailure,
        (lock.error() == QLockFile::LockFailedError
             ? QStringLiteral("Fisierul %1 este folosit de alt utilizator. Incercati din nou.").arg(name)
             : QStringLiteral("Folderul %1 nu poate fi scris. Verificati drepturile asupra lui.")
                   .arg(shownFolder)));
  protectFile(lock.fileName());
  work();
}

void bringTemplateUpToDate(const QString& folder) {
  if (!templateIsOutdated(folder)) return;
  underFileLock(folder, kTemplateName, [&folder] {
    if (templateIsOutdated(folder)) writeTemplate(folder);
  });
}

void makeCompanyFile(const QString& folder, const QString& fileName) {
  if (databaseExists(folder, fileName))
    throw StoreError(kFileExists,
                     QStringLiteral("Fisierul %1 exista deja.").arg(pathInFolder(folder, fileName)));
  if (!serverOf(folder)) requireNoLeftJournal(pathInFolder(folder, fileName));
  writeWhole(pathInFolder(folder, fileName), [&folder](const QString& draft) {
    copyTemplate(folder, draft);
    if (QFile::exists(draft)) QFile::setPermissions(draft, QFile::permissions(draft) | QFile::WriteOwner);
    setPeriods(*Database::open(draft), clock::today().year());
  });
}

void MarcheazaVersiune(const QString& folder, const QString& fileName, QString& gDenSocietateNoua) {
  const auto database = Database::open(pathInFolder(folder, fileName));
  Transaction transaction(*database);
  // If the table was missing, the upgrade has created it without its row; without the row the upgrade would
  // be offered at every login.
  if (database->query("SELECT VERSIUNE FROM kt_info").isEmpty())
    database->execute("INSERT INTO kt_info (VERSIUNE) VALUES (NULL)");
  if (gDenSocietateNoua != QStringLiteral("00"))
    database->execute("UPDATE kt_info SET DENUMIRE = ?", {gDenSocietateNoua});
  database->execute("UPDATE kt_info SET VERSIUNE = ?", {programRevision()});
  transaction.commit();
  gDenSocietateNoua = QStringLiteral("00");
}

void makeDatabaseWhole(const QString& path, const std::function<void(const QString& draft)>& fill) {
  writeWhole(path, fill);
}

std::optional<qint64> revisionOf(Database& database) {
  if (!database.engine().tableShape(QStringLiteral("kt_info")).column(QStringLiteral("VERSIUNE")))
    return std::nullopt;
  const Recordset info = database.query("SELECT VERSIUNE FROM kt_info");
  if (info.isEmpty() || info.first().isNull("VERSIUNE")) return std::nullopt;
  return info.first().integer("VERSIUNE");
}

// QFile::rename fails if the target exists.
void putFileInPlace(const QString& draft, const QString& path) {
  // Side files left by a crash would be used as the journal of the new file.
  removeSideFiles(path);
  std::error_code error;
  std::filesystem::rename(draft.toStdU16String(), path.toStdU16String(), error);
  if (error)
    throw StoreError(
        kFileFailure,
        QStringLiteral("Fisierul %1 nu poate fi scris. Verificati drepturile asupra lui.").arg(path));
  protectFile(path);
}

void moveDatabase(const QString& from, const QString& to) {
  if (const auto server = serverOf(QFileInfo(to).path())) {
    const auto source = serverOf(QFileInfo(from).path());
    return postgres::renameDatabase(*server, databaseOnServer(source.value_or(*server), from),
                                    databaseOnServer(*server, to));
  }
  if (!QFile::rename(from, to))
    throw StoreError(kFileFailure,
                     QStringLiteral("Fisierul %1 nu poate fi mutat in %2. Verificati drepturile "
                                    "asupra folderelor.")
                         .arg(from, to));
}

void shareServer(const QString& folder, const QString& inner) {
  const auto server = serverOf(folder);
  if (!server) return;
  const QString path = QDir(inner).filePath(kServerFile);
  QFile::copy(QDir(folder).filePath(kServerFile), path);
  QSettings file(path, QSettings::IniFormat);
  if (!server->rootCertificate.isEmpty()) file.setValue("rootcert", server->rootCertificate);
  file.setValue("prefix", server->prefix + QDir(inner).dirName().toLower() + u'_');
}

void removeDatabaseFile(const QString& folder, const QString& fileName) {
  if (const auto server = serverOf(folder))
    return postgres::dropDatabase(*server, databaseOnServer(*server, fileName));
  removeWithSideFiles(pathInFolder(folder, fileName));
}

void removeDatabasesOf(const QString& folder) {
  const auto server = serverOf(folder);
  // If its creator was killed before shareServer() wrote the prefix, the folder has the prefix of its parent.
  if (!server || !server->prefix.endsWith(QDir(folder).dirName().toLower() + u'_')) return;
  for (const QString& name : postgres::databasesLike(*server, QStringLiteral(".*")))
    postgres::dropDatabase(*server, name);
}

// The pattern has the names that writeWholeOn() and replaceDatabase() use on a server.
void sweepDrafts(const QString& folder) {
  if (const auto server = serverOf(folder)) {
    for (const QString& name :
         postgres::databasesLike(*server, QStringLiteral("tarvon[0-9a-z]*[.]mdb([.]vechi)?")))
      postgres::dropAbandoned(*server, name);
    return;
  }
  for (const QFileInfo& draft :
       QDir(folder).entryInfoList({QStringLiteral("*.mdb") + kDraftMark}, QDir::Files)) {
    const auto lock = lockOfDraft(draft.filePath());
    if (lock->tryLock(0)) removeDraft(draft.filePath());
  }
  // Taking and releasing a lock removes what a killed process left of it.
  for (const QFileInfo& left : QDir(folder).entryInfoList(
           {QStringLiteral("*.mdb") + kDraftMark + QStringLiteral(".lock")}, QDir::Files))
    lockOfDraft(left.filePath().chopped(QStringLiteral(".lock").size()))->tryLock(0);
}

int programRevision() { return VELMAR_REVISION; }

}  // namespace velmar
