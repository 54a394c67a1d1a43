#include "store/Server.h"

#include <algorithm>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QSettings>

#include "store/PostgresConnection.h"
#include "util/Errors.h"
#include "util/FileNames.h"

namespace velmar {

namespace {

const QString kCertificate = QStringLiteral("Server.crt");
const QString kVerified = QStringLiteral("verify-full");

bool isLocal(const QString& host) {
  return host.isEmpty() || host.startsWith(u'/') || host == QStringLiteral("localhost") ||
         host == QStringLiteral("127.0.0.1") || host == QStringLiteral("::1");
}

bool isThisMachine(const QString& hosts) {
  const QStringList all = hosts.split(u',');
  return std::all_of(all.begin(), all.end(), isLocal);
}

// The settings read a text with commas as a list, unless it is quoted.
QStringList listOf(const QSettings& file, const QString& key) {
  QStringList parts = file.value(key).toStringList().join(u',').split(u',', Qt::SkipEmptyParts);
  for (QString& part : parts) part = part.trimmed();
  return parts;
}

QString settingsPath(const QString& folder) { return QDir(folder).filePath(kServerFile); }

}  // namespace

std::vector<Server> Server::hosts() const {
  const QStringList names = host.split(u',');
  const QStringList ports = port.split(u',');
  std::vector<Server> all(static_cast<size_t>(names.size()), *this);
  for (qsizetype i = 0; i < names.size(); ++i) {
    all[static_cast<size_t>(i)].host = names[i];
    all[static_cast<size_t>(i)].port = ports.value(i, ports.first());
  }
  return all;
}

bool Server::requiresTls() const {
  return tls == QStringLiteral("require") || tls == QStringLiteral("verify-ca") || tls == kVerified;
}

bool Server::isUnverified() const { return tls != kVerified && !isThisMachine(host); }

std::optional<Server> serverOf(const QString& folder) {
  const QString path = settingsPath(folder);
  if (!QFileInfo::exists(path)) return std::nullopt;
  requirePlainFile(path);
  const QSettings file(path, QSettings::IniFormat);
  if (file.status() != QSettings::NoError)
    throw StoreError(kFileFailure, QStringLiteral("Fisierul %1 nu poate fi citit.").arg(path));
  if (file.allKeys().isEmpty())
    throw StoreError(
        kFileFailure,
        QStringLiteral("Fisierul %1 este gol: nu spune pe ce server sunt bazele de date.").arg(path));
  Server server;
  const QStringList hosts = listOf(file, QStringLiteral("host"));
  const QStringList ports = listOf(file, QStringLiteral("port"));
  if (ports.size() > 1 && ports.size() != hosts.size())
    throw StoreError(kFileFailure,
                     QStringLiteral("Fisierul %1 are %2 servere la host, dar %3 porturi la port.")
                         .arg(path)
                         .arg(hosts.size())
                         .arg(ports.size()));
  server.host = hosts.join(u',');
  server.port = ports.isEmpty() ? QStringLiteral("5432") : ports.join(u',');
  server.user = file.value("user").toString();
  server.tls = file.value("tls", isThisMachine(server.host) ? "prefer" : "require").toString();
  const QString certificate = file.value("rootcert").toString();
  if (!certificate.isEmpty()) {
    server.rootCertificate = QDir(folder).absoluteFilePath(certificate);
    requirePlainFile(server.rootCertificate);
  }
  server.prefix = file.value("prefix").toString().toLower();
  return server;
}

void verifyServer(const QString& folder, const QString& certificate) {
  auto server = serverOf(folder);
  if (!server) return;
  requirePlainFile(certificate);
  QFile source(certificate);
  if (!source.open(QIODevice::ReadOnly))
    throw StoreError(kFileFailure, QStringLiteral("Fisierul %1 nu poate fi citit.").arg(certificate));
  const QByteArray content = source.readAll();
  server->tls = kVerified;
  server->rootCertificate = certificate;
  const postgres::Connection probe(*server, QStringLiteral("postgres"));
  QSaveFile copy(QDir(folder).filePath(kCertificate));
  if (!copy.open(QIODevice::WriteOnly) || copy.write(content) != content.size() || !copy.commit())
    throw notWritten(copy);
  QSettings file(settingsPath(folder), QSettings::IniFormat);
  file.setValue("tls", kVerified);
  file.setValue("rootcert", kCertificate);
  file.sync();
  if (file.status() != QSettings::NoError)
    throw StoreError(
        kFileFailure,
        QStringLiteral("Fisierul %1 nu poate fi scris. Verificati drepturile.").arg(settingsPath(folder)));
}

QString databaseOnServer(const Server& server, const QString& path) {
  return server.prefix + QFileInfo(path).completeBaseName().toLower();
}

}  // namespace velmar
