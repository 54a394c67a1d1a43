// Two users with one draft open: nobody stores or validates a document other than the one that is shown, nor
// in a period that is closed.
#include <gtest/gtest.h>

#include "documents/Invariants.h"
#include "Trade.h"
#include "util/Errors.h"

namespace velmar {
namespace {

class SharedDraftTest : public ::testing::Test {
 protected:
  SharedDraftTest() {
    for (const char* code : {"A0", "A1"}) {
      trade_.article(code, "30", false);
      trade_.validated("FF", trade_.purchase(code), {Trade::bought(code, "20", "10", "30")});
    }
    other_ = addPartner(newPartner("ALT CLIENT", "C"));
    Trade::draft(here_, trade_.sale("1"), {Trade::out("A0", "3")});
    there_.open("1");
  }

  static void expectChanged(const std::function<void()>& work) {
    try {
      work();
      ADD_FAILURE() << "the change was taken";
    } catch (const RuleError& error) {
      EXPECT_TRUE(error.text().startsWith("Documentul a fost modificat intre timp de alt utilizator !"))
          << error.text().toStdString();
    }
  }

  static TypedTexts with(TypedTexts texts, const QString& key, const QString& text) {
    texts.insert(key, text);
    return texts;
  }

  Trade trade_{"FIFO"};
  DocumentEditor here_{"FC"};
  DocumentEditor there_{"FC"};
  qint64 other_ = 0;
};

TEST_F(SharedDraftTest, AnInvoiceThatNobodySawIsNotIssued) {
  there_.save(with(there_.headerTexts(), "CODCLI", QString::number(other_)));
  there_.setArticle(0, "A1");
  there_.setNumber(0, "CANT", "7");
  expectChanged([&] { Trade::validate(here_); });
  expectChanged([&] { here_.save(with(here_.headerTexts(), "OBS", "al meu")); });
  EXPECT_EQ(OpenRs("SELECT ID FROM G_DOCUME WHERE TIPIE = 'E'").size(), 0);

  // What is stored is shown; what was typed and the other user left alone is kept.
  EXPECT_TRUE(here_.followStored(with(here_.headerTexts(), "OBS", "al meu")));
  EXPECT_EQ(here_.headerTexts().value("CODCLI"), QString::number(other_));
  EXPECT_EQ(here_.headerTexts().value("OBS"), "al meu");
  EXPECT_EQ(here_.lines().at(0).text("CODART"), "A1");
  EXPECT_FALSE(here_.followStored(here_.headerTexts()));
  EXPECT_TRUE(Trade::validate(here_));
  const Row sold = OpenRs("SELECT * FROM G_DOCUME WHERE TIPIE = 'E'").first();
  EXPECT_EQ(sold.integer("CODTERT"), other_);
  EXPECT_EQ(Trade::figure("A1", "STOC"), Decimal(13));
  EXPECT_EQ(disagreementText(), "");
}

TEST_F(SharedDraftTest, ACellWritesOnlyIntoTheLineThatIsShown) {
  there_.setNumber(0, "CANT", "7");
  expectChanged([&] { here_.setNumber(0, "PRETFT", "25"); });
  expectChanged([&] { here_.deleteLine(0); });
  EXPECT_TRUE(here_.followStored(here_.headerTexts()));
  here_.setNumber(0, "PRETFT", "25");
  EXPECT_EQ(here_.lines().at(0).decimal("CANT"), Decimal(7));
  // Both users may change lines of their own; what is validated is the whole as it is shown.
  there_.open("1");
  here_.setArticle(1, "A1");
  there_.setNumber(0, "CANT", "6");
  here_.setNumber(1, "CANT", "2");
  expectChanged([&] { Trade::validate(here_); });
  expectChanged([&] { Trade::validate(there_); });
}

TEST_F(SharedDraftTest, APeriodThatAnotherWorkstationClosedIsClosedHere) {
  ExecutaSql("UPDATE kt_par SET DATAIC = ?", {clock::today().addDays(1)});
  try {
    here_.validate(here_.headerTexts());
    ADD_FAILURE() << "validated in a closed period";
  } catch (const RuleError& error) {
    EXPECT_EQ(error.text(), "Data document trebuie sa fie in intervalul: 16/03/2026-31/12/2026");
    EXPECT_EQ(error.field(), "DATAFAC");
  }
  EXPECT_EQ(OpenRs("SELECT ID FROM G_DOCUME WHERE TIPIE = 'E'").size(), 0);
}

}  // namespace
}  // namespace velmar
