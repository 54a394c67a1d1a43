// A company copied to another engine and back is the same company; a copy that is not is no copy.
#include "store/CompanyCopy.h"

#include <gtest/gtest.h>
#include <algorithm>

#include "store/Engine.h"
#include "store/Schema.h"
#include "store/Server.h"
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

  static void change(const QStringList& statements) {
    Transaction transaction(database());
    for (const QString& sql : statements) database().engine().run(sql);
    transaction.commit();
  }

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

// What a company has beside the description: its own tables, columns, keys, rules, indexes and stored
// queries.
TEST_F(CompanyCopyTest, WhatOnlyThisCompanyHasGoesAlong) {
  change(
      {"CREATE TABLE Ale_Mele (Nr INTEGER NOT NULL, Nota VARCHAR(30) DEFAULT 'fara', Suma DOUBLE PRECISION, "
       "Ziua "
       "DATE, PRIMARY KEY (Nr), UNIQUE (Nota), CHECK (Suma < 1000))",
       "CREATE UNIQUE INDEX ix_ziua ON Ale_Mele (Ziua)", "CREATE TABLE \"De mana\" (\"order\" INTEGER)",
       "ALTER TABLE kt_val ADD COLUMN Rang INTEGER NOT NULL DEFAULT 7",
       "CREATE VIEW q_mea AS SELECT COD, Rang FROM kt_val"});
  ExecutaSql("INSERT INTO Ale_Mele (Nr, Nota, Suma, Ziua) VALUES (3, 'unu', 0.1, '2026-03-15')");
  ExecutaSql("INSERT INTO Ale_Mele (Nr, Suma) VALUES (4, 0.2)");
  ExecutaSql("INSERT INTO \"De mana\" (\"order\") VALUES (12345)");
  ExecutaSql("UPDATE kt_val SET Rang = 11 WHERE COD = 'USD'");
  const QList<TableProof> original = proofOf(database());
  const auto own = std::find_if(original.begin(), original.end(),
                                [](const TableProof& proof) { return proof.table == "ale_mele"; });
  ASSERT_NE(own, original.end());
  EXPECT_EQ(own->rows, 2);
  EXPECT_EQ(own->sums, QList<Decimal>({Decimal(7), 3_dec / 10}));

  copyDatabase(TestCompany::path(), other("Copie.mdb"));
  EXPECT_EQ(proofOf(*Database::open(other("Copie.mdb"))), original);
  const QString back = QDir(TestCompany::folder()).filePath("Tarvon09.mdb");
  copyDatabase(other("Copie.mdb"), back);
  {
    const auto copy = Database::open(back);
    EXPECT_EQ(proofOf(*copy), original);
    EXPECT_EQ(copy->query("SELECT Rang FROM q_mea WHERE COD = 'USD'").first().integer("Rang"), 11);
    copy->execute("INSERT INTO kt_val (COD) VALUES ('QQQ')");
    EXPECT_EQ(copy->query("SELECT Rang FROM kt_val WHERE COD = 'QQQ'").first().integer("Rang"), 7);
    for (const char* values :
         {"(3, 'x', 1, NULL)", "(5, 'unu', 1, NULL)", "(6, 'y', 1000, NULL)", "(7, 'z', 1, '2026-03-15')"})
      EXPECT_THROW(
          copy->execute(QStringLiteral("INSERT INTO Ale_Mele (Nr, Nota, Suma, Ziua) VALUES ") + values),
          StoreError)
          << values;
  }
  removeDatabaseFile(TestCompany::folder(), "Tarvon09.mdb");
}

TEST_F(CompanyCopyTest, WhatNoCopyCanCarryIsNamedAndNothingIsCopied) {
  const auto refused = [this] {
    try {
      copyDatabase(TestCompany::path(), other("Copie.mdb"));
      return QString();
    } catch (const StoreError& error) {
      EXPECT_EQ(QDir(elsewhere_.path()).entryList(QDir::Files), QStringList());
      return error.text();
    }
  };
  const bool onServer = serverOf(TestCompany::folder()).has_value();
  change({onServer ? "CREATE TABLE poze (poza BYTEA)" : "CREATE TABLE poze (poza BLOB)"});
  EXPECT_TRUE(refused().startsWith("Societatea are coloana poze.poza de tipul ")) << qPrintable(refused());
  change(
      {"DROP TABLE poze", "CREATE TABLE calcul (a INTEGER, b INTEGER GENERATED ALWAYS AS (a + 1) STORED)"});
  EXPECT_EQ(refused(), "Societatea are calcul.b, care nu se poate copia. Nu s-a copiat nimic.");
  change({"DROP TABLE calcul"});
  if (!onServer) change({"CREATE TRIGGER t_mea AFTER DELETE ON kt_val BEGIN DELETE FROM kt_val2; END"});
  EXPECT_EQ(refused(),
            onServer ? QString()
                     : QStringLiteral("Societatea are trigger t_mea, care nu se poate copia. Nu s-a copiat "
                                      "nimic."));
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
