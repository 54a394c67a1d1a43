// Runs one scenario on the real windows: velmar_scenario FILE.js [--out DIR].
#include <execinfo.h>
#include <unistd.h>
#include <csignal>
#include <cstdio>
#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QTimer>

#include "Answers.h"
#include "Companies.h"
#include "Controls.h"
#include "Files.h"
#include "Grids.h"
#include "hearing/HearingTrade.h"
#include "Input.h"
#include "Menus.h"
#include "Printing.h"
#include "ScenarioEngine.h"
#include "SharedFunctions.h"

namespace velmar::scenario {

namespace {

Driver* theDriver = nullptr;
const ScenarioEngine* theEngine = nullptr;
volatile std::sig_atomic_t theExitCode = 0;

/// Keeps exceptions that escape a handler of the program from ending the process.
class Application : public QApplication {
 public:
  using QApplication::QApplication;
  bool notify(QObject* receiver, QEvent* event) override {
    try {
      return QApplication::notify(receiver, event);
    } catch (const std::exception& failure) {
      theDriver->addLateFailure(
          QStringLiteral("an exception escaped: %1").arg(QString::fromUtf8(failure.what())));
    } catch (...) {
      theDriver->addLateFailure(QStringLiteral("an exception escaped"));
    }
    return false;
  }
};

void print(const Verdict& verdict, const QString& screenshot) {
  const QByteArray name = QFileInfo(verdict.file).completeBaseName().toUtf8();
  std::printf("%s %s (%d checks)\n", verdict.failed ? "FAIL" : "PASS", name.constData(), verdict.checks);
  if (verdict.failed) {
    std::printf("  %s:%d: %s\n", qPrintable(verdict.file), verdict.line, verdict.what.toUtf8().constData());
    if (!verdict.expected.isNull() || !verdict.actual.isNull())
      std::printf("  expected: %s\n  actual:   %s\n", verdict.expected.toUtf8().constData(),
                  verdict.actual.toUtf8().constData());
    if (!screenshot.isEmpty()) std::printf("  screenshot: %s\n", screenshot.toUtf8().constData());
  }
  std::fflush(stdout);
}

void writeBacktrace(int signal) {
  void* frames[64];
  backtrace_symbols_fd(frames, backtrace(frames, 64), STDERR_FILENO);
  if (signal == SIGUSR1) return;
  std::signal(signal, SIG_DFL);
  if (theEngine) {
    Verdict verdict = theEngine->verdict();
    verdict.failed = true;
    verdict.line = theEngine->lastLine();
    verdict.what = QStringLiteral("the program crashed (signal %1)").arg(signal);
    print(verdict, {});
  }
  std::raise(signal);
}

/// Sets up the environment of a scenario before Qt starts: no display, and none of the user's files.
void isolate(const QTemporaryDir& home) {
  const auto folder = [&home](const char* name) {
    const QString path = home.filePath(QString::fromLatin1(name));
    QDir().mkpath(path);
    return QFile::encodeName(path);
  };
  for (const char* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME",
                           "XDG_RUNTIME_DIR", "XDG_CONFIG_DIRS"})
    qputenv(name, folder(name));
  QFile::setPermissions(home.filePath(QStringLiteral("XDG_RUNTIME_DIR")),
                        QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  const QString platform = qEnvironmentVariable("QT_QPA_PLATFORM", QStringLiteral("offscreen"));
  if (platform != QStringLiteral("offscreen")) return;
  QFile screen(home.filePath(QStringLiteral("screen.json")));
  if (screen.open(QIODevice::WriteOnly))
    screen.write(R"({"screens":[{"name":"screen","x":0,"y":0,"width":1366,"height":768,)"
                 R"("logicalDpi":96,"logicalBaseDpi":96,"dpr":1}]})");
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(screen.fileName()));
}

/// Suppresses a message that the offscreen platform always prints.
void logMessage(QtMsgType, const QMessageLogContext&, const QString& text) {
  if (!text.startsWith(QStringLiteral("This plugin does not support")))
    std::fprintf(stderr, "%s\n", text.toUtf8().constData());
}

QWidget* windowInFront() {
  QWidget* window = QApplication::activeModalWidget();
  if (!window) window = QApplication::activeWindow();
  // The list of a combo remains the active window for a while after it was closed.
  while (window && window->windowType() == Qt::Popup && window->parentWidget())
    window = window->parentWidget()->window();
  const QWidgetList all = QApplication::topLevelWidgets();
  for (QWidget* other : all)
    if (!window && other->isVisible()) window = other;
  return window;
}

// An error although the script has ended successfully; empty if there is none.
QString leftOver(const Driver& driver, const Answers& answers) {
  if (!driver.lateFailure().isEmpty()) return driver.lateFailure();
  if (const QString report = answers.unexpectedReport(); !report.isEmpty())
    return QStringLiteral("an unexpected error report: ") + report;
  const QWidget* modal = QApplication::activeModalWidget();
  if (modal && modal->objectName() == QStringLiteral("frmMsgBox"))
    return QStringLiteral("a message box is open at the end: ") + answers.lastText();
  return {};
}

void addScreenshots(Functions& functions, Windows& windows, const QString& out) {
  functions["shot"] = [out](const Arguments& a) {
    return saveScreenshot(windowInFront(), out, a[0].toString());
  };
  functions["shotOf"] = [out, &windows](const Arguments& a) {
    return saveScreenshot(windows.window(a[0].toInt()), out, a[1].toString());
  };
}

// Everything that a running scenario needs on the GUI thread.
class Stage {
 public:
  explicit Stage(const QString& out)
      : out_(out),
        folders_(out),
        printing_(out),
        answers_([](const QString& text) { theDriver->addLateFailure(text); }),
        driver_([this] { return answers_.settled() && printing_.settled(); }),
        companies_(folders_, answers_) {
    theDriver = &driver_;
    windows_.addFunctions(functions_);
    answers_.addFunctions(functions_);
    printing_.addFunctions(functions_);
    companies_.addFunctions(functions_);
    addControlFunctions(functions_, windows_);
    addGridFunctions(functions_, windows_);
    addTreeFunctions(functions_, windows_);
    addMenuFunctions(functions_);
    addFileFunctions(functions_);
    addSharedFunctions(functions_);
    addScreenshots(functions_, windows_, out);
  }

