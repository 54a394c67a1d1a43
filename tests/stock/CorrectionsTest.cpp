#include "stock/Corrections.h"

#include "documents/Workstations.h"
#include "TestCompany.h"
#include "util/Errors.h"

namespace velmar {
namespace {

class Corrections : public ::testing::Test {
 protected:
  Corrections() {
    for (const char* code : {"A", "B"})
      ExecutaSql("INSERT INTO G_ARTMAG (CODART, STOC, COST, COSTDEV) VALUES (?, 7, 5, 1)", {code});
  }

  static void document(const QString& id, const QString& direction, const QDate& date) {
    ExecutaSql("INSERT INTO G_DOCUME (ID, TIP, TIPIE, DATADOC) VALUES (?, ?, ?, ?)",
               {id, id.left(2), direction, date});
  }
  static void line(const QString& id, int number, const Decimal& quantity, const Value& rest) {
    ExecutaSql("INSERT INTO G_LDOCUM (DOCID, LINIE, ARTID, CANT, CANTRAMASA) VALUES (?, ?, 'A', ?, ?)",
               {id, number, quantity, rest});
  }
  static QStringList rests() {
    QStringList all;
    for (const Row& row :
         OpenRs("SELECT CANTRAMASA FROM G_LDOCUM WHERE CANTRAMASA IS NOT NULL ORDER BY DOCID"))
      all.append(row.decimal("CANTRAMASA").toString());
    return all;
  }

  TestCompany company_;
};

// 0.1 + 0.2 - 0.3 is nothing, so the cost is cleared; a cancelled correction changes nothing.
TEST_F(Corrections, StockIsTheExactSumOfTheLedger) {
  document("FF1", "I", QDate(2026, 1, 1));
  line("FF1", 1, 1_dec / 10, Value());
  line("FF1", 2, 2_dec / 10, Value());
  document("BC2", "E", QDate(2026, 1, 2));
  line("BC2", 1, 3_dec / 10, Value());
  const auto figures = [] {
    return OpenRs("SELECT STOC, COST, COSTDEV FROM G_ARTMAG WHERE CODART = 'A'").first();
  };
  EXPECT_THROW(correctStockAndNotes([](int done, int of) {
                 if (done == of) throw Cancelled();
               }),
               Cancelled);
  EXPECT_EQ(figures().decimal("STOC"), 7);
  CorectArticoleTable();
  for (const char* figure : {"STOC", "COST", "COSTDEV"}) EXPECT_EQ(figures().decimal(figure), 0) << figure;
}

// A surplus is taken from the oldest lots, by document date; a deficit given to the newest, as far as it has
// room.
TEST_F(Corrections, LotsAddUpToTheStock) {
  document("FF1", "I", QDate(2026, 1, 5));
  document("FF2", "I", QDate(2026, 1, 3));
  document("BC3", "E", QDate(2026, 1, 6));
  line("FF1", 1, 5, 4);
  line("FF2", 1, 4, 3);
  line("BC3", 1, 4, Value());
  ASSERT_EQ(lotDifferences().size(), 1);
  EXPECT_THROW(correctLots({"A"},
                           [](int done, int) {
                             if (done > 0) throw Cancelled();
                           }),
               Cancelled);
  EXPECT_EQ(rests(), QStringList({"4", "3"}));
  correctLots({"a"});
  EXPECT_EQ(rests(), QStringList({"4", "1"}));
  EXPECT_TRUE(lotDifferences().isEmpty());
  ExecutaSql("UPDATE G_LDOCUM SET CANT = 0.5 WHERE DOCID = 'BC3'");  // stock 8.5, lots of 5 and 4 hold 5
  correctLots({"A"});
  EXPECT_EQ(rests(), QStringList({"5", "3.5"}));
  ExecutaSql("UPDATE G_LDOCUM SET CANT = -3 WHERE DOCID = 'BC3'");  // 12: more than the lots had
  correctLots({"A"});
  EXPECT_EQ(rests(), QStringList({"5", "4"}));
}

TEST_F(Corrections, KilledOnesLeaveNothingHalfWritten) {
  constexpr int kArticles = 400;
  QStringList codes;
  document("FF1", "I", QDate(2026, 1, 5));
  document("AE2", "E", QDate(2026, 1, 6));
  for (int i = 0; i < kArticles; ++i) {
    codes.append(QStringLiteral("C%1").arg(i));
    ExecutaSql("INSERT INTO G_ARTMAG (CODART) VALUES (?)", {codes.back()});
    ExecutaSql("INSERT INTO G_LDOCUM (DOCID, LINIE, ARTID, CANT) VALUES ('FF1', ?, ?, 5)", {i, codes.back()});
    ExecutaSql("INSERT INTO G_LDOCUM (DOCID, LINIE, ARTID, CANT) VALUES ('AE2', ?, ?, 2)", {i, codes.back()});
  }
  const auto wrong = [] {
    ExecutaSql("UPDATE G_ARTMAG SET STOC = 7");
    ExecutaSql("UPDATE G_LDOCUM SET CANTRAMASA = CASE WHEN DOCID = 'FF1' THEN 5 END");
  };
  const auto sum = [](const char* sql) { return OpenRs(sql).first().decimal("S").toString().toStdString(); };
  const auto stock = [&] { return sum("SELECT SUM(STOC) AS S FROM G_ARTMAG WHERE CODART LIKE 'C%'"); };
  const auto lots = [&] { return sum("SELECT SUM(CANTRAMASA) AS S FROM G_LDOCUM"); };
  expectAllOrNothing(
      company_.path(), wrong, [] { correctStockAndNotes(); }, stock);
  expectAllOrNothing(
      company_.path(), wrong, [&] { correctLots(codes); }, lots);
  wrong();
  correctStockAndNotes();
  correctLots(codes);
  EXPECT_EQ(stock(), "1200");
  EXPECT_EQ(lots(), "1200");
}

}  // namespace
}  // namespace velmar
