#include "store/DatabaseFiles.h"

#include <QDir>
#include <QFile>

#include "store/Database.h"
#include "store/Schema.h"
#include "store/Sqlite.h"
#include "store/TemplateData.h"
#include "util/Clock.h"
#include "util/Errors.h"

namespace velmar {

namespace {

constexpr int kFileExists = 58;
constexpr int kFileFailure = 75;

void removeWithSideFiles(const QString& path) {
  if (QFile::exists(path) && !QFile::remove(path))
    throw StoreError(
        kFileFailure,
        QStringLiteral("Fisierul %1 nu poate fi sters. Verificati drepturile asupra lui.").arg(path));
  for (const QString& side : sqlite::sideFiles(path)) QFile::remove(side);
}

// A file of its own name until it is whole, so that nobody ever sees half a database.
template <typename Fill>
void writeWhole(const QString& path, Fill&& fill) {
  const QString draft = path + QStringLiteral(".nou");
  removeWithSideFiles(draft);
  try {
    fill(draft);
    removeWithSideFiles(path);
    if (!QFile::rename(draft, path))
      throw StoreError(
          kFileFailure,
          QStringLiteral("Fisierul %1 nu poate fi scris. Verificati drepturile asupra lui.").arg(path));
  } catch (...) {
    QFile::remove(draft);
    for (const QString& side : sqlite::sideFiles(draft)) QFile::remove(side);
    throw;
  }
}

void setPeriods(Database& database, int year) {
  const QDate start(year, 1, 1);
  const QDate end(year, 12, 31);
  database.execute(
      "UPDATE kt_par SET DATAIN = ?, DATASN = ?, DATAIN1 = ?, DATASN1 = ?, DATAIC = ?, DATASC = ?",
      {start, end, start.addYears(1), end.addYears(1), start, end});
}

}  // namespace

QString pathInFolder(const QString& folder, const QString& name) {
  const QDir dir(folder);
  if (dir.exists(name)) return dir.filePath(name);
  for (const QString& entry : dir.entryList(QDir::Files | QDir::Hidden))
    if (entry.compare(name, Qt::CaseInsensitive) == 0) return dir.filePath(entry);
  return dir.filePath(name);
}

bool existsInFolder(const QString& folder, const QString& name) {
  return QFile::exists(pathInFolder(folder, name));
}

QString companyFileName(const QString& code) { return QStringLiteral("Tarvon%1.mdb").arg(code.toUpper()); }

void writeTemplate(const QString& folder) {
  writeWhole(pathInFolder(folder, kTemplateName), [](const QString& draft) {
    const auto database = Database::create(draft);
    Transaction transaction(*database);
    createCompanyTables(*database);
    insertTemplateData(*database);
    database->execute("UPDATE kt_info SET VERSIUNE = ?", {programRevision()});
    transaction.commit();
  });
}

bool templateIsOutdated(const QString& folder) {
  if (!existsInFolder(folder, kTemplateName)) return true;
  const auto database = Database::open(pathInFolder(folder, kTemplateName));
  return database->query("SELECT VERSIUNE FROM kt_info").first().integer("VERSIUNE") != programRevision();
}

void makeCompanyFile(const QString& folder, const QString& fileName) {
  if (existsInFolder(folder, fileName))
    throw StoreError(kFileExists,
                     QStringLiteral("Fisierul %1 exista deja.").arg(pathInFolder(folder, fileName)));
  const QString source = pathInFolder(folder, kTemplateName);
  // Opening tells a template that is missing or damaged, and closing leaves nothing beside the file.
  Database::open(source);
  writeWhole(pathInFolder(folder, fileName), [&source](const QString& draft) {
    if (!QFile::copy(source, draft))
      throw StoreError(
          kFileFailure,
          QStringLiteral("Fisierul %1 nu poate fi scris. Verificati drepturile si spatiul liber.")
              .arg(draft));
    QFile::setPermissions(draft, QFile::permissions(draft) | QFile::WriteOwner);
    setPeriods(*Database::open(draft), clock::today().year());
  });
}

void MarcheazaVersiune(const QString& folder, const QString& fileName, QString& gDenSocietateNoua) {
  const auto database = Database::open(pathInFolder(folder, fileName));
  Transaction transaction(*database);
  if (gDenSocietateNoua != QStringLiteral("00"))
    database->execute("UPDATE kt_info SET DENUMIRE = ?", {gDenSocietateNoua});
  database->execute("UPDATE kt_info SET VERSIUNE = ?", {programRevision()});
  transaction.commit();
  gDenSocietateNoua = QStringLiteral("00");
}

void removeDatabaseFile(const QString& folder, const QString& fileName) {
  removeWithSideFiles(pathInFolder(folder, fileName));
}

int programRevision() { return VELMAR_REVISION; }

}  // namespace velmar
