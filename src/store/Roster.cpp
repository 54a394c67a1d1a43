#include "store/Roster.h"

#include <algorithm>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSysInfo>
#include <QUrl>

#include "store/Database.h"
#include "store/Engine.h"
#include "store/PostgresConnection.h"
#include "store/SqlitePlace.h"
#include "util/Errors.h"
#include "util/FileRights.h"

namespace velmar {

namespace {

const QString kMark = QStringLiteral("-conexiune-");

// The server reports the application name of each connection: program, computer, login.
QList<Connection> connectionsOn(const Server& server, const QString& database) {
  postgres::Connection link(server, QStringLiteral("postgres"));
  link.prepare("roster",
               QStringLiteral("SELECT application_name AS NAME FROM pg_stat_activity WHERE datname = ? AND "
                              "application_name LIKE 'Velmar|%' ORDER BY application_name"));
  QList<Connection> found;
  for (const Row& row : postgres::recordsetOf(link.execute("roster", {database}))) {
    const QStringList parts = row.at(0).toString().split(QLatin1Char('|'));
    found.append({parts.value(1), parts.value(2), true, QStringLiteral("-")});
  }
  return found;
}

QString entryPath(const QString& databasePath, const QString& login) {
  return QStringLiteral("%1%2%3-%4")
      .arg(databasePath, kMark, QString::number(QCoreApplication::applicationPid()),
           QString::fromLatin1(QUrl::toPercentEncoding(login)));
}

// Whether the process ended between creating its entry and writing it, which takes microseconds.
bool isUnwritten(const QFileInfo& entry) {
  constexpr qint64 kWritingTime = 1000;  // milliseconds
  return entry.size() == 0 && entry.lastModified().msecsTo(QDateTime::currentDateTime()) > kWritingTime;
}

QFileInfoList entriesOf(const QFileInfo& file) {
  return file.dir().entryInfoList({file.fileName() + kMark + QLatin1Char('*')}, QDir::Files);
}

}  // namespace

RosterEntry::RosterEntry(const QString& databasePath, const QString& login) {
  if (serverOf(QFileInfo(databasePath).path())) {
    if (Database* open = openDatabase()) open->engine().setLogin(login);
    return;
  }
  lock_ = std::make_unique<QLockFile>(entryPath(databasePath, login));
  lock_->setStaleLockTime(0);
  if (!lock_->tryLock(0) && lock_->error() != QLockFile::LockFailedError)
    throw StoreError(
        kFileFailure,
        QStringLiteral("Folderul bazei de date %1 nu poate fi scris. Verificati drepturile asupra lui.")
            .arg(QDir::toNativeSeparators(QFileInfo(databasePath).path())));
  protectFile(lock_->fileName());
  sqlite::rememberPlace(databasePath);
}

QList<Connection> connections(const QString& databasePath) {
  const QFileInfo file(databasePath);
  if (const auto server = serverOf(file.path()))
    return connectionsOn(*server, databaseOnServer(*server, databasePath));
  QList<Connection> found;
  for (const QFileInfo& entry : entriesOf(file)) {
    QLockFile probe(entry.filePath());
    probe.setStaleLockTime(0);
    if (probe.tryLock(0)) continue;  // its process is dead; the probe removes the file
    if (isUnwritten(entry) && QFile::remove(entry.filePath())) continue;
    qint64 process = 0;
    QString host;
    QString program;
    probe.getLockInfo(&process, &host, &program);
    const QString rest = entry.fileName().mid(file.fileName().size() + kMark.size());
    const QString login = QUrl::fromPercentEncoding(rest.mid(rest.indexOf(QLatin1Char('-')) + 1).toLatin1());
    const bool isOurs = process > 0 && host == QSysInfo::machineHostName();
    found.append({host, login, true, QStringLiteral("-"), entry.lastModified(), !isOurs});
  }
  std::sort(found.begin(), found.end(), [](const Connection& a, const Connection& b) {
    return std::tie(a.computer, a.login) < std::tie(b.computer, b.login);
  });
  return found;
}

void forgetUncertain(const QString& databasePath) {
  const QFileInfo file(databasePath);
  if (serverOf(file.path())) return;
  for (const QFileInfo& entry : entriesOf(file)) {
    QLockFile probe(entry.filePath());
    probe.setStaleLockTime(0);
    qint64 process = 0;
    QString host;
    QString program;
    if (probe.getLockInfo(&process, &host, &program) && host == QSysInfo::machineHostName()) continue;
    if (!QFile::remove(entry.filePath()))
      throw StoreError(kFileFailure,
                       QStringLiteral("Fisierul %1 nu poate fi sters. Verificati drepturile asupra lui.")
                           .arg(QDir::toNativeSeparators(entry.filePath())));
  }
}

}  // namespace velmar
