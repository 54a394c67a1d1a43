// The bulk update of sale prices: the columns written, and decimal results of the engine's arithmetic.
#include "catalogue/SalePrices.h"

#include <random>

#include "TestCompany.h"
#include "util/Errors.h"

using namespace velmar;

namespace {

using Scope = PricedArticles::Scope;

class SalePrices : public testing::Test {
 protected:
  static void article(const QString& code, int family, const Decimal& cost, const Decimal& currencyCost,
                      const Decimal& currencyPrice) {
    ExecutaSql(
        "INSERT INTO G_ARTMAG (CODART, DENART, FAMART, COST, COSTDEV, PRETDEVIZAVANZ, PRETVFT, PRETVTTI, "
        "ADAOS, "
        "COTATVA, CODDEVIZAVANZ) VALUES (?, ?, ?, ?, ?, ?, 1, 1, 1, 9, 'USD')",
        {code, code, family, cost, currencyCost, currencyPrice});
  }

  // Mark-up, price without and with VAT, price in currency.
  static QString prices(const QString& code) {
    const Row row = OpenRs("SELECT * FROM G_ARTMAG WHERE CODART = ?", {code}).first();
    QStringList texts;
    for (const char* column : {"ADAOS", "PRETVFT", "PRETVTTI", "PRETDEVIZAVANZ"})
      texts.append(row.decimal(column).toString());
    return texts.join(u' ');
  }

  template <typename Work>
  static QString refusal(Work&& work) {
    try {
      work();
    } catch (const RuleError& rule) {
      return rule.text();
    }
    return {};
  }

  TestCompany company_;
  MessageRecorder messages_;
};

TEST_F(SalePrices, MarkUpOverCost) {
  article("A", 1, 2.675_dec, 1.5_dec, 9);
  article("B", 1, 0, 0, 9);
  article("C", 2, 10, 2, 9);
  // 2.675 x 1.3333 = 3.5665775, with VAT 4.244227225; 1.5 x 1.3333 = 1.99995.
  EXPECT_EQ(updatePricesByMarkup({Scope::Family, 1, {}}, 33.33_dec), 2);
  EXPECT_EQ(prices("A"), "33.33 3.57 4.24 2");
  EXPECT_EQ(prices("B"), "33.33 0 0 0");
  EXPECT_EQ(prices("C"), "1 1 1 9");
  // The mark-up is stored with two decimals but calculated with all: 10 x 1.12345 = 11.2345, with
  // VAT 13.369055.
  EXPECT_EQ(updatePricesByMarkup({Scope::Article, {}, "c"}, 12.345_dec), 1);
  EXPECT_EQ(prices("C"), "12.34 11.23 13.37 2.25");
  // Without a mark-up, the cost itself: the tie 2.675 becomes the even 2.68, with VAT 3.18325.
  EXPECT_EQ(updatePricesByMarkup({}, 0), 3);
  EXPECT_EQ(prices("A"), "0 2.68 3.18 1.5");
}

TEST_F(SalePrices, PriceInCurrencyAtTodaysRate) {
  article("A", 1, 40, 1, 10.005_dec);
  article("B", 1, 0, 1, 10);
  article("C", 2, 40, 1, 0);
  ExecutaSql(
      "INSERT INTO kt_val2 (COD, DATA, CURS) VALUES ('EUR', '2026-03-14', 9), ('EUR', '2026-03-15', 4.9765)");
  // 4.9765 x 10 (10.005 to the even ban) = 49.765, a tie to 49.76; 4.9765 x 10.005 = 49.7898825: with VAT
  // 59.249960175, over 40 a mark-up of 24.47470625.
  EXPECT_EQ(updatePricesByRate({}, " eur "), 3);
  EXPECT_EQ(prices("A"), "24.47 49.76 59.25 10.005");
  EXPECT_EQ(prices("B"), "100 49.76 59.22 10");
  EXPECT_EQ(prices("C"), "-100 0 0 0");
}

TEST_F(SalePrices, RefusalsAreOrderedAndWriteNothing) {
  article("A", 1, 40, 1, 10);
  EXPECT_EQ(refusal([] {
              updatePricesByMarkup({Scope::Article, {}, {}}, {});
            }),
            "Va rugam precizati articolul");
  EXPECT_EQ(refusal([] {
              updatePricesByRate({Scope::Family, {}, {}}, "EUR");
            }),
            "Va rugam precizati familia");
  EXPECT_EQ(refusal([] { updatePricesByMarkup({}, {}); }), "Va rugam introduceti adaosul comercial");
  EXPECT_EQ(refusal([] { updatePricesByRate({}, "EUR"); }), "Nu este introdus cursul pe ziua : 15.03.2026");
  ExecutaSql("INSERT INTO kt_val2 (COD, DATA, CURS) VALUES ('EUR', '2026-03-15', 0)");
  EXPECT_EQ(refusal([] { updatePricesByRate({}, "EUR"); }), "Nu este introdus cursul pe ziua : 15.03.2026");
  EXPECT_EQ(prices("A"), "1 1 1 10");
  EXPECT_EQ(updatePricesByMarkup({Scope::Family, 9, {}}, 5), 0);
}

// Binary products would round ties either way.
TEST_F(SalePrices, TheEngineCalculatesInDecimals) {
  std::mt19937 random(20260315);
  const auto number = [&random](int below, int decimals) {
    Decimal value(static_cast<int>(random() % static_cast<unsigned>(below)));
    for (int i = 0; i < decimals; ++i) value *= 0.1_dec;
    return value;
  };
  std::vector<Values> rows;
  for (int i = 0; i < 5000; ++i)
    rows.push_back(
        {QString::number(i), 1 + number(40'000'000, i % 5), number(1'000'000, 3), number(900'000, i % 4)});
  database().insertRows("G_ARTMAG", {"CODART", "COST", "COSTDEV", "PRETDEVIZAVANZ"}, rows);
  ExecutaSql("INSERT INTO kt_val2 (COD, DATA, CURS) VALUES ('EUR', '2026-03-15', 4.9765)");
  const auto expectEach = [](const QString& column, auto&& expected) {
    for (const Row& row : OpenRs("SELECT * FROM G_ARTMAG ORDER BY CODART"))
      ASSERT_EQ(row.decimal(column), Round(expected(row), 2))
          << qUtf8Printable(column) << " at cost " << qUtf8Printable(row.decimal("COST").toString());
  };
  updatePricesByRate({}, "EUR");
  expectEach("PRETVFT", [](const Row& r) { return 4.9765_dec * Round(r.decimal("PRETDEVIZAVANZ"), 2); });
  expectEach("PRETVTTI", [](const Row& r) { return 4.9765_dec * r.decimal("PRETDEVIZAVANZ") * 1.19_dec; });
  expectEach("ADAOS", [](const Row& r) {
    return (4.9765_dec * r.decimal("PRETDEVIZAVANZ") / r.decimal("COST") - 1) * 100;
  });
  for (const Decimal& percent : {12.5_dec, 33.33_dec, 25_dec, 0.05_dec}) {
    updatePricesByMarkup({}, percent);
    const Decimal p = percent / 100;
    expectEach("PRETVFT", [&p](const Row& r) { return r.decimal("COST") + r.decimal("COST") * p; });
    expectEach("PRETVTTI",
               [&p](const Row& r) { return (r.decimal("COST") + r.decimal("COST") * p) * 1.19_dec; });
    expectEach("PRETDEVIZAVANZ",
               [&p](const Row& r) { return r.decimal("COSTDEV") + r.decimal("COSTDEV") * p; });
  }
}

}  // namespace
