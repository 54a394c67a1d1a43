// Cases of the input voucher that its scenario does not cover: unusual input, failures in the middle,
// concurrent users.
#include <gtest/gtest.h>

#include "documents/Validation.h"
#include "Trade.h"

namespace velmar {
namespace {

class VoucherTest : public ::testing::Test, protected Trade {
 protected:
  VoucherTest() : Trade("MP") {
    article("A1", "0", false);
    article("A2", "0", false);
    article("B1", "0", false);
    const qint64 family = addFamily(newFamily("Semifabricate", "371", "607", "707", "341"));
    ExecutaSql("UPDATE G_ARTMAG SET FAMART = ? WHERE CODART = 'B1'", {family});
  }

  TypedTexts header(const QString& number) const {
    return {{"NUMNR", number},
            {"CODFUR", QString::number(supplier)},
            {"BATVA", "19"},
            {"OBS", "productie"},
            {"DATANR", iso(clock::today())}};
  }

  static qint64 count(const QString& table) {
    return OpenRs("SELECT COUNT(*) AS N FROM " + table).first().integer("N");
  }

  static void expectNothingWritten() {
    EXPECT_EQ(count("G_DOCUME"), 0);
    EXPECT_EQ(count("G_LDOCUM"), 0);
    EXPECT_EQ(count("kt_linii"), 0);
    EXPECT_EQ(OpenRs("SELECT SUM(STOC) AS S FROM G_ARTMAG").first().decimal("S"), Decimal(0));
    EXPECT_EQ(OpenRs("SELECT COUNT(*) AS N FROM G_BONINT WHERE VALIDAT <> 0").first().integer("N"), 0);
  }
};

TEST_F(VoucherTest, QuantitiesRoundHalfEvenAndArticlesOfOneAccountShareAPair) {
  validated("BI", header("7"),
            {bought("A1", "3", "10", "15"), bought("B1", "2,5", "7,333", "9"),  // 7.33; 18.325 goes to 18.32
             bought("A2", "1.2345", "100", "150")});                            // 1.234, a tie; 123.40
  EXPECT_EQ(OpenRs("SELECT CANT FROM G_LDOCUM WHERE LINIE = 3").first().decimal("CANT"), 1.234_dec);
  EXPECT_EQ(OpenRs("SELECT TOTALFT FROM G_DOCUME").first().decimal("TOTALFT"), 171.72_dec);
  const Recordset note = OpenRs("SELECT * FROM kt_linii ORDER BY NRLINIE");
  ASSERT_EQ(note.size(), 4);
  EXPECT_EQ(note[0].text("CONT"), "341");
  EXPECT_EQ(note[2].text("CONT"), "345");
  EXPECT_EQ(note[2].decimal("DEBIT"), 153.4_dec);
  EXPECT_TRUE(note[3].isNull("TERT") && note[3].isNull("DATASCAD"));
}

TEST_F(VoucherTest, AverageCostFollowsTheReceiptsUnrounded) {
  validated("BI", header("1"), {bought("A1", "5", "20", "20")});
  validated("BI", header("2"), {bought("A1", "5", "10", "15")});
  EXPECT_EQ(figure("A1", "STOC"), Decimal(10));
  EXPECT_EQ(figure("A1", "COST"), Decimal(15));
  EXPECT_EQ(figure("A1", "PRETVFT"), Decimal(22));  // 15 x 1.5 = 22.5, to the even digit
  validated("BI", header("3"), {bought("A1", "5", "10", "10")});
  EXPECT_EQ(figure("A1", "COST"), Decimal::fromDouble(200.0 / 15));  // 13.33..., stored as it is
  EXPECT_EQ(OpenRs("SELECT MAX(NDI) AS N FROM kt_linii").first().integer("N"), 3);
}

TEST_F(VoucherTest, AFailureMidwayLeavesNothing) {
  DocumentEditor editor("BI");
  draft(editor, header("1"), {bought("A1", "3", "10", "15"), bought("A2", "1", "10", "15")});
  // With a stock of -1 and a receipt of 1 the average has the divisor 0.
  ExecutaSql("UPDATE G_ARTMAG SET STOC = -1 WHERE CODART = 'A2'");
  try {
    editor.validate(header("1"));
    FAIL() << "validated over a zero stock";
  } catch (const StepError& error) {
    EXPECT_EQ(error.number(), 11);
    EXPECT_EQ(error.title(), "Functia SalvareStocArticole");
  }
  ExecutaSql("UPDATE G_ARTMAG SET STOC = 0");
  expectNothingWritten();

  for (const QString& breaking : {QStringLiteral("UPDATE kt_par SET JURBONINTR = NULL"),
                                  QStringLiteral("UPDATE kt_par SET CONTINTRPROD = ''"),
                                  QStringLiteral("UPDATE G_FAMART SET CONTSTOCPROD = NULL"),
                                  QStringLiteral("UPDATE G_ARTMAG SET FAMART = 999")}) {
    Transaction undo(database());
    ExecutaSql(breaking);
    EXPECT_THROW(editor.validate(header("1")), RuleError) << breaking.toStdString();
    expectNothingWritten();
  }
  editor.validate(header("1"));
  EXPECT_EQ(count("G_LDOCUM"), 2);
}

TEST_F(VoucherTest, UnusualInputIsStoredUnchangedOrRefused) {
  DocumentEditor editor("BI");
  const auto refused = [](auto&& work) {
    try {
      work();
      return QString();
    } catch (const RuleError& rule) {
      return rule.text();
    }
  };
  const auto refusedHeader = [&](const QString& number) {
    editor.newDocument();
    auto typed = header(number);
    typed["BATVA"] = "";
    return refused([&] { editor.save(typed); });
  };
  EXPECT_EQ(refusedHeader("x'%_\"1"), "");
  EXPECT_FALSE(OpenRs("SELECT BATVA FROM G_BONINT").first().isNull("BATVA"));
  EXPECT_EQ(refusedHeader("X'%_\"1"),
            "Bonul de intrare cu acest numar exista deja ! Salvarea nu se poate efectua !");
  EXPECT_EQ(refusedHeader(QString(21, u'9')),
            "Textul din campul NUMNR este prea lung (maxim 20 caractere) !");
  EXPECT_EQ(count("G_BONINT"), 1);

  editor.newDocument();
  editor.save(header("1"));
  EXPECT_EQ(editor.check(0, "CODART", "NU", true).text,
            "Articolul cu codul produs de la furnizor NU nu exista ");
  EXPECT_EQ(editor.check(0, "CANT", QString(10000, u'9'), false).text,
            "Va rugam introduceti o valoare numerica pentru Cantitate !");
  editor.setArticle(0, "a1", "Scaun foarte lung cu numele taiat la capat (A1)");
  EXPECT_EQ(editor.lines()[0].text("DENUMIRE"), "Scaun foarte lung cu numele taiat l");
  editor.setNumber(0, "CANT", "1");
  EXPECT_EQ(refused([&] { editor.checkLines(); }),
            "Pretul unitar pentru articolul cu codul A1 trebuie sa fie un numar pozitiv ! Validarea nu se "
            "poate efectua !");
  editor.setArticle(1, "A1");
  EXPECT_TRUE(refused([&] { editor.validate(header("1")); }).startsWith("Articolul cu codul A1 se repeta !"));
  expectNothingWritten();
}

TEST_F(VoucherTest, ALateKeystrokeCannotTouchAValidatedVoucher) {
  DocumentEditor here("BI");
  draft(here, header("1"), {bought("A1", "3", "10", "15")});
  DocumentEditor otherUser("BI");
  otherUser.open("1");
  here.validate(header("1"));
  EXPECT_THROW(otherUser.setNumber(0, "CANT", "99"), RuleError);
  EXPECT_THROW(otherUser.setArticle(1, "A2"), RuleError);
  EXPECT_THROW(otherUser.deleteLine(0), RuleError);
  EXPECT_THROW(otherUser.save(header("1")), RuleError);
  EXPECT_THROW(otherUser.validate(header("1")), RuleError);
  EXPECT_THROW(otherUser.remove(), RuleError);
  EXPECT_EQ(OpenRs("SELECT CANT FROM G_LBONINT").first().decimal("CANT"), Decimal(3));
  EXPECT_EQ(count("G_DOCUME"), 1);
}

}  // namespace
}  // namespace velmar
