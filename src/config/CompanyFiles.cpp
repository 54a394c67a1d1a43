#include "config/CompanyFiles.h"

#include <algorithm>
#include <functional>
#include <QFile>
#include <QFileInfo>

#include "config/Session.h"
#include "store/Database.h"
#include "store/DatabaseFiles.h"
#include "store/Roster.h"
#include "util/Errors.h"
#include "util/FileNames.h"
#include "util/Messages.h"
#include "util/PlainText.h"

namespace velmar {

namespace {

constexpr int kCodeLength = 2;
constexpr int kNameLength = 50;

bool isCode(const QString& code) {
  return code.size() <= kCodeLength && std::all_of(code.begin(), code.end(), [](QChar c) {
           return (c >= QLatin1Char('A') && c <= QLatin1Char('Z')) ||
                  (c >= QLatin1Char('0') && c <= QLatin1Char('9'));
         });
}

void requireGoodText(const QString& code, const QString& name) {
  if (code.isEmpty())
    throw RuleError(QStringLiteral("Va rugam completati codul societatii  !"), QStringLiteral("COD"));
  if (name.isEmpty())
    throw RuleError(QStringLiteral("Va rugam completati denumirea societatii  !"),
                    QStringLiteral("DENUMIRE"));
  if (const QString objection = hiddenObjection(name); !objection.isEmpty())
    throw RuleError(objection, QStringLiteral("DENUMIRE"));
  if (!isCode(code))
    throw RuleError(QStringLiteral("Codul societatii poate contine numai litere si cifre !"),
                    QStringLiteral("COD"));
  if (name.size() > kNameLength)
    throw RuleError(
        QStringLiteral("Denumirea societatii poate avea cel mult %1 de caractere !").arg(kNameLength),
        QStringLiteral("DENUMIRE"));
}

void requireFreeCode(const QList<Company>& companies, const QString& code) {
  const bool taken = std::any_of(companies.begin(), companies.end(), [&code](const Company& company) {
    return company.COD.compare(code, Qt::CaseInsensitive) == 0;
  });
  if (taken)
    throw RuleError(QStringLiteral("Acest cod de societate exista deja ! Adaugarea nu se poate efectua !"));
}

void requireFree(const QString& folder, const QList<Company>& companies, const QString& code) {
  requireFreeCode(companies, code);
  const QString file = companyFileName(code);
  if (databaseExists(folder, file))
    throw RuleError(QStringLiteral("Fisierul %1 exista deja in folderul bazelor de date ! Adaugarea nu se "
                                   "poate efectua !")
                        .arg(file),
                    QStringLiteral("COD"));
}

void makeFile(const QString& folder, const QString& fileName, const QString& name,
              QString& gDenSocietateNoua) {
  gDenSocietateNoua = name;
  try {
    makeCompanyFile(folder, fileName);
    MarcheazaVersiune(folder, fileName, gDenSocietateNoua);
  } catch (...) {
    gDenSocietateNoua = QStringLiteral("00");
    throw;
  }
}

// The company's name as its database has it; "" when that cannot be read.
QString nameIn(const QString& path) {
  try {
    const Recordset info = Database::open(path)->query("SELECT DENUMIRE FROM kt_info");
    return info.isEmpty() ? QString() : info.first().text("DENUMIRE");
  } catch (const StoreError&) {
    return {};
  }
}

void removeFileAfterFailure(const QString& folder, const QString& fileName) {
  try {
    removeDatabaseFile(folder, fileName);
  } catch (const StoreError&) {
    // The original failure is the one to report.
  }
}

bool isOpen(const QString& path) {
  if (!openDatabase()) return false;
  const QFileInfo open(openDatabase()->path());
  const QFileInfo asked(path);
  // A database on a server is not a file.
  return open.exists() ? open == asked : open.absoluteFilePath() == asked.absoluteFilePath();
}

// Adds the company to the list and calls `bring` to put its file into the folder; when the list cannot be
// written, `undo` removes the file again.
void enlist(const QString& folder, const Company& company, const std::function<void()>& bring,
            const std::function<void()>& undo) {
  requireGoodText(company.COD, company.DENUMIRE);
  bool fileIsOurs = false;
  try {
    changeCompanyList(folder, [&](QList<Company>& companies) {
      requireFree(folder, companies, company.COD);
      fileIsOurs = true;
      bring();
      companies.append(company);
    });
  } catch (...) {
    if (fileIsOurs) undo();
    throw;
  }
}

Company companyFrom(const QString& code, const QString& name) {
  const QString upperCode = code.trimmed().toUpper();
  return {upperCode, name.trimmed(), companyFileName(upperCode)};
}

}  // namespace

void createCompany(const QString& folder, const QString& code, const QString& name,
                   QString& gDenSocietateNoua) {
  const Company company = companyFrom(code, name);
  enlist(
      folder, company, [&] { makeFile(folder, company.NUMEBD, company.DENUMIRE, gDenSocietateNoua); },
      [&] { removeFileAfterFailure(folder, company.NUMEBD); });
}

void adoptCompany(const QString& folder, const QString& code, const QString& name, const QString& file) {
  const Company company = companyFrom(code, name);
  const QString path = pathInFolder(folder, company.NUMEBD);
  enlist(
      folder, company, [&] { moveDatabase(file, path); }, [&] { moveDatabase(path, file); });
}

void copyCompany(const QString& folder, const Company& company, const QString& other,
                 const CopyProgress& progress) {
  const Company copy = companyFrom(company.COD, company.DENUMIRE);
  enlist(
      other, copy,
      [&] { copyDatabase(pathInFolder(folder, company.NUMEBD), pathInFolder(other, copy.NUMEBD), progress); },
      [&] { removeFileAfterFailure(other, copy.NUMEBD); });
}

void offerToForget(const QString& databasePath) {
  QString entries;
  for (const Connection& each : connections(databasePath))
    if (each.isUncertain)
      entries += QStringLiteral("%1 - %2, din %3\r\n")
                     .arg(each.computer.isEmpty() ? QStringLiteral("calculator necunoscut") : each.computer,
                          each.login.isEmpty() ? QStringLiteral("utilizator necunoscut") : each.login,
                          each.since.toString(QStringLiteral("dd.MM.yyyy HH:mm")));
  if (entries.isEmpty() || session().gTipUtilizator != 0) return;
  const int answer =
      Mesaj(QStringLiteral("Societatea pare deschisa pe alte calculatoare :\r\n%1Daca programul nu mai "
                           "lucreaza acolo, inregistrarile pot fi sterse. Doriti sa le stergeti ?")
                .arg(entries),
            kYesNo + kExclamation + kSecondDefault);
  if (answer == kResultYes) forgetUncertain(databasePath);
}

QList<Company> unlistedCompanies(const QString& folder) {
  const QList<Company> listed = readCompanyList(folder);
  QList<Company> unlisted;
  for (const QString& name : companyDatabases(folder)) {
    const bool isListed = std::any_of(listed.begin(), listed.end(), [&name](const Company& each) {
      return each.NUMEBD.compare(name, Qt::CaseInsensitive) == 0;
    });
    if (isListed) continue;
    const QString code = name.mid(kCompanyPrefix.size()).chopped(kCompanySuffix.size());
    unlisted.append({code.toUpper(), nameIn(pathInFolder(folder, name)), name});
  }
  return unlisted;
}

void listCompany(const QString& folder, const Company& company) {
  changeCompanyList(folder, [&company](QList<Company>& companies) {
    requireFreeCode(companies, company.COD);
    companies.append(company);
  });
}

void removeUnlisted(const QString& folder, const Company& company) {
  changeCompanyList(folder, [&](QList<Company>& companies) {
    requireFreeCode(companies, company.COD);
    requireRemovable(folder, company);
    removeDatabaseFile(folder, company.NUMEBD);
  });
}

void requireRemovable(const QString& folder, const Company& company) {
  if (company.COD == QStringLiteral("01"))
    throw RuleError(QStringLiteral("Societatea cu codul 01 nu se poate sterge !"));
  const QString path = pathInFolder(folder, companyFileName(company.COD));
  if (isOpen(path) || isOpen(pathInFolder(folder, company.NUMEBD)))
    throw RuleError(QStringLiteral("Societatea deschisa nu se poate sterge !"));
  if (!connections(path).isEmpty() || !connections(pathInFolder(folder, company.NUMEBD)).isEmpty())
    throw RuleError(QStringLiteral("Societatea este deschisa de alt utilizator si nu se poate sterge !"));
}

QString removalQuestion(const Company& company) {
  return QStringLiteral("Sunteti sigur ca doriti sa stergeti societatea : %1 - %2 si baza de date aferenta ?")
      .arg(company.COD, company.DENUMIRE);
}

void removeCompany(const QString& folder, const Company& company) {
  changeCompanyList(folder, [&](QList<Company>& companies) {
    requireRemovable(folder, company);
    // The file first: if the list cannot be written, its row remains and the deletion can be repeated.
    removeDatabaseFile(folder, companyFileName(company.COD));
    companies.removeIf([&company](const Company& other) {
      return other.COD.compare(company.COD, Qt::CaseInsensitive) == 0;
    });
  });
}

Recordset companyRecordset(const QList<Company>& companies) {
  Recordset rows(std::make_shared<Columns>(
      QStringList{QStringLiteral("COD"), QStringLiteral("DENUMIRE"), QStringLiteral("NUMEBD")}));
  for (const Company& company : companies) rows.append({company.COD, company.DENUMIRE, company.NUMEBD});
  return rows;
}

}  // namespace velmar
