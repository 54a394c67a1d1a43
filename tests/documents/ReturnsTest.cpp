// Returns from customers and to suppliers: their lots, their cost, their postings. Figures are calculated by
// hand.
#include <gtest/gtest.h>

#include "documents/Invariants.h"
#include "documents/Undo.h"
#include "stock/Corrections.h"
#include "Trade.h"
#include "util/Errors.h"

namespace velmar {
namespace {

const QDate kFirst(2026, 3, 1);
const QDate kSecond(2026, 3, 2);

Row ledgerLine(const QString& document) {
  return OpenRs("SELECT * FROM G_LDOCUM WHERE DOCID = ? ORDER BY LINIE", {document}).first();
}

Decimal totalCost(const QString& document) {
  return OpenRs("SELECT TOTALCOST FROM G_DOCUME WHERE ID = ?", {document}).first().decimal("TOTALCOST");
}

TEST(ReturnsTest, GoodsReturnedByACustomerAreALotAtTheirCost) {
  Trade trade("FIFO");
  trade.article("A", "35");
  trade.validated("FF", trade.purchase("1", kFirst), {Trade::bought("A", "5", "10", "35")});
  trade.validated("FF", trade.purchase("2", kSecond), {Trade::bought("A", "5", "20", "35")});
  trade.validated("FC", trade.sale("5"), {Trade::out("A", "6")});  // 5 x 10 + 20 = 70
  // Without a document the cost is that of the article: 20 each, from the lot in use.
  trade.validated("FC", trade.sale("6"), {Trade::out("A", "-2")});
  EXPECT_EQ(Trade::rest("FC6"), Decimal(2));
  EXPECT_EQ(ledgerLine("FC6").decimal("VALCOST"), Decimal(40));
  EXPECT_EQ(totalCost("FC6"), Decimal(-40));
  // With its invoice the cost is that of the sale: 3 of 6 for 70 are 35.
  trade.validated("FC", trade.sale("7", "FC5"), {Trade::out("A", "-3")});
  EXPECT_EQ(Round(ledgerLine("FC7").decimal("VALCOST"), 4), Decimal(35));
  EXPECT_EQ(disagreementText(), "");
  // Sold again: 4 of the second purchase, then the returned goods: 80 + 40 + 35.
  trade.validated("FC", trade.sale("8"), {Trade::out("A", "9")});
  EXPECT_EQ(Round(totalCost("FC8"), 4), Decimal(155));
  EXPECT_EQ(Trade::rest("FC6"), Decimal(0));
  EXPECT_EQ(Trade::rest("FC7"), Decimal(0));
  EXPECT_EQ(Trade::figure("A", "STOC"), Decimal(0));
  EXPECT_EQ(disagreementText(), "");
}

TEST(ReturnsTest, CostHasTheSignOfTheQuantity) {
  for (const QString& method : {QStringLiteral("FIFO"), QStringLiteral("MP")}) {
    Trade trade(method);
    trade.article("A", "20");
    trade.article("B", "5");
    trade.validated("FF", trade.purchase("1"),
                    {Trade::bought("A", "1", "12", "20"), Trade::bought("B", "10", "3", "5")});
    // 30 are issued, 12 returned: 50 less 20 are sold.
    trade.validated("FC", trade.sale("9"), {Trade::out("B", "10"), Trade::out("A", "-1")});
    EXPECT_EQ(totalCost("FC9"), Decimal(18)) << qUtf8Printable(method);
    Decimal expense, stock;
    for (const Row& row : OpenRs("SELECT * FROM kt_linii WHERE DOC = '9'")) {
      if (row.text("CONT") == "607") expense += row.decimal("DEBIT");
      if (row.text("CONT") == "371") stock += row.decimal("CREDIT");
    }
    EXPECT_EQ(expense, Decimal(18));
    EXPECT_EQ(stock, Decimal(18));
    EXPECT_EQ(disagreementText(), "");
  }
}

// Goods out and goods back on one invoice: its storno takes the latter from the lot of their line. Under the
// average an invoice of goods brought back takes its value along when it is deleted: (6 x 10 - 10) / 5.
TEST(ReturnsTest, ReturnedLinesAreTakenBackToo) {
  {
    Trade trade("FIFO");
    trade.article("A", "20");
    trade.article("B", "5");
    trade.validated("FF", trade.purchase("1"),
                    {Trade::bought("A", "5", "12", "20"), Trade::bought("B", "10", "3", "5")});
    trade.validated("FC", trade.sale("9"), {Trade::out("B", "10"), Trade::out("A", "-1")});
    ExecutaSql("UPDATE kt_linii SET CODCC = 'C7', CANTIT = 3, UTILIZATOR = 'ANA' WHERE DOC = '9'");
    ASSERT_TRUE(Trade::turnRound("9", "10"));
    EXPECT_EQ(Trade::rest("FC9"), Decimal(0));
    EXPECT_EQ(disagreementText(), "");
    // A turned note carries what others filled, with nothing for null.
    const Row note = OpenRs("SELECT * FROM kt_linii WHERE DOC = '10' AND CONT = '607'").first();
    EXPECT_EQ(note.text("CODCC") + note.text("CANTIT") + note.text("UTILIZATOR"), "C73ANA");
    EXPECT_FALSE(note.isNull("TERT") || note.isNull("CODIE"));
  }
  Trade trade("MP");
  trade.article("A", "20");
  trade.validated("FF", trade.purchase("1"), {Trade::bought("A", "6", "10", "20")});
  trade.validated("FC", trade.sale("6"), {Trade::out("A", "-1")});
  ASSERT_TRUE(takeBack({KindId::CustomerInvoice, "6"}));
  EXPECT_EQ(Trade::figure("A", "STOC"), Decimal(6));
  EXPECT_EQ(Trade::figure("A", "COST"), Decimal(10));
}

TEST(ReturnsTest, AReturnToASupplierIsLimitedToTheRestOfItsLot) {
  Trade trade("FIFO");
  trade.article("A", "30");
  trade.validated("FF", trade.purchase("502", kFirst), {Trade::bought("A", "5", "10", "30")});
  trade.validated("FF", trade.purchase("503", kSecond), {Trade::bought("A", "5", "20", "30")});
  trade.validated("BC", trade.consumption("1"), {Trade::out("A", "3")});
  DocumentEditor editor("FF");
  Trade::draft(editor, trade.purchase("R1", clock::today(), "FF502"), {Trade::bought("A", "-3", "10", "30")});
  try {
    Trade::validate(editor);
    ADD_FAILURE() << "validated";
  } catch (const RuleError& refused) {
    EXPECT_EQ(refused.text(), "Din documentul FF502 au mai ramas numai 2 din articolul A !");
  }
  editor.setNumber(0, "CANT", "-2");
  EXPECT_TRUE(Trade::validate(editor));
  EXPECT_EQ(Trade::rest("FF502"), Decimal(0));
  EXPECT_EQ(Trade::rest("FFR1"), Decimal(-2));
  EXPECT_EQ(Trade::note("R1").mid(0, 3), QStringList({"4 C 401 -23.8", "4 D 371 -20", "4 D 4426 -3.8"}));
  trade.validated("FF", trade.purchase("R3", clock::today(), " ff503"),  // in another case
                  {Trade::bought("A", "-1", "20", "30")});
  EXPECT_EQ(Trade::rest("FF503"), Decimal(4));
  EXPECT_EQ(disagreementText(), "");
  takeBack({KindId::SupplierInvoice, "R3"});
  // A document that does not exist has no lot: the lots then exceed the stock by the returned quantity.
  trade.validated("FF", trade.purchase("R2", clock::today(), "nimic"),
                  {Trade::bought("A", "-1", "20", "30")});
  EXPECT_EQ(Trade::rest("FF503"), Decimal(5));
  EXPECT_EQ(Trade::figure("A", "STOC"), Decimal(4));
  EXPECT_EQ(disagreementText(), "");
  EXPECT_TRUE(lotDifferences().isEmpty());
  // Nor has an issue of the article.
  trade.validated("FF", trade.purchase("R4", clock::today(), "BC1"), {Trade::bought("A", "-1", "20", "30")});
  EXPECT_EQ(disagreementText(), "");
  ExecutaSql("UPDATE G_LDOCUM SET CANTRAMASA = 4 WHERE DOCID = 'FF503'");
  EXPECT_EQ(disagreements().front().where, "A");
  correctLots({"A"});
  EXPECT_EQ(Trade::rest("FF503"), Decimal(5));
  EXPECT_EQ(disagreementText(), "");
}

}  // namespace
}  // namespace velmar
