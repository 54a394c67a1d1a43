// Goods received on supplier invoices and issued on vouchers and customer invoices, with figures calculated
// by hand.
#include <gtest/gtest.h>

#include "catalogue/Discounts.h"
#include "documents/Validation.h"
#include "Trade.h"

namespace velmar {
namespace {

const QDate kFirst(2026, 3, 1);
const QDate kSecond(2026, 3, 2);

// Lots of 5 at 10 and 5 at 20.
void twoLots(const Trade& trade) {
  trade.article("A");
  trade.validated("FF", trade.purchase("1", kFirst), {Trade::bought("A", "5", "10", "30")});
  trade.validated("FF", trade.purchase("2", kSecond), {Trade::bought("A", "5", "20", "30")});
}

TEST(GoodsOutTest, AVoucherTakesTheOldestLotsFirst) {
  Trade trade("FIFO");
  twoLots(trade);
  DocumentEditor editor("BC");
  Trade::draft(editor, trade.consumption("12"), {Trade::out("A", "7")});
  // The preliminary cost: 5 x 10 + 2 x 20 = 90, and 90 / 7 = 12.857.
  EXPECT_EQ(editor.lines()[0].decimal("VALOAREFT"), Decimal(90));
  EXPECT_EQ(editor.lines()[0].decimal("PRETFT"), 1286_dec / 100);
  EXPECT_EQ(Trade::rest("FF1"), Decimal(5));
  ASSERT_TRUE(Trade::validate(editor));
  EXPECT_EQ(Trade::note("12"), QStringList({"3 D 607 90", "3 C 371 90"}));
  // An invoice of the same number has its own links, and using up a lot does not change the article's
  // cost.
  ExecutaSql("UPDATE G_ARTMAG SET COST = 77 WHERE CODART = 'A'");
  trade.validated("FC", trade.sale("12"), {Trade::out("A", "3")});
  EXPECT_EQ(OpenRs("SELECT COUNT(*) AS N FROM G_I_E").first().integer("N"), 3);
  EXPECT_EQ(Trade::figure("A", "COST"), Decimal(77));
  EXPECT_EQ(Trade::figure("A", "STOC"), Decimal(0));
  EXPECT_EQ(disagreementText(), "");
}

TEST(GoodsOutTest, LotsOfOneDateAreIssuedInOrderOfValidationAndStornosAtTheirCost) {
  Trade trade("FIFO");
  trade.article("A");
  // Validated in the order 9, 2: the same date, while the keys sort the other way round.
  trade.validated("FF", trade.purchase("9", kFirst), {Trade::bought("A", "1", "10", "30")});
  trade.validated("FF", trade.purchase("2", kFirst), {Trade::bought("A", "1", "20", "30")});
  // The goods returned by a customer were sold at 50 and had cost 8; that lot is older than both.
  ExecutaSql(
      "INSERT INTO G_DOCUME (ID, TIP, TIPIE, DATADOC, CODMAG) VALUES ('FS1', 'FS', 'I', '2026-02-01', 1)");
  ExecutaSql(
      "INSERT INTO G_LDOCUM (DOCID, LINIE, ARTID, CANT, CANTRAMASA, PRETFT, COST, CODMAG) "
      "VALUES ('FS1', 1, 'A', 0.5, 0.5, 50, 8, 1)");
  OpenLots lots = OpenLots::read({"a"});
  const Consumption taken = lots.costFIFO("A", 15_dec / 10, CostFollows::LotWithRemainder);
  EXPECT_EQ(taken.value, Decimal(14));  // 0.5 x 8 + 1 x 10
  ASSERT_EQ(taken.takes.size(), 2u);
  EXPECT_EQ(taken.takes[1].document, "FF9");
  EXPECT_FALSE(taken.articleCost.has_value());
  const Consumption rest = lots.costFIFO("A", 3, CostFollows::LastLot);
  EXPECT_EQ(rest.value, Decimal(20));
  EXPECT_EQ(rest.missing, Decimal(2));
  EXPECT_EQ(rest.articleCost, Decimal(20));
  EXPECT_TRUE(OpenLots::read({"A"}).has("A"));  // nothing was written
}

TEST(GoodsOutTest, AnInvoiceWithDiscountsReachesLedgerAndThreeNotes) {
  Trade trade("MP");
  session().NrZec = 2;
  trade.article("M1");
  trade.article("P1", "40", false);
  trade.article("S1", "25", true, false);  // a service
  trade.validated("FF", trade.purchase("1"), {Trade::bought("M1", "10", "10", "20")});
  ExecutaSql("UPDATE G_ARTMAG SET STOC = 4, COST = 12 WHERE CODART = 'P1'");
  ExecutaSql(
      "INSERT INTO G_DOCUME (ID, TIP, TIPIE, DATADOC, CODMAG) VALUES ('NR1', 'NR', 'I', '2026-03-01', 1)");
  ExecutaSql("INSERT INTO G_NRFURN (NUMNR, DATANR, Magazie, VALIDAT) VALUES ('1', '2026-03-01', 1, -1)");
  ExecutaSql(
      "INSERT INTO G_LDOCUM (DOCID, LINIE, ARTID, CANT, PRETFT, COST, CODMAG) VALUES ('NR1', 1, 'P1', 4, 12, "
      "12, 1)");
  setPartnerDiscount(trade.customer, Decimal(10));
  ExecutaSql(
      "INSERT INTO \"Articole - Discounturi\" (CodArticol, CantMin, CantMax, Discount) VALUES ('M1', 2, 9, "
      "5)");
  TypedTexts header = trade.sale("7", "marfa");
  header.insert("DataCombo2", "COM");
  DocumentEditor editor("FC");
  Trade::draft(editor, header, {Trade::out("M1", "3"), Trade::out("P1", "1"), Trade::out("S1", "2")});
  const Row& goods = editor.lines()[0];
  EXPECT_EQ(goods.decimal("ValoareFTCuDiscount"), Decimal(17));  // 20 less 5 % and 10 %
  EXPECT_EQ(goods.decimal("VALOAREFT"), Decimal(51));
  EXPECT_EQ(goods.decimal("VALOARETVA"), 969_dec / 100);
  EXPECT_EQ(goods.decimal("COST"), Decimal(30));
  ASSERT_TRUE(Trade::validate(editor));

  // 51 of goods, 36 of products, 45 of services (36 and 45: 10 % off 40 and 50); VAT 9.69 + 6.84 + 8.55.
  const Row ledger = OpenRs("SELECT * FROM G_DOCUME WHERE ID = 'FC7'").first();
  EXPECT_EQ(ledger.decimal("TOTALFT"), Decimal(132));
  EXPECT_EQ(ledger.decimal("TOTALTVA"), 2508_dec / 100);
  EXPECT_EQ(ledger.decimal("TOTALCOST"), Decimal(42));
  EXPECT_TRUE(ledger.isNull("SERIE"));
  const Recordset lines = OpenRs("SELECT * FROM G_LDOCUM WHERE DOCID = 'FC7' ORDER BY LINIE");
  ASSERT_EQ(lines.size(), 3);
  EXPECT_EQ(lines[0].decimal("PRETFT"), Decimal(17));
  EXPECT_EQ(lines[0].decimal("PRETTTI"), 2023_dec / 100);
  EXPECT_EQ(lines[0].decimal("PROCRAB"), Decimal(15));
  EXPECT_EQ(lines[0].decimal("COST"), Decimal(10));
  EXPECT_EQ(lines[0].decimal("VALCOST"), Decimal(30));
  EXPECT_EQ(lines[0].text("CODCC"), "COM");
  EXPECT_EQ(Trade::note("7"), QStringList({"2 C 701 36", "2 C 707 96", "2 C 4427 25.08", "2 D 411 157.08",
                                           "3 D 607 30", "3 C 371 30", "4 C 345 12", "4 D 711 12"}));
  const Recordset stamped = OpenRs("SELECT DISTINCT NDI FROM kt_linii WHERE TIPDOC = 'FC'");
  ASSERT_EQ(stamped.size(), 1);
  EXPECT_EQ(stamped.first().integer("NDI"), 4);
  EXPECT_EQ(Trade::figure("M1", "STOC"), Decimal(7));
  EXPECT_EQ(Trade::figure("S1", "STOC"), Decimal(0));
  EXPECT_EQ(disagreementText(), "");
}

TEST(GoodsOutTest, AnInvoiceInCurrencyIsInLeiInLedgerAndNotes) {
  Trade trade("FIFO");
  twoLots(trade);
  TypedTexts header = trade.sale("8");
  header.insert("chkDeviza", "-1");
  header.insert("CODDeviza", "EUR");
  header.insert("Curs", "4,9755");
  DocumentEditor editor("FC");
  Trade::draft(editor, header, {{"A", {{"CANT", "7"}, {"PRETFT", "4"}}}});
  ASSERT_TRUE(Trade::validate(editor));
  // 28 EUR and 5.32 of VAT, at 4.9755: 139.314 and 26.46966 lei.
  const Row ledger = OpenRs("SELECT * FROM G_DOCUME WHERE ID = 'FC8'").first();
  EXPECT_EQ(ledger.decimal("TOTALFT"), 139314_dec / 1000);
  EXPECT_EQ(ledger.decimal("TOTALTVA"), 2646966_dec / 100000);
  EXPECT_EQ(ledger.decimal("TOTALDEV"), Decimal(28));
  EXPECT_EQ(ledger.text("CODDEV"), "EUR");
  const Row line = OpenRs("SELECT * FROM G_LDOCUM WHERE DOCID = 'FC8'").first();
  EXPECT_EQ(line.decimal("PRETDEV"), Decimal(4));
  EXPECT_EQ(line.decimal("PRETFT"), 19902_dec / 1000);
  EXPECT_EQ(line.decimal("VALCOST"), Decimal(90));
  EXPECT_EQ(Round(line.decimal("VALCOSTDEV"), 4), Round(Decimal(90) / (49755_dec / 10000), 4));
  EXPECT_EQ(Trade::note("8"), QStringList({"3 C 707 139.314", "3 C 4427 26.46966", "3 D 411 165.78366",
                                           "4 D 607 90", "4 C 371 90"}));
  const Row customer = OpenRs("SELECT * FROM kt_linii WHERE DOC = '8' AND CONT = '411'").first();
  EXPECT_EQ(customer.decimal("DEVDEBIT"), 3332_dec / 100);
  EXPECT_EQ(customer.text("COD"), "EUR");
  EXPECT_EQ(customer.integer("TERT"), trade.customer);
  EXPECT_EQ(
      OpenRs("SELECT DEVDEBIT FROM kt_linii WHERE DOC = '8' AND CONT = '607'").first().decimal("DEVDEBIT"),
      1809_dec / 100);
  EXPECT_EQ(disagreementText(), "");

  // Without a currency code the amounts would be taken as lei.
  header.insert("NUMFAC", "9");
  header.insert("CODDeviza", "");
  Trade::draft(editor, header, {Trade::out("A", "1")});
  EXPECT_THROW(editor.validate(editor.headerTexts()), RuleError);
}

TEST(GoodsOutTest, SupplierInvoicesValueStockAndPricesByBothMethods) {
  Trade average("MP");
  average.article("A");
  average.validated("FF", average.purchase("1"), {Trade::bought("A", "5", "20", "30")});
  average.validated("FF", average.purchase("2"), {Trade::bought("A", "5", "10", "30")});
  EXPECT_EQ(Trade::figure("A", "COST"), Decimal(15));
  EXPECT_EQ(Trade::figure("A", "ADAOS"), Decimal(100));
  EXPECT_EQ(Trade::figure("A", "PRETVTTI"), 357_dec / 10);
  // Everything is returned: with a stock of 0 the cost is 0.
  ExecutaSql("UPDATE G_ARTMAG SET CODDEVIZAVANZ = 'EUR' WHERE CODART = 'A'");
  average.validated("FF", average.purchase("3", clock::today(), "FF1"),
                    {Trade::bought("A", "-10", "15", "30")});
  EXPECT_EQ(Trade::figure("A", "COST"), Decimal(0));
  // With a rate of the day the price in currency follows cost and mark-up: 10 x 3 / 5 = 6.
  ExecutaSql("INSERT INTO kt_val2 (COD, DATA, CURS) VALUES ('EUR', ?, 5)", {clock::today()});
  average.validated("FF", average.purchase("4"), {Trade::bought("A", "1", "10", "30")});
  EXPECT_EQ(Trade::figure("A", "PRETDEVIZAVANZ"), Decimal(6));
  EXPECT_EQ(disagreementText(), "");
}

TEST(GoodsOutTest, VatFollowsTheRoundedValueOnPurchasesAndTheProductOnSales) {
  Trade trade("MP");
  trade.article("A");
  struct Case {
    int decimals;
    QString quantity, price, value, bought, sold;
  };
  // 1.5 x 0.33 = 0.495: bought 0.50 with VAT 0.095, sold with VAT 0.09405.
  for (const Case& c : {Case{0, "1.25", "3", "4", "1", "1"}, Case{2, "1.5", "0.33", "0.5", "0.1", "0.09"},
                        Case{4, "1.25", "3.3333", "4.1666", "0.7917", "0.7917"}}) {
    session().NrZec = c.decimals;
    DocumentEditor purchase("FF");
    Trade::draft(purchase, trade.purchase(QStringLiteral("F%1").arg(c.decimals)),
                 {Trade::bought("A", c.quantity, c.price, "9")});
    EXPECT_EQ(purchase.lines()[0].decimal("VALOARETVA").toString(), c.bought) << c.decimals;
    DocumentEditor sale("FC");
    Trade::draft(sale, trade.sale(QStringLiteral("C%1").arg(c.decimals)),
                 {{"A", {{"CANT", c.quantity}, {"PRETFT", c.price}}}});
    EXPECT_EQ(sale.lines()[0].decimal("VALOARETVA").toString(), c.sold) << c.decimals;
    EXPECT_EQ(sale.lines()[0].decimal("VALOAREFT").toString(), c.value) << c.decimals;
  }
}

TEST(GoodsOutTest, TheRaceForTheLastPieceAndAFailureMidwayChangeNothing) {
  Trade trade("FIFO");
  twoLots(trade);
  const auto snapshot = [] {
    QStringList rows;
    for (const char* sql : {"SELECT DOCID, LINIE, CANTRAMASA FROM G_LDOCUM ORDER BY DOCID",
                            "SELECT ID_E, ID_I, CANT FROM G_I_E", "SELECT CODART, STOC, COST FROM G_ARTMAG",
                            "SELECT NDI, DEBIT, CREDIT FROM kt_linii ORDER BY NDI, NRLINIE",
                            "SELECT NUMFAC, VALIDAT FROM G_FACCLI", "SELECT NUMFAC, COST FROM G_LFACCL"})
      for (const Row& row : OpenRs(sql))
        for (const QString& column : row.columns()) rows.append(row.text(column));
    return rows;
  };
  DocumentEditor editor("FC");
  Trade::draft(editor, trade.sale("1"), {Trade::out("A", "8")});
  ASSERT_TRUE(editor.checkLines());
  // Another workstation is faster.
  trade.validated("BC", trade.consumption("1"), {Trade::out("A", "4")});
  const QStringList before = snapshot();
  try {
    editor.validate(editor.headerTexts());
    FAIL() << "sold more than is in stock";
  } catch (const RuleError& error) {
    EXPECT_EQ(error.text(), "Articolul: A are disponibil in stoc numai 6");
  }
  EXPECT_EQ(snapshot(), before);

  // The posting fails after lots, ledger and articles were written.
  editor.setNumber(0, "CANT", "6");
  ASSERT_TRUE(editor.checkLines());
  ExecutaSql("UPDATE G_FAMART SET CONTVEN = NULL");
  const QStringList asTyped = snapshot();
  EXPECT_THROW(editor.validate(editor.headerTexts()), RuleError);
  EXPECT_EQ(snapshot(), asTyped);
  ExecutaSql("UPDATE G_FAMART SET CONTVEN = '707'");
  ASSERT_TRUE(Trade::validate(editor));
  EXPECT_EQ(Trade::figure("A", "STOC"), Decimal(0));
  EXPECT_EQ(disagreementText(), "");
}

TEST(GoodsOutTest, OpenOrdersAreNotAvailableAndServicesNeedNone) {
  Trade trade("MP");
  trade.article("A");
  trade.article("S", "5", true, false);
  trade.validated("FF", trade.purchase("1"), {Trade::bought("A", "5", "10", "30")});
  ExecutaSql("INSERT INTO G_COMCLI (NUMCOM, CODCLI, VALIDAT) VALUES ('1', 1, -1)");
  ExecutaSql("INSERT INTO G_LCOMCL (NUMCOM, NRLINIE, CODART, CANT) VALUES ('1', 1, 'A', 2)");
  const auto refusal = [](DocumentEditor& editor) {
    try {
      editor.validate(editor.headerTexts());
      return QString();
    } catch (const RuleError& error) {
      return error.text();
    }
  };
  DocumentEditor invoice("FC");
  Trade::draft(invoice, trade.sale("1"), {Trade::out("S", "9"), Trade::out("A", "4")});
  EXPECT_EQ(refusal(invoice), "Articolul: A are disponibil in stoc numai 3");
  invoice.setNumber(1, "CANT", "3");
  EXPECT_EQ(refusal(invoice), "");
}

TEST(GoodsOutTest, WithoutNotesNothingIsPostedAndOtherNotesAreUnchanged) {
  Trade trade("FIFO");
  twoLots(trade);
  const QStringList before = Trade::note("2");
  TypedTexts header = trade.sale("2");
  header.insert("NoteContabile", "0");
  header.insert("BATVA1", "12");  // VAT 0
  trade.validated("FC", header, {Trade::out("A", "1")});
  EXPECT_EQ(Trade::note("2"), before);
  EXPECT_EQ(OpenRs("SELECT DISTINCT TIPDOC FROM kt_linii").size(), 1);
  // VAT 0: no VAT row on either side, the goods' row has the percentage.
  TypedTexts purchase = trade.purchase("3");
  purchase.insert("BATVA1", "11");
  purchase.insert("TVAINC", "-1");
  trade.validated("FF", purchase, {Trade::bought("A", "1", "10", "30")});
  EXPECT_EQ(Trade::note("3"), QStringList({"3 C 401 10", "3 D 371 10"}));
  const Row goods = OpenRs("SELECT * FROM kt_linii WHERE DOC = '3' AND CONT = '371'").first();
  EXPECT_TRUE(goods.isNull("TVA_LINREF"));
  EXPECT_FALSE(goods.isNull("COTATVA"));
  EXPECT_EQ(goods.integer("TVAINC"), -1);
}

}  // namespace
}  // namespace velmar
