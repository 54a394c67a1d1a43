#include "Companies.h"

#include <QApplication>
#include <QDir>
#include <QProcess>
#include <QScreen>
#include <QWidget>

#include "config/Session.h"
#include "config/Warehouses.h"
#include "SharedFunctions.h"
#include "shell/Login.h"
#include "shell/windows/frmMsgBox.h"
#include "shell/windows/StartUp.h"
#include "store/CompanyList.h"
#include "store/Database.h"
#include "store/DatabaseFiles.h"
#include "TestServer.h"
#include "util/Clock.h"
#include "util/FileNames.h"
#include "util/Settings.h"
#include "util/windows/Look.h"

namespace velmar::scenario {

namespace {

constexpr int kWarehouse = 1;

QDate isoDate(const QVariant& value) {
  const QDate date = QDate::fromString(value.toString(), Qt::ISODate);
  if (!date.isValid()) throw Failure(QStringLiteral("\"%1\" is no ISO date").arg(value.toString()));
  return date;
}

void setPeriods(Database& company, const QVariantMap& options) {
  const int year = clock::today().year();
  const QDate from = options.contains("from") ? isoDate(options["from"]) : QDate(year, 1, 1);
  const QDate to = options.contains("to") ? isoDate(options["to"]) : QDate(year, 12, 31);
  company.execute(
      "UPDATE kt_par SET DATAIN = ?, DATASN = ?, DATAIN1 = ?, DATASN1 = ?, DATAIC = ?, DATASC = ?",
      {from, to, from.addYears(1), to.addYears(1), from, to});
}

void setOptions(Database& company, const QVariantMap& options, const QString& user) {
  const QString method = options.value("method", "FIFO").toString();
  company.execute("UPDATE kt_info SET TCOST = ?, NrZec = ?",
                  {method.isEmpty() ? Value() : Value(method), options.value("decimals", 2).toInt()});
  if (options.contains("denumire"))
    company.execute("UPDATE kt_info SET DENUMIRE = ?", {options["denumire"].toString()});
  company.execute("UPDATE kt_par SET MODAUDIO = ?", {options.value("hearing", false).toBool()});
  setPeriods(company, options);
  const int type = options.value("type", 0).toInt();
  if (company.execute("UPDATE UTILIZATORI SET TIP = ? WHERE NUME = ?", {type, user}) == 0)
    company.execute("INSERT INTO UTILIZATORI (NUME, PAROLA, TIP) VALUES (?, ?, ?)", {user, user, type});
}

void requireKnown(const QVariantMap& options) {
  static const QStringList known = {"method", "decimals", "denumire", "from",
                                    "to",     "hearing",  "user",     "type"};
  for (const QString& name : options.keys())
    if (!known.contains(name)) throw Failure(QStringLiteral("company() has no option %1").arg(name));
}

// Whether a statement returns rows, according to its first word or RETURNING.
bool givesRows(const QString& text) {
  const QString upper = text.trimmed().toUpper();
  for (const char* word : {"SELECT", "WITH", "VALUES", "PRAGMA"})
    if (upper.startsWith(QString::fromLatin1(word)))
      return !upper.startsWith(QStringLiteral("WITH")) || !upper.contains(QStringLiteral("INSERT INTO"));
  return upper.contains(QStringLiteral(" RETURNING "));
}

QVariant plainCell(const QVariant& cell) {
  if (cell.isNull()) return QVariant::fromValue(nullptr);
  switch (cell.typeId()) {
    case QMetaType::QDate:
      return cell.toDate().toString(Qt::ISODate);
    case QMetaType::QDateTime:
      return cell.toDateTime().toString(Qt::ISODate);
    case QMetaType::Bool:
      return cell.toBool() ? -1 : 0;
    default:
      return cell;
  }
}

QVariant runSql(const QString& text, const QVariantList& arguments) {
  if (!openDatabase()) throw Failure(QStringLiteral("no company is open"));
  Values values;
  for (const QVariant& argument : arguments) values.push_back(Value::raw(databaseValue(argument)));
  if (!givesRows(text)) {
    database().execute(text, values);
    return QVariantList();
  }
  const Recordset found = database().query(text, values);
  QVariantList rows;
  for (const Row& row : found) {
    QVariantMap cells;
    for (int i = 0; i < found.columns().size(); ++i)
      cells[found.columns()[i].toUpper()] = plainCell(row.at(i));
    rows.append(cells);
  }
  return rows;
}

// Runs the script of the tests' server, which no other scenario may use.
QString serverScript(const QStringList& words) {
  const QString script = qEnvironmentVariable("VELMAR_TEST_SERVER_SCRIPT");
  if (script.isEmpty()) throw Failure(QStringLiteral("this scenario has no server of its own"));
  QStringList arguments = words;
  arguments.insert(1, qEnvironmentVariable("VELMAR_TEST_SERVER"));
  QProcess process;
  process.setStandardErrorFile(QProcess::nullDevice());
  process.start(script, arguments);
  if (!process.waitForFinished() || process.exitCode() != 0)
    throw Failure(QStringLiteral("the server did not %1").arg(words.first()));
  return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

}  // namespace

Companies::Companies(Folders& folders, Answers& answers)
    : folders_(folders), answers_(answers), boxes_(std::make_unique<WindowMessages>()) {
  applyLook(*qApp);
  settings::setFolder(folders.settings());
  settings::setDriveFolder(folders.drive());
  // Settings as left by a user who has maximized the main window.
  const QRect screen = QApplication::primaryScreen()->availableGeometry();
  settings::setMainWindowPlace(
      {0, 0, screen.width() * settings::kTwipsPerPixel, screen.height() * settings::kTwipsPerPixel});
  setMessageSink(boxes_.get());
  setRegisterWait(&registerWait_);
  answers.listen();
}

Companies::~Companies() = default;

// A databases folder as at the first start of the program: with the template only.
QString Companies::freshFolder() {
  if (!startUp_) begin();
  QString folder = folders_.nextDatabases();
  nameTestServer(folder);
  if (serverOf(folder)) return folder;
  if (!QFile::copy(pathInFolder(folders_.app(), kTemplateName), QDir(folder).filePath(kTemplateName)))
    throw Failure(QStringLiteral("the template cannot be copied to %1").arg(folder));
  return folder;
}

// Closes all modal windows, innermost first; returns whether the start-up has ended.
bool Companies::closeAll() {
  answers_.setSilent(true);
  while (QWidget* modal = QApplication::activeModalWidget()) modal->hide();
  return !starting_;
}

void Companies::begin() {
  startUp_.reset();
  const QWidgetList rest = QApplication::topLevelWidgets();
  for (QWidget* window : rest)
    if (window->isVisible()) window->close();
  session() = Session();
  answers_.setSilent(false);
  startUp_ = std::make_unique<StartUp>(folders_.app());
}

QString Companies::company(const QVariantMap& options) {
  requireKnown(options);
  begin();
  QString folder = freshFolder();
  IncarcaSocietati(folder, session().gDenSocietateNoua);
  const QString user = options.value("user", "admin").toString();
  QString password;
  {
    const auto file = Database::open(pathInFolder(folder, kFirstCompanyName));
    setOptions(*file, options, user);
    password = file->query("SELECT PAROLA FROM UTILIZATORI WHERE NUME = ?", {user}).first().text("PAROLA");
  }
  if (options.contains("denumire"))
    changeCompanyList(folder, [&options](QList<Company>& companies) {
      companies.first().DENUMIRE = options["denumire"].toString();
    });
  const Company first = readCompanyList(folder).first();
  settings::setDatabasesPath(folder);
  if (!startUp_->openCompany(folder, first.NUMEBD, first.DENUMIRE, user, password))
    throw Failure(QStringLiteral("the company could not be opened"));
  const Recordset warehouses = workingWarehouses();
  startUp_->chooseWarehouse(kWarehouse, warehouses.first().text("DENUMIRE"));
  startUp_->DeschideFereastraPrincipala();
  return folder;
}

void Companies::start(const QString& folder) {
  begin();
  settings::setDatabasesPath(folder);
  starting_ = true;
  startUp_->run();
  starting_ = false;
}

QVariantMap Companies::paths() {
  QString databases = session().gCaleBD;
  if (databases.isEmpty()) {
    if (firstFolder_.isEmpty()) firstFolder_ = freshFolder();
    databases = firstFolder_;
  }
  return {{"app", folders_.app()},
          {"databases", databases},
          {"drive", folders_.drive()},
          {"out", folders_.out()}};
}

void Companies::addFunctions(Functions& functions) {
  functions["closeAll"] = [this](const Arguments&) { return closeAll(); };
  functions["company"] = [this](const Arguments& a) { return company(a.value(0).toMap()); };
  functions["start"] = [this](const Arguments& a) {
    start(a.value(0).toString());
    return QVariant();
  };
  functions["paths"] = [this](const Arguments&) { return paths(); };
  functions["sql"] = [](const Arguments& a) { return runSql(a[0].toString(), a[1].toList()); };
  functions["server"] = [](const Arguments& a) { return serverScript(a[0].toStringList()); };
  functions["today"] = [](const Arguments&) { return clock::today().toString(Qt::ISODate); };
  functions["setToday"] = [](const Arguments& a) {
    clock::setToday(isoDate(a[0]));
    return QVariant();
  };
}

}  // namespace velmar::scenario
