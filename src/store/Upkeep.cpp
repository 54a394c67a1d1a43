#include "store/Upkeep.h"

#include <algorithm>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QSysInfo>
#include <QThread>

#include "store/clsCompareBD.h"
#include "store/Database.h"
#include "store/DatabaseFiles.h"
#include "store/Engine.h"
#include "store/Roster.h"
#include "store/Server.h"
#include "store/Sqlite.h"
#include "store/Workshop.h"
#include "util/Errors.h"
#include "util/FileNames.h"
#include "util/FileRights.h"
#include "util/Messages.h"

namespace velmar {

namespace {

constexpr int kNameLength = 10;
constexpr int kExtensionLength = 4;
const QString kStagePrefix = QStringLiteral("velmar-restaurare-");
constexpr int kFarewellMs = 2000;
constexpr int kFarewellPauseMs = 50;

// Before a large file is copied for nothing.
void requireDatabaseFile(const QString& path) {
  constexpr int kHeader = 16;
  QFile file(path);
  requirePlainFile(path);
  if (file.open(QIODevice::ReadOnly) && !file.read(kHeader).startsWith("SQLite format 3"))
    throw StoreError(kFileFailure,
                     QStringLiteral("Fisierul %1 nu este o baza de date Velmar sau este deteriorat. Alegeti "
                                    "alta copie salvata.")
                         .arg(QDir::toNativeSeparators(path)));
}

void copyFile(const QString& from, const QString& to) {
  requireDatabaseFile(from);
  if (!QFile::copy(from, to))
    throw StoreError(kFileFailure,
                     QStringLiteral("Fisierul %1 nu poate fi copiat. Verificati drepturile asupra lui si "
                                    "spatiul liber de pe disc.")
                         .arg(QDir::toNativeSeparators(from)));
  QFile::setPermissions(to, QFile::permissions(to) | QFile::ReadOwner | QFile::WriteOwner);
  protectFile(to);
}

// Detects a truncated or damaged copy, and a file that only looks like a company.
void requireWholeCompany(Database& company) {
  company.requireWhole();
  const QStringList tables = company.engine().tables();
  const auto isFilled = [&](const char* table) {
    return tables.contains(QLatin1String(table), Qt::CaseInsensitive) &&
           company.query(QStringLiteral("SELECT COUNT(*) AS N FROM ") + QLatin1String(table))
                   .first()
                   .integer("N") > 0;
  };
  if (!isFilled("kt_info") || !isFilled("kt_par"))
    throw StoreError(kFileFailure, QStringLiteral("Fisierul %1 nu este o baza de date de societate.")
                                       .arg(QDir::toNativeSeparators(company.path())));
}

// While somebody works in a company, its latest changes are in a side file.
void requireNoJournal(const QString& file) {
  for (const QString& side : sqlite::sideFiles(file))
    if (QFileInfo(side).size() > 0)
      throw RuleError(QStringLiteral("Fisierul %1 este folosit in acest moment. Inchideti societatea lui si "
                                     "incercati din nou.")
                          .arg(QDir::toNativeSeparators(file)),
                      {}, kExclamation);
}

void refuse(const QList<Connection>& others) {
  QString text = QStringLiteral("Restaurarea nu se poate face cat timp si altii lucreaza in societate :\r\n");
  for (const Connection& other : others)
    text += QStringLiteral("%1 - %2\r\n")
                .arg(other.computer,
                     other.login.isEmpty() ? QStringLiteral("utilizator necunoscut") : other.login);
  throw RuleError(text + QStringLiteral("Rugati-i sa iasa din program si incercati din nou."), {},
                  kExclamation);
}

// A server reports a closed connection for a moment longer.
void requireNobody(const QString& company) {
  QElapsedTimer waited;
  waited.start();
  QList<Connection> others;
  while (!(others = connections(company)).isEmpty() && waited.elapsed() < kFarewellMs)
    QThread::msleep(kFarewellPauseMs);
  if (!others.isEmpty()) refuse(others);
  // A user who is just logging in has the file open but is not in the roster yet.
  if (!serverOf(QFileInfo(company).path()) && sqlite::isInUse(company))
    refuse({{"calculator necunoscut", {}, true, "-"}});
}

// A copy made by an older program, or with an incomplete structure, is upgraded before anybody works in it.
void bringUpToDate(const QString& copy) {
  const Workshop model(QDir::tempPath(), kStagePrefix);
  bringTemplateUpToDate(model.path());
  try {
    clsCompareBD(copy, pathInFolder(model.path(), kTemplateName)).Compara();
  } catch (const StoreError& error) {
    throw StoreError(
        error.number(),
        QStringLiteral("Copia salvata are o structura mai veche, care nu poate fi adusa la cea de acum. "
                       "Societatea a ramas cum era.\r\n%1")
            .arg(error.text()));
  }
  const QFileInfo file(copy);
  QString keepsItsName = QStringLiteral("00");
  MarcheazaVersiune(file.path(), file.fileName(), keepsItsName);
}

void fillFrom(const QString& file, const QString& draft, const CopyProgress& progress) {
  if (!serverOf(QFileInfo(draft).path())) {
    copyFile(file, draft);
    requireWholeCompany(*Database::open(draft));
    return bringUpToDate(draft);
  }
  // In its own folder the file could be taken for a database on the server, and opening it may write to it.
  const Workshop stage(QDir::tempPath(), kStagePrefix);
  const QString staged = stage.filePath(QFileInfo(file).fileName());
  copyFile(file, staged);
  requireWholeCompany(*Database::open(staged));
  bringUpToDate(staged);
  const auto source = Database::open(staged);
  copyToNewDatabase(*source, draft, progress);
}

}  // namespace

QString savedCopyName(const QString& fileName, const QDateTime& moment) {
  return QStringLiteral("%1_%2.mdb")
      .arg(fileName.chopped(std::min<qsizetype>(kExtensionLength, fileName.size())),
           moment.toString(QStringLiteral("dd.MM.yyyy_hh.mm")));
}

QString savedCopyName(const QString& companyName, const QString& fileName, const QDateTime& moment) {
  return asFileName(companyName.left(kNameLength)) + u'_' + savedCopyName(fileName, moment);
}

void saveCompany(Database& company, const QString& file, const CopyProgress& progress) {
  const QFileInfo target(file);
  // In a separate folder without the settings of a server.
  const Workshop workshop(target.path(), kSavePrefix);
  const QString draft = workshop.filePath(target.fileName());
  // A copy of a damaged file may lack rows and yet be found whole.
  company.requireWhole([&progress] {
    if (progress) progress(0, 100);
  });
  if (!company.copyAsFile(draft, progress)) copyToNewDatabase(company, draft, progress);
  requireWholeCompany(*Database::open(draft));
  putFileInPlace(draft, file);
}

void restoreCompany(const QString& file, const QString& company, const std::function<void()>& release,
                    const CopyProgress& progress) {
  const QFileInfo place(company);
  requireNoJournal(file);
  underFileLock(place.path(), place.fileName(), [&] {
    makeDatabaseWhole(company, [&](const QString& draft) {
      fillFrom(file, draft, progress);
      release();
      requireNobody(company);
    });
  });
}

void requireNobodyElse(const QString& company, const QString& login) {
  QList<Connection> others = connections(company);
  const auto own = std::find_if(others.begin(), others.end(), [&login](const Connection& each) {
    return each.computer == QSysInfo::machineHostName() &&
           each.login.compare(login, Qt::CaseInsensitive) == 0;
  });
  if (own != others.end()) others.erase(own);
  if (!others.isEmpty()) refuse(others);
}

void removeCompactLeftover(const QString& folder, const QString& fileName) {
  const QString leftover = pathInFolder(folder, QStringLiteral("Compact") + fileName);
  for (const QString& path : sqlite::sideFiles(leftover) + QStringList{leftover})
    if (QFile::exists(path) && !QFile::remove(path))
      throw StoreError(kFileFailure,
                       QStringLiteral("Fisierul %1 nu poate fi sters. Verificati drepturile asupra lui.")
                           .arg(QDir::toNativeSeparators(path)));
}

}  // namespace velmar
