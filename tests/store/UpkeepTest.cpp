// A company saved while others work is a snapshot of one moment, and restoring brings back exactly that or
// changes nothing.
#include "store/Upkeep.h"

#include <gtest/gtest.h>
#include <algorithm>
#include <QFile>

#include "shell/Maintenance.h"
#include "TestCompany.h"
#include "util/Errors.h"

namespace velmar {
namespace {

class UpkeepTest : public testing::Test {
 protected:
  UpkeepTest() {
    session().gCaleAplicatie = elsewhere_.path();
    session().gDenSocietate = QStringLiteral("SOCIETATE");
    session().roster = std::make_unique<RosterEntry>(TestCompany::path(), session().gUtilizator);
    for (int i = 1; i <= 40; ++i)
      ExecutaSql("INSERT INTO G_ARTMAG (CODART, DENART, COST) VALUES (?, 'Scaun', ?)",
                 {QStringLiteral("A%1").arg(i), Decimal(i) / 3});
    ExecutaSql("UPDATE kt_info SET NrZec = 3");
  }

  ~UpkeepTest() override { QDir(backupFolder()).removeRecursively(); }

  QString other(const QString& name) const { return QDir(elsewhere_.path()).filePath(name); }
  QString saved() const {
    saveCompany(*Database::open(TestCompany::path()), other("Copie.mdb"));
    return other("Copie.mdb");
  }
  // The files of the databases folder, without those of a running program.
  static QStringList files() {
    QStringList names = QDir(TestCompany::folder()).entryList({"*.mdb", "*.nou*"}, QDir::Files);
    names.removeIf([](const QString& name) { return name.contains("-conexiune-"); });
    return names;
  }

  // Restoring the file is refused, and company and session are unchanged.
  static void expectRefused(const QString& file, const char* text) {
    const QList<TableProof> before = proofOf(database());
    const QStringList filesBefore = files();
    try {
      restoreOpenCompany(file);
      ADD_FAILURE() << "restored from " << qUtf8Printable(file);
    } catch (const Error& error) {
      EXPECT_TRUE(error.text().contains(QString::fromLatin1(text))) << qUtf8Printable(error.text());
    }
    ASSERT_TRUE(openDatabase());
    EXPECT_EQ(proofOf(database()), before);
    EXPECT_EQ(files(), filesBefore);
    EXPECT_TRUE(session().roster);
    ExecutaSql("UPDATE kt_info SET NrZec = NrZec");
  }

