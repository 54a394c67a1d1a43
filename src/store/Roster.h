// Who works in a company. Every process keeps a lock file beside the company file, which becomes invalid when
// the process ends for any reason; for a company on a server, the server knows who is connected.
#pragma once

#include <memory>
#include <QDateTime>
#include <QList>
#include <QLockFile>
#include <QString>

namespace velmar {

/// One connected process.
struct Connection {
  QString computer;
  QString login;
  bool connected = true;
  QString suspectState;  ///< "-" when nothing is suspect
  QDateTime since = {};  ///< invalid for a company on a server
  /// Of another computer, or not readable: whether its process is alive cannot be found out here.
  bool isUncertain = false;
};

/// This process's entry in the roster of a company file, while the object exists.
class RosterEntry {
 public:
  /// Throws StoreError when the folder cannot be written.
  RosterEntry(const QString& databasePath, const QString& login);

 private:
  std::unique_ptr<QLockFile> lock_;  ///< none on a server
};

/// The processes connected to a company file, by computer and login; entries of dead processes are removed.
QList<Connection> connections(const QString& databasePath);

/// Removes the uncertain entries of a company file. Throws StoreError when one cannot be removed.
void forgetUncertain(const QString& databasePath);

}  // namespace velmar
