#include "shell/Maintenance.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include "config/CompanyFiles.h"
#include "config/Session.h"
#include "store/Database.h"
#include "store/DataChanges.h"
#include "store/Schema.h"
#include "store/Upkeep.h"
#include "util/Clock.h"
#include "util/Errors.h"
#include "util/FileRights.h"
#include "util/Messages.h"

namespace velmar {

namespace {

StoreError notWritable(const QString& path) {
  return StoreError(kFileFailure,
                    QStringLiteral("%1 nu poate fi scris. Verificati drepturile si spatiul liber de pe disc.")
                        .arg(QDir::toNativeSeparators(path)));
}

void makeFolder(const QString& path) {
  if (!QDir().mkpath(path)) throw notWritable(path);
  protectFolder(path);
}

void saveProjects(const QString& from, const QString& to) {
  makeFolder(to);
  for (const QFileInfo& project :
       QDir(from).entryInfoList({QStringLiteral("*.ls*"), QStringLiteral("*.lbl")}, QDir::Files)) {
    QFile source(project.filePath());
    QSaveFile copy(QDir(to).filePath(project.fileName()));
    if (!source.open(QIODevice::ReadOnly) || !copy.open(QIODevice::WriteOnly) ||
        copy.write(source.readAll()) != source.size() || !copy.commit())
      throw notWritable(copy.fileName());
  }
}

// Makes open windows read their lists again.
void notifyAllChanged() {
  QSet<QString> tables;
  for (const Table& table : companyTables()) tables.insert(table.name().toUpper());
  emit dataChanges().written(tables);
}

void reopen(const QString& path) {
  if (openDatabase()) return;
  setOpenDatabase(Database::open(path));
  session().roster = std::make_unique<RosterEntry>(path, session().gUtilizator);
  session().fileCheck = std::make_unique<FileCheck>(path);
}

}  // namespace

QString backupFolder(bool make) {
  const QString folder = QDir(session().gCaleBD).filePath(kBackupFolderName);
  if (make) makeFolder(folder);
  return folder;
}

QString savedCopyName() { return savedCopyName(session().gDenSocietate, session().gNumeBD, clock::now()); }

QString saveOpenCompany(const QString& folder, const CopyProgress& progress) {
  const QString file = QDir(folder).filePath(savedCopyName());
  saveCompany(database(), file, progress);
  return file;
}

QString restoreQuestion(const QString& file) {
  return QStringLiteral(
             "Toate datele societatii %1 (%2) vor fi inlocuite cu cele din fisierul %3.\r\nCe s-a lucrat "
             "dupa "
             "aceasta salvare se pierde.\r\nDoriti sa continuati ?")
      .arg(session().gDenSocietate, session().gNumeBD, QFileInfo(file).fileName());
}

void requireAlone() {
  offerToForget(database().path());
  requireNobodyElse(database().path(), session().gUtilizator);
}

void restoreOpenCompany(const QString& file, const CopyProgress& progress) {
  const QString path = database().path();
  if (QFileInfo::exists(path) && QFileInfo(file) == QFileInfo(path))
    throw RuleError(
        QStringLiteral("Fisierul ales este chiar baza de date deschisa. Alegeti o copie salvata."), {},
        kExclamation);
  requireAlone();
  try {
    restoreCompany(
        file, path,
        [] {
          session().fileCheck.reset();
          session().roster.reset();
          setOpenDatabase(nullptr);
        },
        progress);
  } catch (...) {
    reopen(path);
    throw;
  }
  reopen(path);
  InitParaSoc();
  IncarcaSerii();
  notifyAllChanged();
}

void reportSaved() {
  Mesaj(QStringLiteral("Salvare cu succes a bazei de date %1").arg(session().gNumeBD), kInformation);
}

void CompacteazaBD() {
  try {
    removeCompactLeftover(session().gCaleBD, session().gNumeBD);
    database().compact();
  } catch (const StoreError& error) {
    Mesaj(QStringLiteral("Eroare la compactarea bazelor de date %1").arg(error.text()));
    return;
  }
  Mesaj(QStringLiteral("Compactarea bazei de date %1 s-a realizat cu succes !").arg(session().gNumeBD),
        kInformation);
}

void SalveazaAutomat() {
  const QString file = savedCopyName(session().gNumeBD, clock::now());
  saveCompany(database(), QDir(backupFolder(true)).filePath(file));
  reportSaved();
  const QDir application(session().gCaleAplicatie);
  saveProjects(application.filePath(QStringLiteral("lst")),
               application.filePath(kBackupFolderName + QStringLiteral("/lst")));
  Mesaj(QStringLiteral("Salvare cu succes a fisierelor proiect pentru listari !"), kInformation);
}

}  // namespace velmar
