// When the upgrade of a company's structure is offered, and what stands behind each answer and outcome.
#include "shell/StructureUpgrade.h"

#include <optional>
#include <QElapsedTimer>

#include "store/Engine.h"
#include "store/Server.h"
#include "TestCompany.h"
#include "util/Errors.h"
#include "util/FileNames.h"

namespace velmar {
namespace {

const QString kQuestionText = QStringLiteral(
    "Structura bazei de date Tarvon01.mdb trebuie actualizata !\r\n Doriti sa efectuati actualizarea acum ?");
const QString kDone = QStringLiteral("Actualizarea bazei de date s-a incheiat !");

std::optional<qint64> revision() { return revisionOf(database()); }

TEST(StructureUpgradeTest, AnotherRevisionOrNoneIsAskedAbout) {
  const TestCompany company;
  MessageRecorder messages;
  VerificaVersiune(false);
  EXPECT_TRUE(messages.isEmpty()) << "a fresh company is this program's";

  ExecutaSql("UPDATE kt_info SET VERSIUNE = NULL");
  for (int login = 1; login <= 2; ++login) {
    messages.answer(kResultNo);
    VerificaVersiune(false);
    ASSERT_EQ(messages.all().size(), 1u);
    EXPECT_EQ(messages.all()[0].buttons, kQuestion + kYesNo);
    EXPECT_EQ(messages.all()[0].title, "Actualizare baza de date");
    EXPECT_EQ(messages.take(), QStringList({kQuestionText}));
    EXPECT_EQ(revision(), std::nullopt);
  }
  // There is no older or newer.
  for (const int other : {-1, 1}) {
    ExecutaSql("UPDATE kt_info SET VERSIUNE = ?", {programRevision() + other});
    messages.answer(kResultYes);
    VerificaVersiune(false);
    ASSERT_EQ(messages.all().size(), 2u);
    EXPECT_EQ(messages.all()[1].buttons, kInformation);
    EXPECT_EQ(messages.take(), QStringList({kQuestionText, kDone}));
    EXPECT_EQ(revision(), programRevision());
  }
  messages.answer(kResultNo);
  VerificaVersiune(true);
  EXPECT_EQ(messages.take(), QStringList({kQuestionText}));
}

TEST(StructureUpgradeTest, ACompanyThatLostItsRevisionTakesPartAgain) {
  const TestCompany company;
  MessageRecorder messages;
  for (const char* loss : {"ALTER TABLE kt_info DROP COLUMN VERSIUNE", "DROP TABLE kt_info"}) {
    {
      Transaction transaction(database());
      database().engine().run(loss);
      transaction.commit();
    }
    messages.answer(kResultYes);
    VerificaVersiune(false);
    EXPECT_EQ(messages.take(), QStringList({kQuestionText, kDone}));
    EXPECT_EQ(revision(), programRevision()) << loss;
  }
}

TEST(StructureUpgradeTest, AnErrorIsToldAndTheQuestionComesBack) {
  const TestCompany company;
  {
    Transaction transaction(database());
    database().engine().run("ALTER TABLE kt_info DROP COLUMN CAPSOC");
    database().engine().run("ALTER TABLE kt_info ADD COLUMN CAPSOC VARCHAR(20)");
    transaction.commit();
  }
  ExecutaSql("UPDATE kt_info SET CAPSOC = 'multi bani', VERSIUNE = 1");
  MessageRecorder messages;
  messages.answer(kResultYes);
  VerificaVersiune(false);
  ASSERT_EQ(messages.all().size(), 2u);
  EXPECT_FALSE(database().inTransaction());
  const QString told = messages.take().last();
  EXPECT_TRUE(told.startsWith("Eroare in actualizarea bazei de date !\r\n")) << qUtf8Printable(told);
  EXPECT_TRUE(told.contains("multi bani"));
  EXPECT_EQ(revision(), 1);

  ExecutaSql("UPDATE kt_info SET CAPSOC = '200'");
  messages.answer(kResultYes);
  VerificaVersiune(false);
  EXPECT_EQ(messages.take().last(), kDone);
  EXPECT_EQ(revision(), programRevision());
}

void damage() {
  Transaction transaction(database());
  database().engine().run("DROP TABLE kt_val2");
  database().engine().run("ALTER TABLE kt_info DROP COLUMN EMAIL2");
  database().engine().run("UPDATE kt_info SET VERSIUNE = 1");
  transaction.commit();
}

TEST(StructureUpgradeTest, AnUpgradeThatItsUserStopsLeavesTheCompanyAsItWas) {
  const TestCompany company;
  damage();
  MessageRecorder messages;
  std::vector<int> told;
  const int stopAt = static_cast<int>(companyTables().size());
  messages.answer(kResultYes);
  VerificaVersiune(false, [&] {
    return [&](int done, int of) {
      EXPECT_EQ(of, stopAt);
      told.push_back(done);
      if (done == of) throw Cancelled();
    };
  });
  EXPECT_EQ(messages.take(), QStringList({kQuestionText}));
  EXPECT_EQ(told.size(), static_cast<size_t>(stopAt));
  EXPECT_EQ(revision(), 1);
  EXPECT_FALSE(database().engine().tableShape("kt_info").column("EMAIL2"));
  EXPECT_TRUE(database().engine().tableShape("kt_val2").columns.empty());
}

// Within five seconds, in words, and nothing is changed; when the colleague has left it succeeds.
TEST(StructureUpgradeTest, AColleagueInTheWayIsToldOf) {
  const TestCompany company;
  damage();
  MessageRecorder messages;
  const bool onServer = serverOf(TestCompany::folder()).has_value();
  {
    const auto colleague = Database::open(TestCompany::path());
    // A reader is in the way on a server, and in a file somebody who writes.
    std::optional<Snapshot> reads;
    std::optional<Transaction> writes;
    if (onServer)
      reads.emplace(*colleague);
    else
      writes.emplace(*colleague);
    colleague->query("SELECT DENUMIRE FROM kt_info");
    messages.answer(kResultYes);
    if (!onServer) messages.answer(kResultCancel);
    QElapsedTimer waited;
    waited.start();
    VerificaVersiune(false);
    EXPECT_LT(waited.elapsed(), 6000);
    ASSERT_EQ(messages.all().size(), 2U);
    const QString told = messages.take().last();
    EXPECT_TRUE(told.contains("Baza de date este folosita in acest moment de alt utilizator."))
        << qPrintable(told);
  }
  EXPECT_EQ(revision(), 1);
  EXPECT_TRUE(database().engine().tableShape("kt_val2").columns.empty());
  messages.answer(kResultYes);
  VerificaVersiune(false);
  EXPECT_EQ(messages.take().last(), kDone);
}

TEST(StructureUpgradeTest, ATemplateThatIsInUseIsWaitedForFiveSecondsOnServer) {
  const TestCompany company;
  const auto colleague = Database::open(pathInFolder(TestCompany::folder(), kTemplateName));
  QElapsedTimer waited;
  waited.start();
  try {
    makeCompanyFile(TestCompany::folder(), "Tarvon44.mdb");
    ADD_FAILURE() << "copied under the eyes of a colleague";
  } catch (const StoreError& error) {
    EXPECT_TRUE(error.text().startsWith("Baza de date este folosita in acest moment"))
        << qPrintable(error.text());
  }
  EXPECT_LT(waited.elapsed(), 5500);
  EXPECT_FALSE(databaseExists(TestCompany::folder(), "Tarvon44.mdb"));
}

}  // namespace
}  // namespace velmar
