// From the start of the process to the login, and from the login's OK to the main window, on the company with
// a million lines. Each round is a separate process; a robot answers the dialogs immediately.
#include <cstdio>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QTimer>

#include "Benches.h"
#include "Fixture.h"
#include "shell/windows/frmMsgBox.h"
#include "shell/windows/StartUp.h"
#include "store/DatabaseFiles.h"
#include "util/Errors.h"
#include "util/Settings.h"
#include "util/windows/Look.h"

namespace velmar::bench {

namespace {

constexpr int kStarts = 10;
constexpr int kStartLimitMs = 30'000;
const QString kGone = QStringLiteral("-inchis");

// A clock shared by all processes of the machine.
qint64 nowMs() {
  QElapsedTimer timer;
  timer.start();
  return timer.msecsSinceReference();
}

void report(const QString& name) {
  std::printf("%s %lld\n", qUtf8Printable(name), static_cast<long long>(nowMs()));
  std::fflush(stdout);
}

// Answers each dialog once it is painted, and prints the time.
class Robot : public QObject {
 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    auto* window = qobject_cast<QWidget*>(watched);
    if (window && window->isWindow()) {
      const QString name = window->objectName();
      if (event->type() == QEvent::Hide) report(name + kGone);
      if (event->type() == QEvent::Paint && !seen_.contains(name)) {
        seen_.append(name);
        QTimer::singleShot(0, window, [window] { answer(window); });
      }
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  static void answer(QWidget* window) {
    const QString name = window->objectName();
    report(name);
    if (name == QStringLiteral("frmLogin"))
      for (const char* box : {"txtUserName", "txtPassword"})
        window->findChild<QLineEdit*>(box)->setText(QStringLiteral("admin"));
    if (name == QStringLiteral("frmSelMagazie"))
      emit window->findChild<QComboBox*>(QStringLiteral("DataCombo1"))->activated(0);
    if (name == QStringLiteral("frmMain")) QApplication::exit();
    if (auto* ok = window->findChild<QPushButton*>(QStringLiteral("cmdOK"))) ok->click();
  }

  QStringList seen_;
};

// Runs the program once; returns the times at which its windows were shown, by name.
QHash<QString, qint64> startedOnce(const QString& folder) {
  QProcess process;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
  process.setProcessEnvironment(environment);
  process.start(QCoreApplication::applicationFilePath(), {kStartOption, folder});
  if (!process.waitForFinished(kStartLimitMs)) {
    process.kill();
    process.waitForFinished();
  }
  QHash<QString, qint64> moments;
  for (const QByteArray& line : process.readAllStandardOutput().split('\n')) {
    const QList<QByteArray> words = line.split(' ');
    if (words.size() == 2) moments.insert(QString::fromUtf8(words[0]), words[1].toLongLong());
  }
  return moments;
}

}  // namespace

bool measureStart(Store store) {
  const QString folder =
      QFileInfo(copyOfCompany(store, CompanySize::MillionLines, kFirstCompanyName)).absolutePath();
  Times login;
  Times mainWindow;
  for (int round = 0; round <= kStarts; ++round) {
    const qint64 begun = nowMs();
    const QHash<QString, qint64> moments = startedOnce(folder);
    if (!moments.contains(QStringLiteral("frmMain")))
      throw StoreError(0, QStringLiteral("Programul nu a ajuns la fereastra principala."));
    if (round == 0) continue;
    // The splash is shown for a fixed time, which is not counted.
    const qint64 splash = moments[QStringLiteral("frmSplash") + kGone] - moments[QStringLiteral("frmSplash")];
    login.add(static_cast<double>(moments[QStringLiteral("frmLogin")] - begun - splash));
    mainWindow.add(
        static_cast<double>(moments[QStringLiteral("frmMain")] - moments[QStringLiteral("frmLogin")]));
  }
  printHeading(store, QStringLiteral("start: pornirea programului"),
               {QStringLiteral("median"), QStringLiteral("maxim")});
  printRow(QStringLiteral("pana la autentificare"),
           {milliseconds(login.median()), milliseconds(login.worst())});
  printRow(QStringLiteral("pana la fereastra principala"),
           {milliseconds(mainWindow.median()), milliseconds(mainWindow.worst())});
  return true;
}

int runStartedProgram(int argc, char** argv, const QString& folder) {
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  applyLook(application);
  WindowMessages messages;
  setMessageSink(&messages);
  settings::setFolder(folder);
  settings::setDatabasesPath(folder);
  Robot robot;
  application.installEventFilter(&robot);
  StartUp startUp(folder + QStringLiteral("/program"));
  QTimer::singleShot(0, &startUp, &StartUp::run);
  const int result = QApplication::exec();
  setMessageSink(nullptr);
  return result;
}

}  // namespace velmar::bench
