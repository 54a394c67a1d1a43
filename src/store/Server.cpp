#include "store/Server.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>

#include "util/Errors.h"
#include "util/FileNames.h"

namespace velmar {

namespace {

bool isThisMachine(const QString& host) {
  return host.isEmpty() || host.startsWith(u'/') || host == QStringLiteral("localhost") ||
         host == QStringLiteral("127.0.0.1") || host == QStringLiteral("::1");
}

}  // namespace

std::optional<Server> serverOf(const QString& folder) {
  const QString path = QDir(folder).filePath(kServerFile);
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
  server.prefix = file.value("prefix").toString().toLower();
  return server;
}

QString databaseOnServer(const Server& server, const QString& path) {
  return server.prefix + QFileInfo(path).completeBaseName().toLower();
}

}  // namespace velmar
