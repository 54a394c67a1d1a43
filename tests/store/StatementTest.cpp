// The guarantees of statements: values are read back unchanged, a prepared statement follows changes of the
// tables, an error has a reason and leaves nothing behind.
#include <gtest/gtest.h>

#include "TestCompany.h"
#include "util/Errors.h"

namespace velmar {
namespace {

int errorOf(const QString& sql, const Values& values = {}) {
  try {
    database().query(sql, values);
    return 0;
  } catch (const StoreError& error) {
    return error.number();
  }
}

class StatementTest : public ::testing::Test {
 protected:
  TestCompany company_;
  MessageRecorder messages_;
};

TEST_F(StatementTest, ValuesAreReadBackUnchanged) {
  const QString text = QString::fromUtf8("a'%\"; -- \xC8\x99\xF0\x9F\x98\x80 z");
  const Row row = database()
                      .query("SELECT ? AS T, ? AS E, ? AS N, ? AS F, ? AS B, ? AS Z, ? AS Y",
                             {text, "", qint64(9'007'199'254'740'993), 10_dec / 4, true, nullptr, QString()})
                      .first();
  EXPECT_EQ(row.text("t"), text);
  EXPECT_FALSE(row.isNull("E"));
  EXPECT_EQ(row.integer("N"), 9'007'199'254'740'993);
  EXPECT_EQ(row.decimal("F"), 25_dec / 10);
  EXPECT_EQ(row.integer("B"), -1);
  EXPECT_TRUE(row.isNull("Z"));
  EXPECT_TRUE(row.isNull("Y"));
}

TEST_F(StatementTest, WholeAmountsAreWholeNumbers) {
  for (const Decimal& amount : {Decimal(1'000'000), 3_dec * 1'000'000'000, Decimal(-20'000'000)}) {
    ExecutaSql("DELETE FROM kt_linii");
    ExecutaSql("INSERT INTO kt_linii (NDI, NRLINIE, TERT) VALUES (1, 1, ?)", {amount});
    EXPECT_EQ(OpenRs("SELECT TERT FROM kt_linii WHERE TERT = ?", {amount}).first().decimal("TERT"), amount);
  }
}

TEST_F(StatementTest, APreparedStatementFollowsTheTables) {
  const QString sql = QStringLiteral("SELECT * FROM tmpArt");
  EXPECT_EQ(database().query(sql).columns(), QStringList({"ARTID", "STOC"}));
  ExecutaSql("ALTER TABLE tmpArt ADD COLUMN COST REAL");
  ExecutaSql("INSERT INTO tmpArt (ARTID, COST) VALUES ('A', 2.5)");
  EXPECT_EQ(database().query(sql).first().decimal("COST"), 25_dec / 10);
  ExecutaSql("DROP TABLE tmpArt");
  EXPECT_NE(errorOf(sql), 0);
}

TEST_F(StatementTest, ValuesMustMatchThePlaceholdersAndOnlyOneStatementIsAllowed) {
  EXPECT_NE(errorOf("SELECT ? AS A"), 0);
  EXPECT_NE(errorOf("SELECT ? AS A", {1, 2}), 0);
  EXPECT_EQ(errorOf("SELECT ? AS A", {1}), 0);
  EXPECT_NE(errorOf("DELETE FROM kt_val; DELETE FROM kt_jur"), 0);
  EXPECT_NE(errorOf(""), 0);
  EXPECT_FALSE(OpenRs("SELECT COD FROM kt_val").isEmpty());
}

TEST_F(StatementTest, OneBadRowUndoesThemAll) {
  constexpr int kConstraint = 19;
  const std::vector<Values> rows{{"X1", "unu"}, {"X2", "doi"}, {"x1", "iar unu"}};
  try {
    database().insertRows("kt_val", {"COD", "TITLU"}, rows);
    FAIL() << "a key twice";
  } catch (const StoreError& error) {
    EXPECT_EQ(error.number(), kConstraint);
  }
  EXPECT_TRUE(OpenRs("SELECT COD FROM kt_val WHERE COD LIKE 'X%'").isEmpty());
  EXPECT_FALSE(database().inTransaction());
  database().insertRows("kt_val", {"COD", "TITLU"}, {rows[0], rows[1]});
  EXPECT_EQ(database().executeEach("UPDATE kt_val SET TITLU = ? WHERE COD = ?",
                                   {{"1", "X1"}, {"2", "x2"}, {"3", "X3"}}),
            2);
  EXPECT_EQ(OpenRs("SELECT TITLU FROM kt_val WHERE COD = 'X2'").first().text("TITLU"), "2");
}

TEST_F(StatementTest, AReaderDoesNotBlockAnotherUser) {
  EXPECT_FALSE(OpenRs("SELECT COD FROM kt_val").isEmpty());
  EXPECT_NE(errorOf("SELECT ROUND_EVEN(1, 2) AS A UNION ALL SELECT abs(-9223372036854775808)"), 0);
  const auto otherUser = Database::open(TestCompany::path());
  otherUser->execute("INSERT INTO kt_val (COD, TITLU) VALUES ('X', 'x')");
  EXPECT_EQ(ExecutaSql("DELETE FROM kt_val WHERE COD = 'X'"), 1);
}

// A company moved from one engine to the other must find, sort and refuse the same.
TEST_F(StatementTest, TextsCompareCaseInsensitivelyEverywhere) {
  ExecutaSql("DELETE FROM kt_oper");
  const QString comma = QString::fromUtf8("\xC8\x99ofer");
  const QString capital = QString::fromUtf8("\xC8\x98ofer");
  database().insertRows("kt_oper", {"COD", "DENUMIRE"},
                        {{"a1", "Masa"},
                         {"A2", "masa"},
                         {"B[", "MASA "},
                         {"b_", "Banca"},
                         {"Bz", "banda"},
                         {"c1", comma},
                         {"C2", capital},
                         {"D", nullptr}});
  const auto codes = [](const QString& rest, const Values& values = {}) {
    QString all;
    for (const Row& row : OpenRs("SELECT COD FROM kt_oper " + rest, values)) all += row.text("COD") + ' ';
    return all.trimmed();
  };
  EXPECT_EQ(codes("WHERE DENUMIRE = ? ORDER BY COD", {"MASA"}), "a1 A2");
  EXPECT_EQ(codes("WHERE DENUMIRE <> 'MaSa' ORDER BY COD"), "B[ b_ Bz c1 C2");
  EXPECT_EQ(codes("WHERE DENUMIRE IN ('BANCA', ?) ORDER BY COD", {"BANDA"}), "b_ Bz");
  EXPECT_EQ(codes("WHERE DENUMIRE LIKE ? ESCAPE '!' ORDER BY COD", {"%ASA%"}), "a1 A2 B[");
  EXPECT_EQ(codes("WHERE COD LIKE ? ESCAPE '!' ORDER BY COD", {"B!_"}), "b_");
  EXPECT_EQ(codes("WHERE DENUMIRE >= 'BAN' AND DENUMIRE < 'bao' ORDER BY DENUMIRE DESC"), "Bz b_");
  EXPECT_EQ(codes("WHERE DENUMIRE LIKE ? ORDER BY COD", {capital.left(1) + "OFER"}), "C2");
  EXPECT_EQ(codes("ORDER BY DENUMIRE NULLS FIRST, COD"), "D b_ Bz a1 A2 B[ C2 c1");
  EXPECT_EQ(
      OpenRs("SELECT DENUMIRE, COUNT(*) AS N FROM kt_oper GROUP BY DENUMIRE HAVING COUNT(*) > 1").size(), 1);
  EXPECT_EQ(OpenRs("SELECT DISTINCT DENUMIRE FROM kt_oper").size(), 7);
  EXPECT_EQ(OpenRs("SELECT COUNT(DISTINCT DENUMIRE) AS N FROM kt_oper").first().integer("N"), 6);
  EXPECT_EQ(errorOf("INSERT INTO kt_oper (COD) VALUES ('d')"), 19);
}

TEST_F(StatementTest, AFailedUpdateAmongManyUndoesThemAllAndTheConnectionRemainsUsable) {
  constexpr int kRows = 300;
  constexpr int kBad = 140;
  std::vector<Values> lines, changes;
  for (int i = 0; i < kRows; ++i) {
    const QString code = QStringLiteral("N%1").arg(i);
    lines.push_back({code, "0"});
    changes.push_back({i == kBad ? QStringLiteral("N0") : "M" + code, code});
  }
  database().insertRows("kt_cc", {"COD", "TITLU"}, lines);
  const QString rename = QStringLiteral("UPDATE kt_cc SET COD = ? WHERE COD = ?");
  changes[0] = {"N0", "N0"};
  EXPECT_THROW(database().executeEach(rename, changes), StoreError);
  EXPECT_TRUE(OpenRs("SELECT COD FROM kt_cc WHERE COD LIKE 'M%'").isEmpty());
  changes[kBad] = {"M", "nobody"};
  EXPECT_EQ(database().executeEach(rename, changes), kRows - 1);
  EXPECT_EQ(OpenRs("SELECT COD FROM kt_cc WHERE COD LIKE 'MN%'").size(), kRows - 2);
}

TEST_F(StatementTest, SumsOfManyAmountsAreExactToTheBan) {
  constexpr int kRows = 20'000;
  std::vector<Values> rows;
  Decimal exact;
  for (int i = 0; i < kRows; ++i) {
    const Decimal amount = Decimal(static_cast<qint64>(i) * 7'919 % 99'999'989 - 40'000'000) / 100;
    exact += amount;
    rows.push_back({"s", amount});
  }
  database().insertRows("tmpArt", {"ARTID", "STOC"}, rows);
  const Row sum = OpenRs("SELECT ROUND_EVEN(SUM(STOC), 2) AS TOTAL FROM tmpArt WHERE ARTID = 'S'").first();
  EXPECT_EQ(sum.decimal("TOTAL"), exact);
}

}  // namespace
}  // namespace velmar
