// Sales discounts: the two lookups, the line amounts, the recalculation of an invoice, and the editor of
// bands with two workstations.
#include "catalogue/Discounts.h"

#include "catalogue/DiscountBands.h"
#include "TestCompany.h"
#include "util/Errors.h"

using namespace velmar;

namespace {

class Discounts : public testing::Test {
 protected:
  Discounts() {
    ExecutaSql("INSERT INTO G_FAMART (COD, DENUMIRE) VALUES (1, 'Suruburi'), (2, 'Vopsele')");
    ExecutaSql(
        "INSERT INTO G_ARTMAG (CODART, DENART, FAMART) VALUES ('S8', 'Surub M8', 1), ('S10', 'Surub M10', "
        "1), "
        "('V1', 'Vopsea alba', 2)");
  }

  static void band(const QString& article, int from, int to, const Decimal& percent) {
    ExecutaSql(
        "INSERT INTO \"Articole - Discounturi\" (CODArticol, CantMin, CantMax, Discount) VALUES (?, ?, ?, ?)",
        {article, from, to, percent});
  }

  static QString bandsOf(const QString& article) {
    QStringList texts;
    for (const Row& row : OpenRs("SELECT CantMin, CantMax, Discount FROM \"Articole - Discounturi\" WHERE "
                                 "CODArticol = ? ORDER BY CantMin, ID_Discount",
                                 {article}))
      texts.append(QStringLiteral("%1-%2:%3")
                       .arg(row.text("CantMin"), row.text("CantMax"), row.decimal("Discount").toString()));
    return texts.join(u' ');
  }

  // The message of the refusal with the field at fault; "" if there is none.
  template <typename Work>
  static QString refusal(Work&& work) {
    try {
      work();
    } catch (const RuleError& rule) {
      return rule.field() + u':' + rule.text();
    }
    return {};
  }

