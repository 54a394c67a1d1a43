// Lets the tests run on a database server: if VELMAR_TEST_SERVER contains the folder of its socket, each
// databases folder is set to use it.
#pragma once

#include <QCoreApplication>
#include <QDir>
#include <QSettings>

#include "store/Server.h"

namespace velmar {

/// Makes the folder use the tests' server, with its own database names; does nothing without a server.
inline void nameTestServer(const QString& folder, const QString& user = QStringLiteral("velmar")) {
  const QString socket = qEnvironmentVariable("VELMAR_TEST_SERVER");
  if (socket.isEmpty()) return;
  static int counter = 0;
  QSettings file(QDir(folder).filePath(kServerFile), QSettings::IniFormat);
  file.setValue("host", socket);
  file.setValue("user", user);
  file.setValue("prefix", QStringLiteral("p%1_%2_").arg(QCoreApplication::applicationPid()).arg(++counter));
}

}  // namespace velmar
