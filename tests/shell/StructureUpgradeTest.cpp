// When the upgrade of a company's structure is offered, and the result of each answer and failure.
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
  EXPECT_TRUE(messages.isEmpty()) << "a new company has this program's revision";

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
  // Revisions are not ordered: any other one counts.
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

TEST(StructureUpgradeTest, ACompanyWithoutARevisionIsUpgradedAgain) {
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

TEST(StructureUpgradeTest, AnErrorIsReportedAndTheQuestionRepeated) {
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
  const QString text = messages.take().last();
  EXPECT_TRUE(text.startsWith("Eroare in actualizarea bazei de date !\r\n")) << qUtf8Printable(text);
  EXPECT_TRUE(text.contains("multi bani"));
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

TEST(StructureUpgradeTest, AnUpgradeStoppedByTheUserChangesNothing) {
  const TestCompany company;
  damage();
  MessageRecorder messages;
  std::vector<int> progress;
  const int stopAt = static_cast<int>(companyTables().size());
  messages.answer(kResultYes);
  VerificaVersiune(false, [&] {
    return [&](int done, int of) {
      EXPECT_EQ(of, stopAt);
      progress.push_back(done);
      if (done == of) throw Cancelled();
    };
  });
  EXPECT_EQ(messages.take(), QStringList({kQuestionText}));
  EXPECT_EQ(progress.size(), static_cast<size_t>(stopAt));
  EXPECT_EQ(revision(), 1);
  EXPECT_FALSE(database().engine().tableShape("kt_info").column("EMAIL2"));
  EXPECT_TRUE(database().engine().tableShape("kt_val2").columns.empty());
}

// Reported within five seconds and without changes; it succeeds once the other user has left.
TEST(StructureUpgradeTest, AnotherUserWhoBlocksTheUpgradeIsReported) {
  const TestCompany company;
  damage();
  MessageRecorder messages;
  const bool onServer = serverOf(TestCompany::folder()).has_value();
  {
    const auto otherUser = Database::open(TestCompany::path());
    // On a server a reader blocks it, in a file a writer.
    std::optional<Snapshot> reads;
    std::optional<Transaction> writes;
    if (onServer)
      reads.emplace(*otherUser);
    else
      writes.emplace(*otherUser);
    otherUser->query("SELECT DENUMIRE FROM kt_info");
    messages.answer(kResultYes);
    if (!onServer) messages.answer(kResultCancel);
    QElapsedTimer waited;
    waited.start();
    VerificaVersiune(false);
    EXPECT_LT(waited.elapsed(), 6000);
    ASSERT_EQ(messages.all().size(), 2U);
    const QString text = messages.take().last();
    EXPECT_TRUE(text.contains("Baza de date este folosita in acest moment de alt utilizator."))
        << qPrintable(text);
  }
  EXPECT_EQ(revision(), 1);
  EXPECT_TRUE(database().engine().tableShape("kt_val2").columns.empty());
  messages.answer(kResultYes);
  VerificaVersiune(false);
  EXPECT_EQ(messages.take().last(), kDone);
}

TEST(StructureUpgradeTest, ATemplateThatIsInUseIsWaitedForFiveSecondsOnServer) {
  const TestCompany company;
  const auto otherUser = Database::open(pathInFolder(TestCompany::folder(), kTemplateName));
  QElapsedTimer waited;
  waited.start();
  try {
    makeCompanyFile(TestCompany::folder(), "Tarvon44.mdb");
    ADD_FAILURE() << "copied while another user was writing";
  } catch (const StoreError& error) {
    EXPECT_TRUE(error.text().startsWith("Baza de date este folosita in acest moment"))
        << qPrintable(error.text());
  }
  EXPECT_LT(waited.elapsed(), 5500);
  EXPECT_FALSE(databaseExists(TestCompany::folder(), "Tarvon44.mdb"));
}

}  // namespace
}  // namespace velmar
