#include "store/NamedCommands.h"

#include "TestCompany.h"

using namespace velmar;
using namespace velmar::literals;

namespace {

class NamedCommands : public testing::Test {
 protected:
  void addMovements() {
    ExecutaSql("INSERT INTO G_FAMART (COD, DENUMIRE) VALUES (1, 'Fierarie')");
    ExecutaSql("INSERT INTO kt_ter (COD, NUME, TIP) VALUES (7, 'Alfa', 'F'), (8, 'Beta', 'C')");
    ExecutaSql(
        "INSERT INTO G_ARTMAG (CODART, DENART, FAMART, CODFURNIZO, COST, FARASTOC) VALUES "
        "('A', 'Cui', 1, 7, 2, 0), ('B', 'Surub', NULL, NULL, 3, 0), ('C', 'Serviciu', 1, 7, 0, -1), "
        "('D', 'Saiba', 1, 7, 1, 0)");
    ExecutaSql(
        "INSERT INTO G_DOCUME (ID, TIP, TIPIE, DATADOC, CODTERT) VALUES "
        "('NR1', 'NR', 'S', '2026-01-01', 7), ('NR2', 'NR', 'I', '2026-02-10', 7), "
        "('BT1I', 'BT', 'I', '2026-02-20', NULL), ('FC1', 'FC', 'E', '2026-03-01', 8), "
        "('AE1', 'AE', ' ', '2026-03-01', 8)");
    ExecutaSql(
        "INSERT INTO G_LDOCUM (DOCID, LINIE, ARTID, CANT, CODMAG) VALUES "
        "('NR1', 1, 'A', 10, 1), ('NR2', 1, 'A', 5, 1), ('NR2', 2, 'B', 4, 2), ('NR2', 3, 'C', 1, 1), "
        "('BT1I', 1, 'A', 3, 2), ('FC1', 1, 'A', 6, 1), ('AE1', 1, 'A', 100, 1), "
        "('NR2', 4, 'D', 0.1, 1), ('NR2', 5, 'D', 0.2, 1), ('NR2', 6, 'D', -0.3, 1)");
  }

  static QString sums(const Row& row) {
    return row.text("CodArticol") + ": " + row.decimal("StocInitial").toString() + " " +
           row.decimal("Intrari").toString() + " " + row.decimal("Iesiri").toString();
  }

  QStringList movements(const QString& name, const Values& values) {
    QStringList found;
    for (const Row& row : data_.open(name, values)) found.append(sums(row));
    return found;
  }