  Driver& driver() { return driver_; }
  const Functions& functions() const { return functions_; }

  /// Adds remaining errors of the program to the script's verdict and prints it. Returns the exit code.
  int close(Verdict verdict) {
    if (const QString rest = leftOver(driver_, answers_); !rest.isEmpty()) {
      if (!verdict.failed)
        verdict.what = rest;
      else if (!verdict.what.contains(answers_.lastText()))
        verdict.what += QStringLiteral("; ") + rest;
      verdict.failed = true;
    }
    QString screenshot;
    if (QWidget* front = windowInFront(); front && verdict.failed)
      screenshot = saveScreenshot(front, out_, QStringLiteral("failure"));
    print(verdict, screenshot);
    answers_.setSilent(true);
    return verdict.failed ? 1 : 0;
  }

 private:
  QString out_;
  Folders folders_;
  Windows windows_;
  Printing printing_;
  Answers answers_;
  Driver driver_;
  Companies companies_;
  Functions functions_;
};

// Runs on the script's thread, since the GUI thread hangs.
void dieOfHang(const Verdict& verdict, pthread_t windowsThread) {
  print(verdict, {});
  pthread_kill(windowsThread, SIGUSR1);
  QThread::sleep(1);
  ::_exit(1);
}

int runScenario(const QString& file, const QString& out) {
  Stage stage(out);
  ScenarioEngine engine(file, stage.driver(), stage.functions());
  theEngine = &engine;
  bool over = false;
  QObject::connect(&engine, &ScenarioEngine::finished, qApp, [&] {
    theExitCode = stage.close(engine.verdict());
    over = true;
    // A program that does not leave its event loops must not block the next scenario.
    std::signal(SIGALRM, [](int) { ::_exit(theExitCode); });
    ::alarm(10);
    QCoreApplication::exit(0);
  });
  QObject::connect(
      &engine, &ScenarioEngine::hung, &engine,
      [&engine, thread = pthread_self()] { dieOfHang(engine.verdict(), thread); }, Qt::DirectConnection);
  engine.start();
  // The program may quit in the middle of a scenario; the scenario continues.
  while (!over) QApplication::exec();
  engine.wait();
  theEngine = nullptr;
  return theExitCode;
}

}  // namespace

}  // namespace velmar::scenario

int main(int argc, char** argv) {
  using namespace velmar::scenario;
  const QTemporaryDir home;
  isolate(home);
  for (const int signal : {SIGSEGV, SIGABRT, SIGFPE, SIGBUS, SIGUSR1}) std::signal(signal, writeBacktrace);
  qInstallMessageHandler(logMessage);
  Application application(argc, argv);
  velmar::registerHearingTrade();
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);

  QCommandLineParser parser;
  const QCommandLineOption out(QStringLiteral("out"), QStringLiteral("Where screenshots and prints go."),
                               QStringLiteral("DIR"), QStringLiteral("out/scenarios"));
  parser.addOption(out);
  parser.addPositionalArgument(QStringLiteral("FILE.js"), QStringLiteral("The scenario."));
  parser.addHelpOption();
  parser.process(application);
  if (parser.positionalArguments().size() != 1) parser.showHelp(2);
  const QFileInfo file(parser.positionalArguments().first());
  try {
    return runScenario(file.absoluteFilePath(),
                       QDir(QDir(parser.value(out)).absolutePath()).filePath(file.completeBaseName()));
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 2;
  }
}
