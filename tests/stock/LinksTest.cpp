// Remaining quantities of orders and delivery notes: used, closed, and restored.
#include "stock/Links.h"

#include <gtest/gtest.h>

#include "stock/Availability.h"
#include "TestCompany.h"

namespace velmar {
namespace {

Decimal value(const QString& sql) { return OpenRs(sql).first().decimal("V"); }

void take(const LedgerKey& source, const QString& article, const Decimal& quantity, const LedgerKey& taker) {
  OpenSources sources(readSources({source}));
  sources.take({source, article, quantity}, taker, QDate(2026, 3, 1));
  writeSources(sources.changed());
}

// Leaves only these takes.
void retake(const LedgerKey& source, const std::vector<Take>& takes) {
  writeSources(takenAnew(readSources({source}), takes));
}

TEST(LinksTest, ASupplierOrderIsClosedWithItsLastLine) {
  const TestCompany company;
  ExecutaSql("INSERT INTO G_COMFUR (NUMCOM, VALIDAT) VALUES ('5', -1)");
  ExecutaSql(
      "INSERT INTO G_LCOMFU (NUMCOM, NRLINIE, CODART, CANT, CANTRLIV) VALUES ('5', 1, 'A', 3, 3), ('5', 2, "
      "'B', 1, 1)");
  ExecutaSql("INSERT INTO G_DOCUME (ID, TIP) VALUES ('CF5', 'CF')");
  ExecutaSql("INSERT INTO G_LDOCUM (DOCID, LINIE, ARTID, CANT) VALUES ('CF5', 1, 'A', 3)");
  const LedgerKey order{KindId::SupplierOrder, "5"};
  const LedgerKey receipt{KindId::ReceiptNote, "8"};
  take(order, "a", 25_dec / 10, receipt);
  take(order, "B", 1, receipt);
  EXPECT_EQ(value("SELECT CANTRLIV AS V FROM G_LCOMFU WHERE CODART = 'A'"), 5_dec / 10);
  EXPECT_EQ(value("SELECT SOLDAT AS V FROM G_COMFUR"), Decimal(0));
  EXPECT_EQ(OpenRs("SELECT REFERINTA FROM G_LDOCUM").first().text("REFERINTA"), "NR8");
  take(order, "A", 5_dec / 10, receipt);
  EXPECT_EQ(value("SELECT SOLDAT AS V FROM G_COMFUR"), Decimal(-1));
}

TEST(LinksTest, ADeliveryNoteClosesWhenAllIsInvoicedAndReopensWhenThatIsTakenBack) {
  const TestCompany company;
  ExecutaSql("INSERT INTO G_AECLI (NUMAE, VALIDAT) VALUES ('3', -1)");
  ExecutaSql("INSERT INTO G_LAECLI (NUMAE, NRLINIE, CODART, CANT, CANTRAMAS) VALUES ('3', 1, 'A', 5.5, 5.5)");
  ExecutaSql("INSERT INTO G_DOCUME (ID, TIP, TIPIE) VALUES ('AE3', 'AE', 'E')");
  ExecutaSql("INSERT INTO G_LDOCUM (DOCID, LINIE, ARTID, CANT, CANTRAMASA) VALUES ('AE3', 1, 'A', 5.5, 5.5)");
  const LedgerKey note{KindId::DeliveryNote, "3"};
  const LedgerKey first{KindId::CustomerInvoice, "1"};
  const LedgerKey second{KindId::CustomerInvoice, "2"};
  take(note, "A", 3, first);
  EXPECT_EQ(value("SELECT FACTURAT AS V FROM G_AECLI"), Decimal(0));
  take(note, "a", 25_dec / 10, second);
  EXPECT_EQ(value("SELECT FACTURAT AS V FROM G_AECLI"), Decimal(-1));
  EXPECT_EQ(value("SELECT VALIDAT AS V FROM G_DOCUME"), Decimal(-1));
  EXPECT_EQ(value("SELECT CANTRAMASA AS V FROM G_LDOCUM"), Decimal(0));

  // Fractions come back completely; the reference of another document stays.
  retake(note, {{{note, "A", 25_dec / 10}, second, QDate(2026, 3, 1)}});
  EXPECT_EQ(value("SELECT CANTRAMAS AS V FROM G_LAECLI"), Decimal(3));
  EXPECT_EQ(OpenRs("SELECT REFERINTA FROM G_LDOCUM").first().text("REFERINTA"), "FC2");
  retake(note, {});
  EXPECT_EQ(value("SELECT CANTRAMAS AS V FROM G_LAECLI"), 55_dec / 10);
  EXPECT_EQ(value("SELECT CANTRAMASA AS V FROM G_LDOCUM"), 55_dec / 10);
  EXPECT_TRUE(OpenRs("SELECT REFERINTA FROM G_LDOCUM").first().isNull("REFERINTA"));
  EXPECT_EQ(value("SELECT FACTURAT AS V FROM G_AECLI"), Decimal(0));
}

// A note may have an article twice, and its draft may have lost lines: the ledger has a remainder for each
// line.
TEST(LinksTest, EachLineOfAnArticleHasItsOwnRemainder) {
  const TestCompany company;
  ExecutaSql("INSERT INTO G_AECLI (NUMAE, VALIDAT) VALUES ('3', -1)");
  ExecutaSql(
      "INSERT INTO G_LAECLI (NUMAE, NRLINIE, CODART, CANT, CANTRAMAS) VALUES ('3', 2, 'A', 5, 5), ('3', 4, "
      "'B', "
      "1, 1), ('3', 7, 'A', 2, 2)");
  ExecutaSql("INSERT INTO G_DOCUME (ID, TIP, TIPIE) VALUES ('AE3', 'AE', 'E')");
  ExecutaSql(
      "INSERT INTO G_LDOCUM (DOCID, LINIE, ARTID, CANT, CANTRAMASA) VALUES ('AE3', 1, 'A', 5, 5), ('AE3', 2, "
      "'B', "
      "1, 1), ('AE3', 3, 'A', 2, 2)");
  const auto rests = [] {
    QStringList all;
    for (const Row& row : OpenRs("SELECT CANTRAMASA FROM G_LDOCUM ORDER BY LINIE"))
      all.append(row.decimal("CANTRAMASA").toString());
    return all.join(' ');
  };
  const LedgerKey note{KindId::DeliveryNote, "3"};
  take(note, "A", 55_dec / 10, {KindId::CustomerInvoice, "1"});
  EXPECT_EQ(rests(), "0 1 1.5");
  retake(note, {});
  EXPECT_EQ(rests(), "5 1 2");
}

// 5 and 3 of one article from two notes.
TEST(LinksTest, TakesFromSeveralSourcesAddUp) {
  const LedgerKey one{KindId::DeliveryNote, "1"};
  const LedgerKey two{KindId::DeliveryNote, "2"};
  const LedgerKey taker{KindId::CustomerInvoice, "9"};
  OpenSources sources(
      {{one, 1, "A", 0, 8, 8, {}, {}}, {one, 2, "A", 1, 2, 1, {}, {}}, {two, 1, "A", 0, 3, 3, {}, {}}});
  sources.take({one, "A", 5}, taker, QDate(2026, 3, 1));
  sources.take({two, "A", 3}, taker, QDate(2026, 3, 1));
  sources.take({one, "A", 35_dec / 10}, taker, QDate(2026, 3, 1));
  std::vector<Decimal> open;
  for (const SourceLine& line : sources.changed()) open.push_back(line.open);
  EXPECT_EQ(open, (std::vector<Decimal>{0, 5_dec / 10, 0}));
}

TEST(LinksTest, CustomerOrdersReserveStockAlsoAfterAnInvoiceIsDeleted) {
  const TestCompany company;
  ExecutaSql("INSERT INTO G_COMCLI (NUMCOM, VALIDAT) VALUES ('1', -1), ('2', -1), ('3', 0)");
  ExecutaSql(
      "INSERT INTO G_LCOMCL (NUMCOM, NRLINIE, CODART, CANT, CANTLIV) "
      "VALUES ('1', 1, 'A', 5, 4.5), ('1', 2, 'B', 2, 2), ('2', 1, 'A', 1, NULL), ('3', 1, 'A', 99, 0)");
  EXPECT_EQ(gStocValid("a"), 15_dec / 10);  // drafts do not count, and what was never delivered does
  EXPECT_EQ(gStocValid("C"), Decimal(0));
  ExecutaSql("INSERT INTO G_FACTURI_COMENZI_CLIENTI (ID_Factura, ID_Comanda) VALUES ('7', '1')");
  const LedgerKey invoice{KindId::CustomerInvoice, "7"};
  ASSERT_EQ(ordersOf("7").size(), 1U);
  const LedgerKey order = ordersOf("7").front();
  retake(order, {{{order, "A", 3}, invoice, QDate(2026, 3, 1)}});
  EXPECT_EQ(value("SELECT CANTLIV AS V FROM G_LCOMCL WHERE NUMCOM = '1' AND CODART = 'A'"), Decimal(3));
  EXPECT_EQ(value("SELECT CANTLIV AS V FROM G_LCOMCL WHERE NUMCOM = '1' AND CODART = 'B'"), Decimal(0));
  EXPECT_TRUE(ordersOf("8").empty());  // made from no order
  EXPECT_EQ(gStocValid("B"), Decimal(2));
}

}  // namespace
}  // namespace velmar
