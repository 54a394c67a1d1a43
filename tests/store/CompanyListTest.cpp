// The list of companies in all forms of persisted rowsets and of the older table, and the roster.
#include "store/CompanyList.h"

#include <sys/wait.h>
#include <unistd.h>
#include <csignal>
#include <QDir>
#include <QFile>

#include "store/Roster.h"
#include "TestCompany.h"
#include "util/Errors.h"

namespace velmar {
namespace {

const char* const kHead =
    "<x xmlns:a='uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882' xmlns:b='urn:schemas-microsoft-com:rowset' "
    "xmlns:c='#RowsetSchema'><a:Schema id='RowsetSchema'><a:ElementType name='row'>"
    "<a:AttributeType name='c1' b:name='COD'/><a:AttributeType name='DENUMIRE'/><a:AttributeType "
    "name='NUMEBD'/>"
    "</a:ElementType></a:Schema><b:data>";

QString summary(const QList<Company>& companies) {
  QStringList parts;
  for (const Company& company : companies)
    parts.append(company.COD + "/" + company.DENUMIRE + "/" + company.NUMEBD);
  return parts.join(";");
}

void write(const QString& path, const QByteArray& content) {
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(content);
}

QByteArray dbf() {
  const auto field = [](const QByteArray& name, char width) {
    QByteArray bytes = name.leftJustified(11, '\0') + "C" + QByteArray(4, '\0');
    bytes += width;
    return bytes.leftJustified(32, '\0');
  };
  const QByteArray fields = field("COD", 2) + field("DENUMIRE", 10) + field("NUMEBD", 15);
  QByteArray head(32, '\0');
  head[0] = 3;
  head[4] = 3;
  head[8] = static_cast<char>(32 + fields.size() + 1);
  head[10] = 28;
  return head + fields + "\r" + " 01PRIMA     Tarvon01.mdb   " + "*02STEARSA   Tarvon02.mdb   " +
         " a3A TREIA   TarvonA3.mdb   ";
}

TEST(CompanyListTest, ReadsAnyValidRowset) {
  EXPECT_EQ(summary(companiesFromRowset(
                QByteArray(kHead) + "<c:row c1='01' DENUMIRE='A &amp; B' NUMEBD='T1.mdb'/>"
                                    "<b:insert><c:row c1='03' DENUMIRE='NOUA' NUMEBD='T3.mdb'/></b:insert>"
                                    "<b:update><b:original><c:row c1='02' DENUMIRE='VECHE' NUMEBD='T2.mdb'/>"
                                    "</b:original><c:row DENUMIRE='ALTA'/></b:update>"
                                    "<b:delete><c:row c1='04' DENUMIRE='X' NUMEBD='T4.mdb'/></b:delete>"
                                    "</b:data></x>")),
            "01/A & B/T1.mdb;03/NOUA/T3.mdb;02/ALTA/T2.mdb");
  EXPECT_THROW(companiesFromRowset("<x/>"), StoreError);
  EXPECT_THROW(companiesFromRowset(QByteArray(kHead) + "<c:row c1='01'"), StoreError);
  const QList<Company> companies = {{"01", "Un \"nume\" <ciudat> & 'lung'", "Tarvon01.mdb"}};
  EXPECT_EQ(summary(companiesFromRowset(rowsetFromCompanies(companies))), summary(companies));
}

TEST(CompanyListTest, AFolderGetsItsListOnlyOnce) {
  const QTemporaryDir fresh;
  EXPECT_EQ(summary(readCompanyList(fresh.path())), "01/SOCIETATE/Tarvon01.mdb");
  EXPECT_TRUE(QFile::exists(fresh.filePath("Societat.xml")));

  const QTemporaryDir old;
  write(old.filePath("SOCIETAT.dbf"), dbf());
  EXPECT_EQ(summary(readCompanyList(old.path())), "01/PRIMA/Tarvon01.mdb;A3/A TREIA/TarvonA3.mdb");
  write(old.filePath("SOCIETAT.dbf"), "stricat");
  EXPECT_EQ(readCompanyList(old.path()).size(), 2);  // the older list is no longer looked at
  EXPECT_THROW(companiesFromDbf("stricat"), StoreError);
  EXPECT_THROW(companiesFromDbf(QByteArray(600, 'x')), StoreError);
  EXPECT_THROW(companiesFromDbf(dbf().chopped(30)), StoreError);

  EXPECT_THROW(changeCompanyList(old.path(),
                                 [](QList<Company>& all) {
                                   all.clear();
                                   throw RuleError("nu");
                                 }),
               RuleError);
  EXPECT_EQ(readCompanyList(old.path()).size(), 2);
  changeCompanyList(old.path(), [](QList<Company>& all) { all.append({"02", "DOI", "Tarvon02.mdb"}); });
  EXPECT_EQ(summary(readCompanyList(old.path())),
            "01/PRIMA/Tarvon01.mdb;02/DOI/Tarvon02.mdb;A3/A TREIA/TarvonA3.mdb");
  EXPECT_FALSE(QDir(old.path()).entryList().contains("Societat.xml.lock"));
}

TEST(CompanyListTest, AProcessThatDiedLeavesTheRoster) {
  const QTemporaryDir dir;
  const QString file = dir.filePath("Tarvon01.mdb");
  const RosterEntry mine(file, "ADMIN");
  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  const pid_t other = fork();
  if (other == 0) {
    const RosterEntry theirs(file, QStringLiteral("CASA/2"));
    [[maybe_unused]] const auto written = ::write(ready[1], "x", 1);
    pause();
    _exit(0);
  }
  char signal = 0;
  ASSERT_EQ(read(ready[0], &signal, 1), 1);
  const QList<Connection> both = connections(file);
  ASSERT_EQ(both.size(), 2);
  EXPECT_EQ(both[0].login, "ADMIN");
  EXPECT_EQ(both[1].login, "CASA/2");
  EXPECT_FALSE(both[1].computer.isEmpty());
  kill(other, SIGKILL);
  waitpid(other, nullptr, 0);
  EXPECT_EQ(connections(file).size(), 1);
  EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files).size(), 1);
}

}  // namespace
}  // namespace velmar
