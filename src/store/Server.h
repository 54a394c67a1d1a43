// A databases folder may name a database server instead of containing company files. Each company file name
// then corresponds to a database on that server: "Tarvon01.mdb" is the database tarvon01, "Tarvon.mdb" the
// template.
#pragma once

#include <functional>
#include <optional>
#include <QString>
#include <vector>

namespace velmar {

/// Name of the settings file by which a databases folder names a server.
inline const QString kServerFile = QStringLiteral("Server.ini");

struct Server {
  QString host;  ///< name, address, or the folder of a local socket; several, with commas: also its standbys
  QString port;  ///< one for all hosts, or one for each, with commas
  QString user;
  QString tls;              ///< libpq's sslmode; by default "require" for another machine, otherwise "prefer"
  QString rootCertificate;  ///< file of the certificate by which "verify-..." checks that of the server
  QString prefix;           ///< prefix of the names of the databases, if several folders share a server

  bool hasStandby() const { return host.contains(u','); }
  /// The same settings for each host alone.
  std::vector<Server> hosts() const;
  /// Whether a connection without TLS is refused.
  bool requiresTls() const;
  /// Whether it is another machine that is not checked to be the one of that name.
  bool isUnverified() const;
};

/// The server that the folder names; nothing for a folder of company files. Throws StoreError when the
/// settings cannot be read.
std::optional<Server> serverOf(const QString& folder);

/// From now on connections of the folder use `verify-full` with this certificate, which is copied beside the
/// settings. If the server cannot be reached in this way, throws StoreError and changes nothing.
void verifyServer(const QString& folder, const QString& certificate);

/// Asks the user for the password of a server's user; `refused`: the previous one was wrong. Returns nothing
/// when the user cancels.
using AskPassword = std::function<std::optional<QString>(const Server& server, bool refused)>;

/// Sets the function that asks for a password when a server requires one and none is configured; without it
/// the connection fails. A correct password is kept in memory until the process ends, and not stored.
void setAskPassword(AskPassword ask);

/// The database for a path in such a folder.
QString databaseOnServer(const Server& server, const QString& path);

}  // namespace velmar
