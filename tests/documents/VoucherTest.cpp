// Cases of the input voucher that its scenario does not cover: unusual input, failures in the middle,
// concurrent users.
#include <gtest/gtest.h>

#include "catalogue/Articles.h"
#include "catalogue/Families.h"
#include "catalogue/Partners.h"
#include "documents/DocumentEditor.h"
#include "documents/Validation.h"
#include "TestCompany.h"

namespace velmar {
namespace {

class VoucherTest : public ::testing::Test {
 protected:
  VoucherTest() {
    ExecutaSql("UPDATE kt_info SET TCOST = 'MP'");
    supplier_ = addPartner(newPartner("FURNIZOR SRL", "F"));
    products_ = addFamily(newFamily("Produse", "371", "607", "707", "345"));
    goods_ = addFamily(newFamily("Semifabricate", "371", "607", "707", "341"));
    article("A1", "Scaun", products_);
    article("A2", "Masa", products_);
    article("B1", "Blat", goods_);
  }

  void article(const QString& code, const QString& name, qint64 family) {
    Row row = newArticle();
    row.set("CODART", code);
    row.set("DENART", name);
    row.set("FAMART", family);
    row.set("CODFURNIZO", supplier_);
    row.set("PROVENIENTA", "P");
    addArticle(row);
  }

  QHash<QString, QString> header(const QString& number, const QDate& date = clock::today()) const {
    return {{"NUMNR", number},
            {"CODFUR", QString::number(supplier_)},
            {"BATVA", "19"},
            {"OBS", "productie"},
            {"DATANR", date.toString(Qt::ISODate)}};
  }

  static void line(DocumentEditor& editor, const QString& code, const QString& quantity, const QString& price,
                   const QString& salePrice) {
    const size_t at = editor.setArticle(editor.lines().size(), code);
    editor.setNumber(at, "CANT", quantity);
    editor.setNumber(at, "PRETFT", price);
    editor.setNumber(at, "PRETVA", salePrice);
  }

  void validated(const QString& number, const QString& code, const QString& quantity, const QString& price,
                 const QString& salePrice) {
    DocumentEditor editor("BI");
    editor.newDocument();
    editor.save(header(number));
    line(editor, code, quantity, price, salePrice);
    ASSERT_TRUE(editor.checkLines());
    editor.validate(header(number));
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

  TestCompany company_;
  MessageRecorder messages_;
  qint64 supplier_ = 0;
  qint64 products_ = 0;
  qint64 goods_ = 0;
};

Decimal figure(const QString& code, const QString& column) { return articleByCode(code)->decimal(column); }

TEST_F(VoucherTest, QuantitiesRoundHalfEvenAndArticlesOfOneAccountShareAPair) {
  DocumentEditor editor("BI");
  editor.newDocument();
  editor.save(header("7"));
  line(editor, "A1", "3", "10", "15");
  line(editor, "B1", "2,5", "7,333", "9");     // 7.33; 18.325 goes to 18.32
  line(editor, "A2", "1.2345", "100", "150");  // 1.234, a tie; 123.40
  ASSERT_TRUE(editor.checkLines());
  editor.validate(header("7"));
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
  validated("1", "A1", "5", "20", "20");
  validated("2", "A1", "5", "10", "15");
  EXPECT_EQ(figure("A1", "STOC"), Decimal(10));
  EXPECT_EQ(figure("A1", "COST"), Decimal(15));
  EXPECT_EQ(figure("A1", "PRETVFT"), Decimal(22));  // 15 x 1.5 = 22.5, to the even digit
  validated("3", "A1", "5", "10", "10");
  EXPECT_EQ(figure("A1", "COST"), Decimal::fromDouble(200.0 / 15));  // 13.33..., stored as it is
  EXPECT_EQ(OpenRs("SELECT MAX(NDI) AS N FROM kt_linii").first().integer("N"), 3);
}

TEST_F(VoucherTest, AFailureMidwayLeavesNothing) {
  DocumentEditor editor("BI");
  editor.newDocument();
  editor.save(header("1"));
  line(editor, "A1", "3", "10", "15");
  line(editor, "A2", "1", "10", "15");
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
    EXPECT_THROW(editor.checkLines(), RuleError) << breaking.toStdString();
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
  EXPECT_FALSE(editor.checkLines());
  EXPECT_EQ(messages_.take(),
            QStringList("Pretul unitar pentru articolul cu codul A1 trebuie sa fie un numar pozitiv "
                        "! Validarea nu se poate efectua !"));
  editor.setArticle(1, "A1");
  EXPECT_TRUE(refused([&] { editor.validate(header("1")); }).startsWith("Articolul cu codul A1 se repeta !"));
  expectNothingWritten();
}

TEST_F(VoucherTest, ALateKeystrokeCannotTouchAValidatedVoucher) {
  DocumentEditor here("BI");
  here.newDocument();
  here.save(header("1"));
  line(here, "A1", "3", "10", "15");
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
