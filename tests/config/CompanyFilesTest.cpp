#include "config/CompanyFiles.h"

#include <gtest/gtest.h>
#include <QDir>

#include "store/Roster.h"
#include "TestCompany.h"
#include "util/Errors.h"

namespace velmar {

namespace {

class CompanyFilesTest : public testing::Test {
 protected:
  CompanyFilesTest() {
    nameTestServer(folder());
    bringTemplateUpToDate(folder());
    IncarcaSocietati(folder(), waiting_);
  }

  QString folder() const { return place_.path(); }

  QString create(const QString& code, const QString& name) {
    try {
      createCompany(folder(), code, name, waiting_);
    } catch (const RuleError& error) {
      return error.field() + ": " + error.text();
    }
    return {};
  }

  QString removal(const Company& company) const {
    try {
      removeCompany(folder(), company);
    } catch (const RuleError& error) {
      return error.text();
    }
    return {};
  }

  QStringList codes() const {
    QStringList found;
    for (const Company& company : readCompanyList(folder())) found << company.COD;
    return found;
  }

  Company company(const QString& code) const {
    for (const Company& each : readCompanyList(folder()))
      if (each.COD == code) return each;
    return {};
  }

  QTemporaryDir place_;
  QString waiting_ = "00";
};

/// Cases that exist only for a company in a file.
class CompanyInFileTest : public CompanyFilesTest {};

TEST_F(CompanyFilesTest, ANewCompanyHasItsFileItsNameAndItsRow) {
  ASSERT_EQ(create(" ab ", "  ALFA & 'FIII' SRL "), "");
  EXPECT_EQ(codes(), QStringList({"01", "AB"}));
  EXPECT_EQ(company("AB").DENUMIRE, "ALFA & 'FIII' SRL");
  EXPECT_EQ(company("AB").NUMEBD, "TarvonAB.mdb");
  const auto file = Database::open(folder() + "/TarvonAB.mdb");
  const Recordset info = file->query("SELECT DENUMIRE, VERSIUNE FROM kt_info");
  EXPECT_EQ(info.first().text("DENUMIRE"), "ALFA & 'FIII' SRL");
  EXPECT_EQ(info.first().integer("VERSIUNE"), programRevision());
  EXPECT_EQ(waiting_, "00");
}

TEST_F(CompanyFilesTest, RefusalsAreOrdered) {
  EXPECT_EQ(create(" ", ""), "COD: Va rugam completati codul societatii  !");
  EXPECT_EQ(create("A+", " "), "DENUMIRE: Va rugam completati denumirea societatii  !");
  EXPECT_EQ(create("A+", "ALFA"), "COD: Codul societatii poate contine numai litere si cifre !");
  EXPECT_EQ(create("..", "ALFA"), "COD: Codul societatii poate contine numai litere si cifre !");
  EXPECT_EQ(create("\u0218A", "ALFA"), "COD: Codul societatii poate contine numai litere si cifre !");
  EXPECT_EQ(create("02", QString(51, 'x')),
            "DENUMIRE: Denumirea societatii poate avea cel mult 50 de caractere !");
  ASSERT_EQ(create("a1", "ALFA"), "");
  EXPECT_EQ(create("A1", "BETA"), ": Acest cod de societate exista deja ! Adaugarea nu se poate efectua !");
  EXPECT_EQ(codes(), QStringList({"01", "A1"}));
}

TEST_F(CompanyInFileTest, AnExistingFileIsNotOverwritten) {
  QFile file(folder() + "/tarvon02.MDB");
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("books of another company");
  file.close();
  EXPECT_EQ(create("02", "BETA"),
            "COD: Fisierul Tarvon02.mdb exista deja in folderul bazelor de date ! Adaugarea nu se poate "
            "efectua !");
  EXPECT_EQ(file.size(), 24);
  EXPECT_EQ(codes(), QStringList({"01"}));
}

TEST_F(CompanyFilesTest, AListThatCannotBeReadLeavesNoFile) {
  QFile::remove(folder() + "/Societat.xml");
  QDir(folder()).mkdir("Societat.xml");
  EXPECT_THROW(create("02", "BETA"), StoreError);
  EXPECT_FALSE(databaseExists(folder(), "Tarvon02.mdb"));
  EXPECT_EQ(waiting_, "00");
}

TEST_F(CompanyInFileTest, ADamagedTemplateLeavesNothing) {
  QFile file(folder() + "/Tarvon.mdb");
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.close();
  EXPECT_THROW(create("02", "BETA"), StoreError);
  EXPECT_FALSE(databaseExists(folder(), "Tarvon02.mdb"));
  EXPECT_EQ(codes(), QStringList({"01"}));
  EXPECT_EQ(waiting_, "00");
}

TEST_F(CompanyFilesTest, ACompanyIsDeletedWithItsFile) {
  create("02", "BETA");
  const Company beta = company("02");
  EXPECT_EQ(removalQuestion(beta),
            "Sunteti sigur ca doriti sa stergeti societatea : 02 - BETA si baza de date aferenta ?");
  EXPECT_EQ(removal(beta), "");
  EXPECT_FALSE(databaseExists(folder(), "Tarvon02.mdb"));
  EXPECT_EQ(codes(), QStringList({"01"}));
  EXPECT_EQ(create("02", "BETA DOI"), "");
}

TEST_F(CompanyFilesTest, TheFirstTheOpenAndAUsedCompanyCannotBeDeleted) {
  create("02", "BETA");
  EXPECT_EQ(removal(company("01")), "Societatea cu codul 01 nu se poate sterge !");
  setOpenDatabase(Database::open(folder() + "/Tarvon02.mdb"));
  EXPECT_EQ(removal(company("02")), "Societatea deschisa nu se poate sterge !");
  setOpenDatabase(nullptr);
  {
    const auto link = Database::open(folder() + "/Tarvon02.mdb");
    const RosterEntry otherUser(folder() + "/Tarvon02.mdb", "ION");
    EXPECT_EQ(removal(company("02")), "Societatea este deschisa de alt utilizator si nu se poate sterge !");
  }
  EXPECT_EQ(codes(), QStringList({"01", "02"}));
  EXPECT_TRUE(databaseExists(folder(), "Tarvon02.mdb"));
}

TEST_F(CompanyInFileTest, EntriesOfOtherComputersAreForgottenWhenAnAdministratorSaysSo) {
  create("02", "BETA");
  const QString path = folder() + "/Tarvon02.mdb";
  for (const char* content : {"77\nvelmar\nalt-calculator\n\n\n", "zgomot"}) {
    QFile entry(path + "-conexiune-77-ION");
    ASSERT_TRUE(entry.open(QIODevice::WriteOnly));
    entry.write(content);
    entry.close();
    MessageRecorder messages;
    messages.answer(kResultNo);
    offerToForget(path);
    EXPECT_TRUE(messages.take().value(0).contains("- ION, din "));
    EXPECT_NE(removal(company("02")), "");
    session().gTipUtilizator = 1;
    offerToForget(path);
    EXPECT_TRUE(messages.take().isEmpty());
    session().gTipUtilizator = 0;
    messages.answer(kResultYes);
    offerToForget(path);
    EXPECT_TRUE(connections(path).isEmpty());
  }
  QFile unwritten(path + "-conexiune-78-DAN");  // its process was killed before it wrote the entry
  ASSERT_TRUE(unwritten.open(QIODevice::WriteOnly));
  EXPECT_EQ(connections(path).size(), 1);
  ASSERT_TRUE(
      unwritten.setFileTime(QDateTime::currentDateTime().addSecs(-5), QFileDevice::FileModificationTime));
  EXPECT_TRUE(connections(path).isEmpty());
  const RosterEntry own(path, "ANA");  // alive, on this computer
  forgetUncertain(path);
  EXPECT_EQ(connections(path).size(), 1);
}

}  // namespace

}  // namespace velmar
