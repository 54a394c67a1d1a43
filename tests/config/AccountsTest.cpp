#include "config/Accounts.h"

#include "store/Records.h"
#include "TestCompany.h"

namespace velmar {
namespace {

class AccountsTest : public ::testing::Test {
 protected:
  void post(const QString& account, const QDate& day, const Decimal& debit, const Decimal& credit) {
    ExecutaSql(
        "INSERT INTO kt_linii (NDI, NRLINIE, JURNAL, CONT, DATAINR, DEBIT, CREDIT) VALUES (1, ?, 'X', ?, ?, "
        "?, ?)",
        {++line_, account, day, debit, credit});
  }

  static std::vector<Decimal> figures(const QString& account) {
    const Row row = record(companyTable("kt_pc"), account);
    return {row.decimal("DEBITN"), row.decimal("CREDITN"), row.decimal("SOLDN")};
  }

  static Row account(const QString& symbol, const QString& title) {
    Row row = rowOf("CONT TITLU CODBUG");
    row.set("CONT", symbol);
    row.set("TITLU", title);
    return row;
  }

  TestCompany company_;
  int line_ = 0;
};

using Figures = std::vector<Decimal>;

TEST_F(AccountsTest, AGroupIncludesItsOwnTurnoverAndThoseOfAllAccountsBelow) {
  ExecutaSql("DELETE FROM kt_pc");
  for (const char* symbol : {"4", "41", "411", "4111", "4111A", "4111a1", "412", "5"})
    addAccount(account(symbol, symbol));
  const QDate day(2026, 3, 15);
  post("4111a", day, 100_dec, 0);  // case insensitive
  post("4111A1", day, 0, 30.25_dec);
  post("4111", day, 7_dec, 0);  // a group's own posting
  post("412", day, 0, 50_dec);
  post("4119", day, 1000_dec, 0);  // not in the chart
  post("412", day.addDays(1), 0, 9_dec);
  storeTurnovers(day);
  EXPECT_EQ(figures("4111a1"), (Figures{0, 30.25_dec, -30.25_dec}));
  EXPECT_EQ(figures("4111A"), (Figures{100, 30.25_dec, 69.75_dec}));
  EXPECT_EQ(figures("4111"), (Figures{107, 30.25_dec, 76.75_dec}));
  EXPECT_EQ(figures("411"), (Figures{107, 30.25_dec, 76.75_dec}));
  EXPECT_EQ(figures("412"), (Figures{0, 50, -50}));
  EXPECT_EQ(figures("4"), (Figures{107, 80.25_dec, 26.75_dec}));
  EXPECT_EQ(figures("5"), (Figures{0, 0, 0}));
  storeTurnovers(day.addDays(-1));
  EXPECT_EQ(figures("4"), (Figures{0, 0, 0})) << "the results of an earlier day are reset";
}

TEST_F(AccountsTest, TurnoversAreExactToTheBan) {
  // Tenths are not exact as doubles: their sum would leave a balance of about 1e-13.
  for (int i = 0; i < 1000; ++i) {
    post("5311", QDate(2026, 1, 1), 0.1_dec, 0);
    post("5121", QDate(2026, 1, 1), 0, 0.1_dec);
  }
  post("5311", QDate(2026, 1, 2), 0.7_dec, 0);
  post("5121", QDate(2026, 1, 2), 0, 0.7_dec);
  storeTurnovers(QDate(2026, 1, 2));
  EXPECT_EQ(figures("5311"), (Figures{100.7_dec, 0, 100.7_dec}));
  EXPECT_EQ(figures("5"), (Figures{100.7_dec, 100.7_dec, 0}));
}

TEST_F(AccountsTest, AnAccountInUseCannotBeDeleted) {
  addAccount(account("4111.7", "Client nou"));
  post("4111.7", QDate(2026, 1, 1), 1, 0);
  EXPECT_THROW(removeAccount("4111.7"), RuleError);
  EXPECT_THROW(removeAccount("41"), RuleError);
  EXPECT_THROW(addAccount(account("4111.7 ", "Inca o data")), RuleError);
  EXPECT_THROW(addAccount(account("4-1", "Cratima")), RuleError);
  EXPECT_THROW(addAccount(account("12345678901234567", "Prea lung")), RuleError);
  ExecutaSql("DELETE FROM kt_linii");
  removeAccount("4111.7");
  EXPECT_TRUE(record(companyTable("kt_pc"), "4111.7").isEmpty());
}

}  // namespace
}  // namespace velmar
