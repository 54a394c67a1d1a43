#include <QApplication>
#include <QTimer>

#include "fiscal/windows/frmAsteptare.h"
#include "hearing/HearingTrade.h"
#include "shell/ApplicationFolder.h"
#include "shell/windows/Application.h"
#include "shell/windows/frmMsgBox.h"
#include "shell/windows/StartUp.h"
#include "util/windows/Look.h"

int main(int argc, char** argv) {
  velmar::Application application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("velmar"));
  QApplication::setApplicationVersion(QStringLiteral(VELMAR_VERSION));
  QApplication::setDesktopFileName(QStringLiteral("velmar"));
  // The splash and the login close before the next window is open.
  QApplication::setQuitOnLastWindowClosed(false);
  velmar::applyLook(application);

  velmar::WindowMessages messages;
  velmar::setMessageSink(&messages);
  velmar::WindowRegisterWait registerWait;
  velmar::setRegisterWait(&registerWait);
  velmar::registerHearingTrade();
  velmar::StartUp startUp(velmar::defaultApplicationFolder());
  QObject::connect(&startUp, &velmar::StartUp::ended, &application, &QCoreApplication::quit);
  QTimer::singleShot(0, &startUp, &velmar::StartUp::run);
  const int result = QApplication::exec();
  velmar::setRegisterWait(nullptr);
  velmar::setMessageSink(nullptr);
  return result;
}
