// When the upgrade of a company's structure is offered, and what stands behind each answer and outcome.
#include "shell/StructureUpgrade.h"

#include "store/Engine.h"
#include "TestCompany.h"

namespace velmar {
namespace {

const QString kQuestionText = QStringLiteral(
    "Structura bazei de date Tarvon01.mdb trebuie actualizata !\r\n Doriti sa efectuati actualizarea acum ?");
const QString kDone = QStringLiteral("Actualizarea bazei de date s-a incheiat !");

std::optional<qint64> revision() { return revisionOf(database()); }

TEST(StructureUpgradeTest, AnotherRevisionOrNoneIsAskedAbout) {
  const TestCompany company;
  HeardMessages heard;
  VerificaVersiune(false);
  EXPECT_TRUE(heard.isEmpty()) << "a fresh company is this program's";

  ExecutaSql("UPDATE kt_info SET VERSIUNE = NULL");
  for (int login = 1; login <= 2; ++login) {
    heard.answer(kResultNo);
    VerificaVersiune(false);
    ASSERT_EQ(heard.all().size(), 1u);
    EXPECT_EQ(heard.all()[0].buttons, kQuestion + kYesNo);
    EXPECT_EQ(heard.all()[0].title, "Actualizare baza de date");
    EXPECT_EQ(heard.take(), QStringList({kQuestionText}));
    EXPECT_EQ(revision(), std::nullopt);
  }
  // There is no older or newer.
  for (const int other : {-1, 1}) {
    ExecutaSql("UPDATE kt_info SET VERSIUNE = ?", {programRevision() + other});
    heard.answer(kResultYes);
    VerificaVersiune(false);
    ASSERT_EQ(heard.all().size(), 2u);
    EXPECT_EQ(heard.all()[1].buttons, kInformation);
    EXPECT_EQ(heard.take(), QStringList({kQuestionText, kDone}));
    EXPECT_EQ(revision(), programRevision());
  }
  heard.answer(kResultNo);
  VerificaVersiune(true);
  EXPECT_EQ(heard.take(), QStringList({kQuestionText}));
}

TEST(StructureUpgradeTest, ACompanyThatLostItsRevisionTakesPartAgain) {
  const TestCompany company;
  HeardMessages heard;
  for (const char* loss : {"ALTER TABLE kt_info DROP COLUMN VERSIUNE", "DROP TABLE kt_info"}) {
    {
      Transaction transaction(database());
      database().engine().run(loss);
      transaction.commit();
    }
    heard.answer(kResultYes);
    VerificaVersiune(false);
    EXPECT_EQ(heard.take(), QStringList({kQuestionText, kDone}));
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
  HeardMessages heard;
  heard.answer(kResultYes);
  VerificaVersiune(false);
  ASSERT_EQ(heard.all().size(), 2u);
  EXPECT_FALSE(database().inTransaction());
  const QString told = heard.take().last();
  EXPECT_TRUE(told.startsWith("Eroare in actualizarea bazei de date !\r\n")) << qUtf8Printable(told);
  EXPECT_TRUE(told.contains("multi bani"));
  EXPECT_EQ(revision(), 1);

  ExecutaSql("UPDATE kt_info SET CAPSOC = '200'");
  heard.answer(kResultYes);
  VerificaVersiune(false);
  EXPECT_EQ(heard.take().last(), kDone);
  EXPECT_EQ(revision(), programRevision());
}

}  // namespace
}  // namespace velmar
