// A company copied to another engine and back is the same company; a copy that is not is no copy.
#include "store/CompanyCopy.h"

#include <gtest/gtest.h>

#include "store/Schema.h"
#include "TestCompany.h"
#include "util/Errors.h"

namespace velmar {
namespace {

class CompanyCopyTest : public testing::Test {
 protected:
  CompanyCopyTest() {
    ExecutaSql(
        "INSERT INTO G_ARTMAG (CODART, DENART, COST, PRETVFT, FARASTOC) VALUES (?, ?, ?, ?, ?)",
        {"A'1", QString::fromUtf8("Scaun \xC8\x99i \"mas\xC4\x83\"; --"), 1_dec / 3, 2675_dec / 1000, true});
    ExecutaSql(
        "INSERT INTO \"Articole - Discounturi\" (CODArticol, CantMin, CantMax, Discount) VALUES ('A''1', 1, "
        "9, 2.5)");
    ExecutaSql("INSERT INTO G_LDOCUM (DOCID, LINIE, DATA, ARTID, CANT) VALUES ('BI1', 1, ?, 'A''1', 0.125)",
               {QDateTime(QDate(2026, 3, 15), QTime(10, 30, 15, 250))});
    ExecutaSql("INSERT INTO kt_val2 (COD, DATA, CURS) VALUES ('EUR', ?, 4.9765)", {QDate(2026, 3, 15)});
  }

  QString other(const QString& name) const { return QDir(elsewhere_.path()).filePath(name); }

  TestCompany company_;
  QTemporaryDir elsewhere_;  // a folder of files, whatever the company is on
};

TEST_F(CompanyCopyTest, TheCopyOfTheCopyIsTheOriginal) {
  const QList<TableProof> original = proofOf(database());
  copyDatabase(TestCompany::path(), other("Copie.mdb"));
  EXPECT_EQ(proofOf(*Database::open(other("Copie.mdb"))), original);
  const QString back = QDir(TestCompany::folder()).filePath("Tarvon09.mdb");
  copyDatabase(other("Copie.mdb"), back);
  {
    const auto copy = Database::open(back);
    EXPECT_EQ(proofOf(*copy), original);
    // Numbers that the engine gives go on behind the copied ones, and texts compare as they did.
    copy->execute("INSERT INTO \"Articole - Discounturi\" (CODArticol, CantMin) VALUES ('B', 1)");
    EXPECT_EQ(copy->query("SELECT COUNT(DISTINCT ID_Discount) AS N FROM \"Articole - Discounturi\"")
                  .first()
                  .integer("N"),
              2);
    EXPECT_EQ(copy->query("SELECT CODART FROM G_ARTMAG WHERE CODART = 'a''1'").size(), 1);
  }
  removeDatabaseFile(TestCompany::folder(), "Tarvon09.mdb");
}

TEST_F(CompanyCopyTest, AnyDifferenceShows) {
  const QList<TableProof> original = proofOf(database());
  ExecutaSql("UPDATE G_ARTMAG SET DENART = DENART || ' '");
  EXPECT_NE(proofOf(database()), original);
}

TEST_F(CompanyCopyTest, ACopyThatIsStoppedLeavesWhatStood) {
  copyDatabase(TestCompany::path(), other("Copie.mdb"));
  const QList<TableProof> stood = proofOf(*Database::open(other("Copie.mdb")));
  ExecutaSql("DELETE FROM kt_val");
  EXPECT_THROW(copyDatabase(TestCompany::path(), other("Copie.mdb"),
                            [](int done, int) {
                              if (done == 5) throw Cancelled();
                            }),
               Cancelled);
  EXPECT_EQ(proofOf(*Database::open(other("Copie.mdb"))), stood);
  EXPECT_EQ(QDir(elsewhere_.path()).entryList(QDir::Files), QStringList("Copie.mdb"));
}

TEST_F(CompanyCopyTest, WhatOthersWriteMeanwhileIsNotInTheCopy) {
  const QList<TableProof> original = proofOf(database());
  const auto colleague = Database::open(TestCompany::path());
  bool written = false;
  copyDatabase(TestCompany::path(), other("Copie.mdb"), [&](int, int) {
    if (std::exchange(written, true)) return;
    colleague->execute("INSERT INTO kt_linii (NDI, NRLINIE, CONT, DEBIT) VALUES (1, 1, '4111', 5)");
  });
  EXPECT_EQ(proofOf(*Database::open(other("Copie.mdb"))), original);
}

}  // namespace
}  // namespace velmar