  TestCompany company_;
  MessageRecorder messages_;
};

TEST_F(Discounts, LookupsRoundHalfEvenAndReturnZeroOutsideTheBands) {
  band("S8", 1, 10, 5);
  band("S8", 11, 20, 7.5_dec);
  band("S8", 21, 30, 2.5_dec);
  EXPECT_EQ(DiscountArticol("S8", 0), 0);
  EXPECT_EQ(DiscountArticol("S8", 1), 5);
  EXPECT_EQ(DiscountArticol("s8", 10), 5);
  EXPECT_EQ(DiscountArticol("S8", 11), 8);
  EXPECT_EQ(DiscountArticol("S8", 30), 2);
  EXPECT_EQ(DiscountArticol("S8", 31), 0);
  EXPECT_EQ(DiscountArticol("S10", 5), 0);
  // Halfway between 10 and 11 pieces, the even one is used.
  EXPECT_EQ(DiscountArticol("S8", 10.5_dec), 5);
  EXPECT_EQ(DiscountArticol("S8", 10.51_dec), 8);
  EXPECT_EQ(DiscountArticol("S8", 0.5_dec), 0);
  ExecutaSql("INSERT INTO \"Articole - Discounturi\" (CODArticol, CantMin, CantMax) VALUES ('V1', 1, 5)");
  EXPECT_EQ(DiscountArticol("V1", 3), 0);

  EXPECT_EQ(DiscountTert(7), 0);
  setPartnerDiscount(7, 3.5_dec);
  EXPECT_EQ(DiscountTert(7), 4);
  setPartnerDiscount(7, 6.25_dec);
  EXPECT_EQ(partnerDiscount(7), 6.25_dec);
  EXPECT_EQ(OpenRs("SELECT CODTert FROM \"Terti - Discounturi\"").size(), 1);
  setPartnerDiscount(7, std::nullopt);
  EXPECT_EQ(partnerDiscount(7), std::nullopt);
  EXPECT_TRUE(OpenRs("SELECT CODTert FROM \"Terti - Discounturi\"").isEmpty());
}

TEST_F(Discounts, PercentsAddUpAndBothAmountsAreRounded) {
  // 10 + 5 make 15 percent off 9.99: 8.4915; three at the rounded price.
  const DiscountedLine line = discountedLine(9.99_dec, 10, 5, 3, 2);
  EXPECT_EQ(line.ValoareFTCuDiscount, 8.49_dec);
  EXPECT_EQ(line.VALOAREFT, 25.47_dec);
  // 0.25 at half price is 0.125, a tie; with a quantity of a thousandth, 0.0005 in between.
  EXPECT_EQ(discountedLine(0.25_dec, 50, 0, 1, 2).ValoareFTCuDiscount, 0.12_dec);
  EXPECT_EQ(discountedLine(0.5_dec, 0, 0, 0.001_dec, 3).VALOAREFT, 0);
  // Above 100 percent the price is negative.
  EXPECT_EQ(discountedLine(10, 60, 50, 2, 2).VALOAREFT, -2);
}

TEST_F(Discounts, BandsAreStoredInOrderAndWithoutGaps) {
  DiscountBands editor = DiscountBands::ofArticle("S8");
  EXPECT_EQ(editor.count(), 0);
  editor.save(-1, {"1", "10", "5"});
  ASSERT_EQ(editor.count(), 1);
  EXPECT_TRUE(editor.bands()[0].id);
  const int second = editor.add();
  EXPECT_EQ(second, 1);
  EXPECT_EQ(editor.add(), 1) << "the existing new band is used";
  EXPECT_EQ(editor.bands()[1].CantMin, 11);
  EXPECT_EQ(bandsOf("S8"), "1-10:5") << "it is not stored yet";
  editor.save(0, {"1", "10", "6"});
  EXPECT_EQ(editor.count(), 2) << "it is still not stored";
  editor.save(1, {"11", "11", "7,5"});
  EXPECT_EQ(bandsOf("S8"), "1-10:6 11-11:7.5");

  // Of a band with a successor only the discount can change, of the last band all but its start.
  EXPECT_EQ(refusal([&] {
              editor.save(0, {"1", "9", "1"});
            }),
            "CantMax:Nu puteti modifica cantitatea maxima!");
  editor.save(0, {"4", "10", "4.25"});
  editor.save(1, {"11", "20", "8"});
  EXPECT_EQ(refusal([&] {
              editor.save(1, {"12", "20", "8"});
            }),
            "CantMin:Cantitatea minima trebuie sa fie 11");
  EXPECT_EQ(bandsOf("S8"), "1-10:4.25 11-20:8");

  const QString notLast = ":Trebuie sa selecati ultimul din lista!";
  EXPECT_EQ(refusal([&] { editor.remove(0); }), notLast);
  editor.add();
  editor.remove(2);
  editor.remove(1);
  EXPECT_EQ(bandsOf("S8"), "1-10:4.25");
  editor.save(0, {"5", "6", "1"});
  EXPECT_EQ(bandsOf("S8"), "5-6:1");
  editor.remove(0);
  EXPECT_EQ(refusal([&] { editor.remove(-1); }), notLast);
  EXPECT_EQ(bandsOf("S8"), "");
}

TEST_F(Discounts, TypedBandsAreCheckedInOrder) {
  DiscountBands editor = DiscountBands::ofFamily(1);
  const QString missing = "Trebuie sa completati toate valorile";
  const auto typed = [&](const QString& from, const QString& to, const QString& percent) {
    return refusal([&] { editor.save(-1, {from, to, percent}); });
  };
  EXPECT_EQ(typed("", "", ""), "CantMin:" + missing);
  EXPECT_EQ(typed("5", "x", "2"), "CantMax:" + missing);
  EXPECT_EQ(typed("5", "4", ""), "Discount:" + missing);
  EXPECT_EQ(typed("5", "4", "2"), "CantMax:Cantitatea maxima nu poate fi mai mica decat cantitatea minima!");
  const QString whole = "Cantitatea trebuie sa fie un numar intreg intre 0 si 32767";
  EXPECT_EQ(typed("1,5", "4", "2"), "CantMin:" + whole);
  EXPECT_EQ(typed("1", "32768", "2"), "CantMax:" + whole);
  EXPECT_EQ(typed("-1", "4", "2"), "CantMin:" + whole);
  EXPECT_EQ(editor.count(), 0);
  EXPECT_TRUE(OpenRs("SELECT * FROM \"Familii Articole - Discounturi\"").isEmpty());
  EXPECT_EQ(typed("32767", "32767", "2"), "");
}

TEST_F(Discounts, AFamilysBandsReplaceThoseOfItsArticlesOnly) {
  band("S8", 1, 3, 50);
  band("V1", 1, 3, 40);
  DiscountBands family = DiscountBands::ofFamily(1);
  family.save(-1, {"1", "10", "5"});
  family.add();
  family.save(1, {"11", "20", "7.5"});
  EXPECT_EQ(DiscountArticol("S10", 11), 0) << "sales ignore the template";
  family.add();
  family.applyToArticles();
  EXPECT_EQ(bandsOf("S8"), "1-10:5 11-20:7.5");
  EXPECT_EQ(bandsOf("S10"), "1-10:5 11-20:7.5");
  EXPECT_EQ(bandsOf("V1"), "1-3:40");
  EXPECT_EQ(DiscountArticol("S10", 11), 8);

  // Applying a family without bands deletes those of its articles.
  DiscountBands::ofFamily(2).applyToArticles();
  EXPECT_EQ(bandsOf("V1"), "");
}

TEST_F(Discounts, TwoWorkstationsLeaveNoOverlap) {
  DiscountBands mine = DiscountBands::ofArticle("S8");
  mine.save(-1, {"1", "10", "5"});
  DiscountBands theirs = DiscountBands::ofArticle("S8");
  mine.add();
  theirs.add();
  theirs.save(1, {"11", "20", "7"});
  const QString changed = refusal([&] { mine.save(1, {"11", "15", "9"}); });
  EXPECT_TRUE(changed.startsWith(":Discounturile au fost modificate")) << qUtf8Printable(changed);
  EXPECT_EQ(bandsOf("S8"), "1-10:5 11-20:7");
  EXPECT_EQ(mine.bands(), theirs.bands()) << "the list shows the current bands";

  theirs.remove(1);
  EXPECT_NE(refusal([&] { mine.remove(1); }), "");
  EXPECT_NE(refusal([&] { DiscountBands::ofArticle("S99").save(-1, {"1", "2", "3"}); }), "");
  EXPECT_EQ(OpenRs("SELECT ID_Discount FROM \"Articole - Discounturi\"").size(), 1);
}

}  // namespace
