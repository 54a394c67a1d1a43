// Remaining quantities of orders and delivery notes: used, closed, and restored.
#include "stock/Links.h"

#include <gtest/gtest.h>

#include "stock/Availability.h"
#include "TestCompany.h"

namespace velmar {
namespace {

Decimal value(const QString& sql) { return OpenRs(sql).first().decimal("V"); }

TEST(LinksTest, ASupplierOrderIsClosedWithItsLastLine) {
  const TestCompany company;
  ExecutaSql("INSERT INTO G_COMFUR (NUMCOM, VALIDAT) VALUES ('5', -1)");
  ExecutaSql(
      "INSERT INTO G_LCOMFU (NUMCOM, NRLINIE, CODART, CANT, CANTRLIV) VALUES ('5', 1, 'A', 3, 3), ('5', 2, "
      "'B', 1, 1)");
  ExecutaSql("INSERT INTO G_DOCUME (ID, TIP) VALUES ('CF5', 'CF')");
  ExecutaSql("INSERT INTO G_LDOCUM (DOCID, LINIE, ARTID, CANT) VALUES ('CF5', 1, 'A', 3)");
  const LinkReference receipt{"NR8", QDate(2026, 3, 1)};
  receiveOrdered("5", "a", 25_dec / 10, receipt);
  receiveOrdered("5", "B", 1, receipt);
  EXPECT_EQ(value("SELECT CANTRLIV AS V FROM G_LCOMFU WHERE CODART = 'A'"), 5_dec / 10);
  EXPECT_EQ(value("SELECT SOLDAT AS V FROM G_COMFUR"), Decimal(0));
  EXPECT_EQ(OpenRs("SELECT REFERINTA FROM G_LDOCUM").first().text("REFERINTA"), "NR8");
  receiveOrdered("5", "A", 5_dec / 10, receipt);
  EXPECT_EQ(value("SELECT SOLDAT AS V FROM G_COMFUR"), Decimal(-1));
}

TEST(LinksTest, ADeliveryNoteClosesWhenAllIsInvoicedAndReopensAfterDeletion) {
  const TestCompany company;
  ExecutaSql("INSERT INTO G_AECLI (NUMAE, VALIDAT) VALUES ('3', -1)");
  ExecutaSql("INSERT INTO G_LAECLI (NUMAE, NRLINIE, CODART, CANT, CANTRAMAS) VALUES ('3', 1, 'A', 5.5, 5.5)");
  ExecutaSql("INSERT INTO G_DOCUME (ID, TIP, TIPIE) VALUES ('AE3', 'AE', 'E')");
  ExecutaSql("INSERT INTO G_LDOCUM (DOCID, LINIE, ARTID, CANT, CANTRAMASA) VALUES ('AE3', 1, 'A', 5.5, 5.5)");
  const auto taken = [](const QString& taker, const Decimal& quantity) {
    takeFromNote("3", "A", quantity, {taker, QDate(2026, 3, 1)});
    closeNoteIfTaken("3");
  };
  taken("FC1", 3);
  EXPECT_EQ(value("SELECT FACTURAT AS V FROM G_AECLI"), Decimal(0));
  taken("FC2", 25_dec / 10);
  EXPECT_EQ(value("SELECT FACTURAT AS V FROM G_AECLI"), Decimal(-1));
  EXPECT_EQ(value("SELECT VALIDAT AS V FROM G_DOCUME"), Decimal(-1));
  EXPECT_EQ(value("SELECT CANTRAMASA AS V FROM G_LDOCUM"), Decimal(0));

  // The second invoice is deleted; fractions are restored completely.
  ExecutaSql("INSERT INTO G_LFACCL (NUMFAC, NRLINIE, CODART, CANT) VALUES ('2', 1, 'a', 2.5)");
  CorecteazaAE("FC2");
  EXPECT_EQ(value("SELECT CANTRAMAS AS V FROM G_LAECLI"), 25_dec / 10);
  EXPECT_EQ(value("SELECT CANTRAMASA AS V FROM G_LDOCUM"), 25_dec / 10);
  EXPECT_EQ(OpenRs("SELECT REFERINTA FROM G_LDOCUM").first().text("REFERINTA"), " ");
  EXPECT_EQ(value("SELECT FACTURAT AS V FROM G_AECLI"), Decimal(0));
  // A receipt note is referred to by its number without prefix.
  ExecutaSql("UPDATE G_LAECLI SET REFERINTA = '9'");
  ExecutaSql("INSERT INTO G_LNRFUR (NUMNR, NRLINIE, CODART, CANT) VALUES ('9', 1, 'A', 1)");
  CorecteazaAE("NR9");
  EXPECT_EQ(value("SELECT CANTRAMAS AS V FROM G_LAECLI"), 35_dec / 10);
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
  ExecutaSql(
      "INSERT INTO G_LFACCL (NUMFAC, NRLINIE, CODART, CANT) VALUES ('7', 1, 'A', 1.5), ('7', 2, 'B', 2)");
  CorecteazaComenzi("7");
  EXPECT_EQ(value("SELECT CANTLIV AS V FROM G_LCOMCL WHERE NUMCOM = '1' AND CODART = 'A'"), Decimal(3));
  EXPECT_EQ(value("SELECT CANTLIV AS V FROM G_LCOMCL WHERE NUMCOM = '1' AND CODART = 'B'"), Decimal(0));
  CorecteazaComenzi("8");  // made from no order
  EXPECT_EQ(gStocValid("B"), Decimal(2));
}

}  // namespace
}  // namespace velmar
