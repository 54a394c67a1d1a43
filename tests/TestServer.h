// Lets the tests run on a database server: where VELMAR_TEST_SERVER tells the folder of its socket, each
// folder of databases names it.
#pragma once

#include <QCoreApplication>
#include <QDir>
#include <QSettings>

#include "store/Server.h"

namespace velmar {

/// Names the tests' server in the folder, with databases of this folder's own; does nothing without a server.
inline void nameTestServer(const QString& folder) {
  const QString socket = qEnvironmentVariable("VELMAR_TEST_SERVER");
  if (socket.isEmpty()) return;
  static int counter = 0;
  QSettings file(QDir(folder).filePath(kServerFile), QSettings::IniFormat);
  file.setValue("host", socket);
  file.setValue("user", "velmar");
  file.setValue("prefix", QStringLiteral("p%1_%2_").arg(QCoreApplication::applicationPid()).arg(++counter));
}

}  // namespace velmar
