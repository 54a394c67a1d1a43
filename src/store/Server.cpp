#include "store/Server.h"

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

bool isThisMachine(const QString& host) {
  return host.isEmpty() || host.startsWith(u'/') || host == QStringLiteral("localhost") ||
         host == QStringLiteral("127.0.0.1") || host == QStringLiteral("::1");
}

QString settingsPath(const QString& folder) { return QDir(folder).filePath(kServerFile); }

}  // namespace

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
  server.host = file.value("host").toString();
  server.port = file.value("port", server.port).toInt();
  server.user = file.value("user").toString();
  server.tls = file.value("tls", isThisMachine(server.host) ? "prefer" : "require").toString();
  const QString certificate = file.value("rootcert").toString();
  if (!certificate.isEmpty()) server.rootCertificate = QDir(folder).absoluteFilePath(certificate);
  server.prefix = file.value("prefix").toString().toLower();
  return server;
}

void verifyServer(const QString& folder, const QString& certificate) {
  auto server = serverOf(folder);
  if (!server) return;
  QFile source(certificate);
  if (!QFileInfo(certificate).isFile() || !source.open(QIODevice::ReadOnly))
    throw StoreError(kFileFailure, QStringLiteral("Fisierul %1 nu poate fi citit.").arg(certificate));
  const QByteArray content = source.readAll();
  server->tls = kVerified;
  server->rootCertificate = certificate;
  postgres::Connection(*server, QStringLiteral("postgres"));
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
