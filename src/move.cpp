// velmar_move: copies a company from one databases folder to another, from files to a server or back, and
// verifies the copy. Without arguments it prints its usage.
#include <cstdio>
#include <QCoreApplication>
#include <QTextStream>

#include "config/CompanyFiles.h"
#include "store/Database.h"
#include "store/DatabaseFiles.h"
#include "util/Errors.h"
#include "util/FileNames.h"

namespace {

using namespace velmar;

void print(const QString& line) {
  std::printf("%s\n", qUtf8Printable(line));
  std::fflush(stdout);
}

int usage() {
  print(QStringLiteral(
      "Folosire: velmar_move FOLDER COD FOLDER_NOU\n"
      "Copiaza societatea cu codul COD dintr-un folder de baze de date in altul. Un folder cu\n"
      "fisierul Server.ini (host, port, user, tls, prefix) tine de un server PostgreSQL."));
  return 2;
}

Company companyOf(const QString& folder, const QString& code) {
  for (const Company& company : readCompanyList(folder))
    if (company.COD.compare(code, Qt::CaseInsensitive) == 0) return company;
  throw RuleError(QStringLiteral("In folderul %1 nu exista societatea %2.").arg(folder, code));
}

void showProof(const QString& path) {
  for (const TableProof& proof : proofOf(*Database::open(path))) {
    if (proof.rows == 0) continue;
    QStringList sums;
    for (const Decimal& sum : proof.sums) sums.append(sum.toString());
    print(QStringLiteral("%1 %2 randuri; sume: %3")
              .arg(proof.table.leftJustified(32), QString::number(proof.rows).rightJustified(9),
                   sums.join(QStringLiteral(" "))));
  }
}

void move(const QString& folder, const QString& code, const QString& other) {
  const Company company = companyOf(folder, code);
  copyCompany(folder, company, other, [](int done, int of) {
    std::fprintf(stderr, "\r%d din %d tabele", done, of);
    if (done == of) std::fprintf(stderr, "\n");
  });
  showProof(pathInFolder(other, companyFileName(company.COD)));
  print(QStringLiteral("Societatea %1 - %2 a fost copiata in %3; randurile si sumele sunt aceleasi.")
            .arg(company.COD, company.DENUMIRE, other));
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  if (arguments.size() != 4) return usage();
  try {
    move(arguments[1], arguments[2], arguments[3]);
    return 0;
  } catch (const Error& error) {
    print(error.text());
    return 1;
  }
}
