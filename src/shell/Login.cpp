#include "shell/Login.h"

#include <QDir>
#include <QFileInfo>

#include "config/Session.h"
#include "shell/SampleCompany.h"
#include "store/Database.h"
#include "store/DatabaseFiles.h"
#include "store/Engine.h"
#include "store/Server.h"
#include "store/Upkeep.h"
#include "store/Workshop.h"
#include "util/Clock.h"
#include "util/Errors.h"
#include "util/FileNames.h"
#include "util/Messages.h"
#include "util/NumberText.h"
#include "util/Settings.h"

namespace velmar {

namespace {

void requireUser(const QString& user, const QString& password) {
  if (OpenRs("SELECT NUME FROM UTILIZATORI WHERE NUME = ?", {user}).isEmpty())
    throw RuleError(QStringLiteral("Utilizatorul %1 nu exista !").arg(user), QStringLiteral("NUME"),
                    kCritical);
  const Recordset found =
      OpenRs("SELECT TIP FROM UTILIZATORI WHERE NUME = ? AND PAROLA = ?", {user, password});
  if (found.isEmpty())
    throw RuleError(QStringLiteral("Parola nu este corecta !"), QStringLiteral("PAROLA"), kCritical);
  session().gTipUtilizator = static_cast<int>(found.first().integer("TIP"));
  session().gUtilizator = user.trimmed().toUpper();
  settings::setUser(session().gUtilizator);
}

// Removes what killed processes have left; a failure must not prevent the login.
void sweep(const QString& folder) {
  sweepListDrafts(folder);
  sweepWorkshops(folder, kSamplePrefix);
  sweepWorkshops(QDir(folder).filePath(kBackupFolderName), kSavePrefix);
  try {
    sweepDrafts(folder);
  } catch (const StoreError&) {
    // Left for the next time.
  }
}

// Without statistics the company is only slower.
void refreshStatistics() {
  try {
    database().engine().requireInPlace();
    database().engine().refreshStatistics();
  } catch (const StoreError&) {
    // Another workstation is writing, or the file is gone.
  }
}

}  // namespace

bool Login::load() {
  const QString stored = settings::databasesPath();
  if (!stored.isEmpty()) {
    useFolder(stored);
    return true;
  }
  const QString own = session().gCaleAplicatie;
  if (!databaseExists(own, kTemplateName)) return false;
  useFolder(own);
  settings::setDatabasesPath(own);
  return true;
}

bool Login::chooseFile(const QString& file, const QString& currentNUMEBD) {
  const QFileInfo chosen(file);
  const QString title = chosen.fileName().trimmed().toUpper();
  if (title != currentNUMEBD.toUpper() && title != kTemplateName.toUpper() && title != kServerFile.toUpper())
    return false;
  useFolder(chosen.absolutePath());
  settings::setDatabasesPath(session().gCaleBD);
  return true;
}

void Login::useFolder(const QString& folder) {
  companies_ = IncarcaSocietati(folder, session().gDenSocietateNoua);
  session().gCaleBD = QDir::cleanPath(folder);
  sweep(session().gCaleBD);
}

void Login::enter(const QString& numeBD, const QString& denumire, const QString& user,
                  const QString& password, bool forceUpdate) const {
  if (numeBD.isEmpty()) throw RuleError(QStringLiteral("Va rugam selectati o societate !"), {}, kCritical);
  Session& s = session();
  leaveCompany();
  try {
    const QString path = pathInFolder(s.gCaleBD, numeBD);
    setOpenDatabase(Database::open(path));
    s.gNumeBD = numeBD;
    s.gDenSocietate = denumire;
    s.gConexiune = path;
    if (verificaVersiune_) verificaVersiune_(forceUpdate);
    requireUser(user, password);
    s.roster = std::make_unique<RosterEntry>(path, s.gUtilizator);
    s.fileCheck = std::make_unique<FileCheck>(path);
    InitParaSoc();
  } catch (...) {
    leaveCompany();
    throw;
  }
}

QString clockWarning() {
  const QDate last = OpenRs("SELECT MAX(DATADOC) AS DATADOC FROM G_DOCUME").first().date("DATADOC");
  if (!last.isValid() || clock::today() >= last) return {};
  return QStringLiteral("Data calculatorului (%1) este inaintea ultimului document (%2) ! Verificati data.")
      .arg(formatDate(clock::today()), formatDate(last));
}

void leaveCompany() {
  if (session().roster) refreshStatistics();  // not after a refused login
  session().fileCheck.reset();
  session().roster.reset();
  setOpenDatabase(nullptr);
  session().gConexiune.clear();
}

}  // namespace velmar