  TestCompany company_;
  DataEnvironment data_;
};

TEST_F(NamedCommands, StockMovementSumsTheLedgerUpToEachDate) {
  addMovements();
  const QDate end(2026, 12, 31);
  const QDate february(2026, 2, 15);
  EXPECT_EQ(movements("Miscare_Stocuri", {end, end, end, end, end, end}),
            (QStringList{"A: 10 8 6", "B: 0 4 0"}));
  EXPECT_EQ(movements("Miscare_Stocuri", {end, february, february, end, end, end}),
            (QStringList{"A: 10 5 0", "B: 0 4 0"}));
  // The last three dates determine what is included: only A had stock at the start of the year.
  const QDate newYear(2026, 1, 1);
  EXPECT_EQ(movements("Miscare_Stocuri", {end, end, end, newYear, newYear, newYear}),
            QStringList("A: 10 8 6"));

  const Row article = data_.open("Miscare_Stocuri", {end, end, end, end, end, end}).first();
  EXPECT_EQ(article.columns(),
            (QStringList{"NrCrt", "CodArticol", "DenProdus", "Cost", "CodFamilie", "Familie", "CodFurnizor",
                         "Furnizor", "StocInitial", "Intrari", "Iesiri"}));
  EXPECT_EQ(article.text("Familie") + article.text("Furnizor"), "FierarieAlfa");
}

TEST_F(NamedCommands, StockMovementOfAFamilyPartnerOrWarehouse) {
  addMovements();
  const QDate end(2026, 12, 31);
  const auto byTurns = [&end](int filter) {
    Values values;
    for (int i = 0; i < 6; ++i) values.insert(values.end(), {end, filter});
    return values;
  };
  EXPECT_EQ(movements("Miscare_Stocuri_Familie", byTurns(1)), QStringList("A: 10 8 6"));
  EXPECT_EQ(movements("Miscare_Stocuri_Furnizor", byTurns(7)), (QStringList{"A: 10 5 0", "B: 0 4 0"}));
  EXPECT_EQ(movements("Miscare_Stocuri_Magazie", byTurns(2)), (QStringList{"A: 0 3 0", "B: 0 4 0"}));

  ExecutaSql(
      "INSERT INTO G_STOC (CODART2, DENUMIRE2, STOCART, COSTART, FAM) VALUES ('A', 'Cui', 9, 2.5, 1), "
      "('A', 'Cui', 3, 2.75, 1), ('C', 'Serviciu', 0, 0, 2)");
  EXPECT_EQ(movements("Miscare_StocuriFIFO", {end, end, end, end, end, end}),
            (QStringList{"A: 10 5 6", "A: 10 5 6", "C: 0 1 0"}));
  EXPECT_EQ(movements("Miscare_Stocuri_FamilieFIFO", byTurns(2)), QStringList("C: 0 1 0"));
  EXPECT_TRUE(movements("Miscare_Stocuri_MagazieFIFO", byTurns(2)).isEmpty());
  EXPECT_EQ(data_.open("rapJurnalStocFIFO").size(), 2);
  EXPECT_EQ(data_.open("rapJurnalStocFamFIFO", {1})[1].decimal("COST"), 2.75_dec);
}

TEST_F(NamedCommands, DocumentsOfAPeriodWithTheirPartners) {
  ExecutaSql(
      "INSERT INTO kt_ter (COD, NUME, TIP, CODFISCAL) VALUES (7, 'Alfa', 'F', 'RO7'), (8, 'Beta', 'C', "
      "'RO8')");
  ExecutaSql(
      "INSERT INTO G_DOCUME (ID, TIP, CODTERT, DATADOC, TOTALFT, TOTALTVA, TOTALCOST) VALUES "
      "('FF2', 'FF', 7, '2026-01-31', 100, 19, 0), ('FI1', 'FI', 8, '2026-01-01', 50, 0, 0), "
      "('FC1', 'FC', 8, '2026-01-10', 0.1, 0.02, 5), ('FC2', 'FC', 8, '2026-01-11', 0.2, 0.04, 5), "
      "('FS3', 'FS', 8, '2026-01-10', 30, 5.7, 9), ('FC9', 'FC', 8, '2026-02-01', 1000, 190, 1)");
  const QDate from(2026, 1, 1);
  const QDate to(2026, 1, 31);

  const Recordset purchases = data_.open("Get_Doc_CTVA", {from, to});
  ASSERT_EQ(purchases.size(), 2);
  EXPECT_EQ(purchases[0].text("NumarFactura"), "FI1");
  EXPECT_TRUE(purchases[0].isNull("NumeTert"));  // a customer is no supplier
  EXPECT_EQ(purchases[1].text("NumeTert") + purchases[1].text("CodFiscal"), "AlfaRO7");
  EXPECT_EQ(data_.open("Get_Doc_VTVA", {from, to}).size(), 3);

  const Recordset sales = data_.open("RapVanzari", {from, to});
  ASSERT_EQ(sales.size(), 3);
  EXPECT_EQ(sales[1].text("ID"), "FS3");
  EXPECT_EQ(sales[1].decimal("TOTALFT"), -30);
  EXPECT_EQ(sales[1].decimal("TOTALTVA"), -5.7_dec);

  const Row customer = data_.open("rapStaCl", {1, 99, from, to}).first();
  EXPECT_EQ(customer.decimal("CifraAfaceri"), 0.3_dec);
  EXPECT_EQ(customer.decimal("Cost"), 10);
  EXPECT_TRUE(data_.open("rapStaFr", {9, 99, from, to}).isEmpty());
}

TEST_F(NamedCommands, OrdersAndTheirRemainders) {
  ExecutaSql("INSERT INTO G_ARTMAG (CODART, FARASTOC) VALUES ('A', 0), ('S', -1)");
  ExecutaSql(
      "INSERT INTO G_COMCLI (NUMCOM, CODCLI, DATACOM, REF, VALIDAT) VALUES ('1', 8, '2026-01-10', 'R1', -1), "
      "('2', 8, '2026-01-11', 'R2', 0), ('3', 8, '2026-02-01', 'R3', -1)");
  ExecutaSql(
      "INSERT INTO G_LCOMCL (NUMCOM, NRLINIE, CODART, CANT, CANTLIV, REFERINTA) VALUES ('1', 1, 'A', 10, 4, "
      "'L'), "
      "('1', 2, 'A', 0.3, 0.3, NULL), ('1', 3, 'S', 1, NULL, NULL), ('2', 1, 'A', 5, NULL, NULL), "
      "('3', 1, 'A', 7, 0, NULL)");
  const QDate day(2026, 1, 31);
  const Recordset validated = data_.open("rapComCL", {day});
  ASSERT_EQ(validated.size(), 3);
  EXPECT_EQ(validated[0].decimal("CantitateNelivrata"), 6);
  EXPECT_EQ(validated[0].text("RefComanda"), "L");
  const Recordset open = data_.open("rapComNelivCl", {day});
  ASSERT_EQ(open.size(), 2);
  EXPECT_EQ(open[0].text("RefComanda"), "R1");
  EXPECT_EQ(open[1].decimal("CantitateNelivrata"), 5);
}

}  // namespace
