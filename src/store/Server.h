// A databases folder may name a database server in place of holding company files. Each file name of a
// company is then a database of that server: "Tarvon01.mdb" is the database tarvon01, "Tarvon.mdb" the
// template.
#pragma once

#include <functional>
#include <optional>
#include <QString>

namespace velmar {

/// Name of the settings file that makes a databases folder speak of a server.
inline const QString kServerFile = QStringLiteral("Server.ini");

struct Server {
  QString host;  ///< name, address, or the folder of a local socket
  int port = 5432;
  QString user;
  QString tls;     ///< libpq's sslmode; what is not told is "require" for another machine, else "prefer"
  QString prefix;  ///< stands before the names of the databases, where several folders share a server
};

/// The server that the folder names; nothing for a folder of company files. Throws StoreError when the
/// settings cannot be read.
std::optional<Server> serverOf(const QString& folder);

/// Asks the user for the password of a server's user; `refused` tells that the one given before was wrong.
/// Gives nothing when the user gives up.
using AskPassword = std::function<std::optional<QString>(const Server& server, bool refused)>;

/// Who is asked when a server wants a password that nothing else gives; without one it is refused. A password
/// that was right is known until the process ends, and is stored nowhere.
void setAskPassword(AskPassword ask);

/// The database that a path in such a folder stands for.
QString databaseOnServer(const Server& server, const QString& path);

}  // namespace velmar