  TestCompany company_;
  QTemporaryDir elsewhere_;
};

TEST_F(UpkeepTest, NamesOfCopies) {
  const QDateTime moment(QDate(2026, 3, 5), QTime(14, 7, 59));
  EXPECT_EQ(savedCopyName("ALFA", "Tarvon01.mdb", moment), "ALFA_Tarvon01_05.03.2026_14.07.mdb");
  EXPECT_EQ(savedCopyName("A/B \"C\" si fiii", "TarvonB2.mdb", moment),
            "A_B _C_ si_TarvonB2_05.03.2026_14.07.mdb");
  EXPECT_EQ(savedCopyName("Tarvon01.mdb", moment), "Tarvon01_05.03.2026_14.07.mdb");
}

TEST_F(UpkeepTest, ACopyIsASnapshotInOneFileWhileAnotherUserWrites) {
  const QList<TableProof> original = proofOf(database());
  const auto otherUser = Database::open(TestCompany::path());
  Transaction unfinished(*otherUser);
  otherUser->execute("DELETE FROM G_ARTMAG");
  EXPECT_EQ(proofOf(*Database::open(saved())), original);
  unfinished.commit();
  EXPECT_EQ(QDir(elsewhere_.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
            QStringList("Copie.mdb"));
  // A later copy with the same name replaces it; one that is stopped does not.
  const QList<TableProof> later = proofOf(database());
  EXPECT_EQ(proofOf(*Database::open(saved())), later);
  ExecutaSql("DELETE FROM kt_val");
  EXPECT_THROW(saveCompany(*Database::open(TestCompany::path()), other("Copie.mdb"),
                           [](int, int) { throw Cancelled(); }),
               Cancelled);
  EXPECT_EQ(proofOf(*Database::open(other("Copie.mdb"))), later);
  EXPECT_THROW(saveCompany(*Database::open(TestCompany::path()), other("lipseste/Copie.mdb")), StoreError);
}

TEST_F(UpkeepTest, ALongCopyReportsProgressAndCanBeStoppedInFile) {
  ExecutaSql(
      "INSERT INTO G_ARTMAG (CODART) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i "
      "< "
      "20000) SELECT 'X' || i FROM n");
  std::vector<int> progress;
  saveCompany(*Database::open(TestCompany::path()), other("Copie.mdb"), [&progress](int done, int of) {
    EXPECT_EQ(of, 100);
    progress.push_back(done);
  });
  EXPECT_GT(progress.size(), 2U);
  EXPECT_TRUE(std::is_sorted(progress.begin(), progress.end()));
  EXPECT_EQ(progress.back(), 100);
  bool stopped = false;
  EXPECT_THROW(saveCompany(*Database::open(TestCompany::path()), other("Alta.mdb"),
                           [&stopped](int done, int) {
                             EXPECT_LT(done, 100);
                             EXPECT_FALSE(std::exchange(stopped, true));
                             throw Cancelled();
                           }),
               Cancelled);
  EXPECT_EQ(QDir(elsewhere_.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
            QStringList("Copie.mdb"));
}

TEST_F(UpkeepTest, ARestoreBringsBackExactlyWhatWasSaved) {
  const QList<TableProof> original = proofOf(database());
  const QString copy = saved();
  ExecutaSql("DELETE FROM G_ARTMAG");
  ExecutaSql("UPDATE kt_info SET NrZec = 1");
  InitParaSoc();
  restoreOpenCompany(copy);
  EXPECT_EQ(proofOf(database()), original);
  EXPECT_EQ(session().NrZec, 3);
  EXPECT_EQ(connections(TestCompany::path()).size(), 1);
  EXPECT_EQ(proofOf(*Database::open(copy)), original);
  // A copy on a read-only disk replaces a company whose file contains anything else.
  QFile::setPermissions(copy, QFile::ReadOwner);
  restoreOpenCompany(copy);
  ExecutaSql("DELETE FROM kt_val");
  EXPECT_NE(proofOf(database()), original);
}

TEST_F(UpkeepTest, AnIncompleteCompanyIsRefused) {
  const QString copy = saved();
  const auto variant = [&](const QString& name, const std::function<void(QFile&)>& damage) {
    QFile::copy(copy, other(name));
    QFile file(other(name));
    EXPECT_TRUE(file.open(QIODevice::ReadWrite));
    damage(file);
    return other(name);
  };
  expectRefused(variant("taiata.mdb", [](QFile& file) { file.resize(file.size() / 2); }), "deteriorat");
  expectRefused(variant("goala.mdb", [](QFile& file) { file.resize(0); }), "deteriorat");
  expectRefused(variant("scrisa.mdb",
                        [](QFile& file) {
                          for (qint64 page = 4096; page < file.size(); page += 4096) {
                            file.seek(page);
                            file.write(QByteArray(100, '\xAA'));
                          }
                        }),
                "deteriorat");
  expectRefused(variant("straina.mdb",
                        [](QFile& file) {
                          file.seek(68);  // the application id
                          file.write(QByteArray(4, '\1'));
                        }),
                "nu este o baza de date Velmar");
  Database::create(other("fara-tabele.mdb"));
  expectRefused(other("fara-tabele.mdb"), "nu este o baza de date de societate");
  expectRefused(other("lipseste.mdb"), "nu poate fi copiat");
}

TEST_F(UpkeepTest, AnotherUserInTheCompanyBlocksTheRestore) {
  const QString copy = saved();
  ExecutaSql("DELETE FROM kt_val");
  auto otherUser = Database::open(TestCompany::path());
  {
    // On a server the connection itself counts as a user.
    otherUser->query("SELECT NrZec FROM kt_info");
    const RosterEntry entry(TestCompany::path(), QStringLiteral("IOANA"));
    expectRefused(copy, "si altii lucreaza in societate");
  }
  otherUser.reset();
  session().roster = std::make_unique<RosterEntry>(TestCompany::path(), session().gUtilizator);
  restoreOpenCompany(copy);
  EXPECT_GT(OpenRs("SELECT COUNT(*) AS N FROM kt_val").first().integer("N"), 0);
}

TEST_F(UpkeepTest, AFileInUseIsNotReplacedInFile) {
  const QString copy = saved();
  const auto otherUser = Database::open(TestCompany::path());  // not in the roster yet
  expectRefused(copy, "si altii lucreaza in societate");
}

TEST_F(UpkeepTest, ACopyOfAnOlderStructureIsUpgradedBeforeItIsUsed) {
  const QString copy = saved();
  const auto change = [&copy](const QStringList& statements) {
    for (const QString& sql : statements) Database::open(copy)->execute(sql);
  };
  change({"ALTER TABLE kt_info DROP COLUMN NrZec", "DROP TABLE kt_val2", "DROP VIEW qryTertiLinii",
          "ALTER TABLE kt_info DROP COLUMN CAPSOC", "ALTER TABLE kt_info ADD COLUMN CAPSOC TEXT",
          "UPDATE kt_info SET VERSIUNE = 12, CAPSOC = 'multi bani'"});
  ExecutaSql("DELETE FROM G_ARTMAG");
  expectRefused(copy, "nu poate fi adusa la cea de acum. Societatea a ramas cum era.");

  change({"UPDATE kt_info SET CAPSOC = '200'"});
  restoreOpenCompany(copy);
  EXPECT_EQ(OpenRs("SELECT COUNT(*) AS N FROM G_ARTMAG").first().integer("N"), 40);
  EXPECT_EQ(revisionOf(database()), programRevision());
  EXPECT_EQ(OpenRs("SELECT CAPSOC FROM kt_info").first().decimal("CAPSOC"), Decimal(200));
  EXPECT_TRUE(OpenRs("SELECT NrZec FROM kt_info").first().isNull("NrZec"));
  ExecutaSql("INSERT INTO kt_val2 (COD, CURS) VALUES ('EUR', 5)");
}

TEST_F(UpkeepTest, ARestoreThatIsStoppedChangesNothing) {
  const QString copy = saved();
  ExecutaSql("DELETE FROM kt_val");
  const QList<TableProof> before = proofOf(database());
  const QString path = TestCompany::path();
  EXPECT_THROW(restoreCompany(copy, path, [] { throw Cancelled(); }), Cancelled);
  EXPECT_EQ(proofOf(database()), before);
  EXPECT_FALSE(databaseExists(TestCompany::folder(), "Tarvon01.mdb.nou"));
}

TEST_F(UpkeepTest, ACopyIsUsableInAnyFolder) {
  const QList<TableProof> original = proofOf(database());
  QDir().mkpath(other("alta"));
  const QString path = other("alta/Tarvon01.mdb");
  restoreCompany(saved(), path, [] {});
  EXPECT_EQ(proofOf(*Database::open(path)), original);
  const QString inFolder = QDir(TestCompany::folder()).filePath("Tarvon07.mdb");
  restoreCompany(saved(), inFolder, [] {});
  EXPECT_EQ(proofOf(*Database::open(inFolder)), original);
  removeDatabaseFile(TestCompany::folder(), "Tarvon07.mdb");
}

TEST_F(UpkeepTest, CompactingKeepsEveryRow) {
  const QList<TableProof> original = proofOf(database());
  MessageRecorder messages;
  CompacteazaBD();
  EXPECT_EQ(messages.take(), QStringList("Compactarea bazei de date Tarvon01.mdb s-a realizat cu succes !"));
  EXPECT_EQ(proofOf(database()), original);
}

TEST_F(UpkeepTest, CompactingFreesSpaceAndDoesNotWaitForeverInFile) {
  ExecutaSql("INSERT INTO kt_ter (COD, NUME) VALUES (1, ?)", {QString(3'000'000, u'x')});
  ExecutaSql("DELETE FROM kt_ter");
  const QList<TableProof> original = proofOf(database());
  MessageRecorder messages;
  {
    const auto otherUser = Database::open(TestCompany::path());
    const Transaction unfinished(*otherUser);
    CompacteazaBD();
    ASSERT_EQ(messages.all().size(), 1U);
    EXPECT_TRUE(messages.take().first().startsWith(
        "Eroare la compactarea bazelor de date Baza de date este folosita in acest moment"));
  }
  EXPECT_EQ(proofOf(database()), original);
  CompacteazaBD();
  messages.take();
  EXPECT_LT(QFile(TestCompany::path()).size(), 1'500'000);
  EXPECT_EQ(proofOf(database()), original);
}

TEST_F(UpkeepTest, TheAutomaticCopyIncludesTheLayouts) {
  QDir().mkpath(other("lst"));
  for (const char* name : {"Factura.lsf", "Nota.LST", "citeste.txt"}) {
    QFile project(other(QStringLiteral("lst/") + name));
    ASSERT_TRUE(project.open(QIODevice::WriteOnly));
    project.write(name);
  }
  MessageRecorder messages;
  SalveazaAutomat();
  EXPECT_EQ(messages.take(), QStringList({"Salvare cu succes a bazei de date Tarvon01.mdb",
                                          "Salvare cu succes a fisierelor proiect pentru listari !"}));
  EXPECT_EQ(QDir(other("Salv_Tarvon/lst")).entryList(QDir::Files, QDir::Name),
            QStringList({"Factura.lsf", "Nota.LST"}));
  const QStringList copies = QDir(backupFolder()).entryList(QDir::Files);
  ASSERT_EQ(copies.size(), 1);
  EXPECT_TRUE(copies.first().startsWith("Tarvon01_15.03.2026_"));
  EXPECT_EQ(proofOf(*Database::open(QDir(backupFolder()).filePath(copies.first()))), proofOf(database()));
}

}  // namespace
}  // namespace velmar
