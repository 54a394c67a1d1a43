#include "shell/windows/StartUp.h"

#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QTimer>

#include "config/Session.h"
#include "shell/ApplicationFolder.h"
#include "shell/Login.h"
#include "shell/StructureUpgrade.h"
#include "shell/windows/frmLogin.h"
#include "shell/windows/frmMain.h"
#include "shell/windows/frmPanou.h"
#include "shell/windows/frmParola.h"
#include "shell/windows/frmSelMagazie.h"
#include "shell/windows/frmSplash.h"
#include "store/Server.h"
#include "util/Errors.h"
#include "util/Settings.h"
#include "util/windows/WorkProgress.h"

namespace velmar {

namespace {
constexpr int kSplashMs = 2000;
const QString kStartModule = QStringLiteral("StartUp");

clsCompareBD::Progress showUpgrade() {
  auto shown = std::make_shared<WorkProgress>(QStringLiteral("Actualizare baza de date"),
                                              QApplication::activeWindow());
  return [shown](int done, int of) { shown->show(done, of); };
}
}  // namespace

StartUp::StartUp(const QString& applicationFolder, QObject* parent) : QObject(parent) {
  setAskPassword(askServerPassword);
  session().gDenSocietateNoua = QStringLiteral("00");
  guarded(kStartModule, "prepareApplicationFolder",
          [&applicationFolder] { prepareApplicationFolder(applicationFolder); });
}

StartUp::~StartUp() {
  mainWindow_.reset();
  leaveCompany();
}

void StartUp::run() {
  showSplash();
  session().gCaleBD = settings::databasesPath();
  {
    frmLogin login([](bool force) { VerificaVersiune(force, showUpgrade); });
    login.exec();
    if (!login.LoginSucceeded()) {
      end();
      return;
    }
  }
  guarded(kStartModule, "IncarcaSerii", [] { IncarcaSerii(); });
  showWarehouses();
}

void StartUp::showSplash() {
  frmSplash splash;
  splash.show();
  QEventLoop wait;
  QTimer::singleShot(kSplashMs, &wait, &QEventLoop::quit);
  wait.exec();
}

bool StartUp::openCompany(const QString& folder, const QString& numeBD, const QString& denumire,
                          const QString& user, const QString& password) {
  return guarded("frmLogin", "cmdOK_Click", [&] {
    session().gCaleBD = QDir::cleanPath(folder);
    Login().enter(numeBD, denumire, user, password);
    IncarcaSerii();
  });
}

void StartUp::showWarehouses() {
  auto* dialog = new frmSelMagazie;
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  connect(dialog, &frmSelMagazie::warehouseChosen, this, [this](qint64 code, const QString& name) {
    chooseWarehouse(code, name);
    guarded(kStartModule, "DeschideFereastraPrincipala", [this] { DeschideFereastraPrincipala(); });
  });
  connect(dialog, &QDialog::rejected, this, &StartUp::end);
  dialog->show();
}

void StartUp::chooseWarehouse(qint64 code, const QString& name) {
  session().gMagazie = code;
  session().gDenMagazie = name;
}

void StartUp::DeschideFereastraPrincipala() {
  mainWindow_.reset();
  mainWindow_ = std::make_unique<frmMain>();
  connect(mainWindow_.get(), &frmMain::closed, this, &StartUp::end, Qt::QueuedConnection);
  mainWindow_->show();
  if (frmPanou::isWantedAtStart()) mainWindow_->showOffered("frmPanou");
}

void StartUp::end() {
  mainWindow_.reset();
  leaveCompany();
  emit ended();
}

}  // namespace velmar
