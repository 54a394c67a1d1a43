#include "config/Checks.h"

#include "config/Lookups.h"
#include "TestCompany.h"

using namespace velmar;
using namespace velmar::literals;

namespace {

class Checks : public testing::Test {
 protected:
  TestCompany company_;
  MessageRecorder messages_;
};

TEST_F(Checks, ExistaComparesLikeItsColumn) {
  ExecutaSql("INSERT INTO G_ARTMAG (CODART, CODPRODFUR) VALUES ('ab''1', 'F9')");
  ExecutaSql("INSERT INTO G_LDOCUM (DOCID, LINIE, CODMAG) VALUES ('BI1', 1, 3)");
  ExecutaSql("INSERT INTO kt_linii (NDI, NRLINIE, TERT, CONT, JURNAL) VALUES (1, 1, 12, '371.1', 'JC')");
  ExecutaSql("INSERT INTO kt_val2 (COD, DATA, CURS) VALUES ('EUR', '2026-03-15', 5.0912)");

  EXPECT_TRUE(Exista("AB'1", "CODARTICOL"));
  EXPECT_FALSE(Exista("ab", "CODARTICOL"));
  EXPECT_TRUE(Exista("3", "MAG_IN_GLINII"));
  EXPECT_FALSE(Exista("3x", "MAG_IN_GLINII"));
  EXPECT_FALSE(Exista("", "TertiLinii"));
  EXPECT_TRUE(Exista(" 12", "TertiLinii"));
  EXPECT_TRUE(Exista("15/03/2026", "Data"));
  EXPECT_FALSE(Exista("15/13/2026", "Data"));
  EXPECT_TRUE(Exista("371.1", "ContLinii"));
  EXPECT_TRUE(Exista("5121", "ContJurnale"));
  EXPECT_TRUE(Exista("jc", "JurnalLinii"));
  EXPECT_TRUE(Exista("ADMIN", "UTILIZATOR"));
  EXPECT_TRUE(ArticolExista("AB'1"));
  EXPECT_TRUE(ProdusFurnizorExista("f9"));
  EXPECT_FALSE(ProdusFurnizorExista("AB'1"));
  EXPECT_TRUE(messages_.isEmpty());
}

TEST_F(Checks, Exista2FindsTheSourceOfALine) {
  ExecutaSql("INSERT INTO G_LFACCL (NUMFAC, NRLINIE, NUMAE) VALUES ('10', 1, 'AE7'), ('10', 2, 'CC8')");
  ExecutaSql("INSERT INTO G_LFACFU (NUMFAC, NRLINIE, NUMCOM) VALUES ('F1', 1, '5')");
  ExecutaSql("INSERT INTO G_LNRFUR (NUMNR, NRLINIE, NUMCOM) VALUES ('N1', 1, 'CF5')");

  EXPECT_TRUE(Exista2("10", "7", "AVIZFACTURA"));
  EXPECT_FALSE(Exista2("10", "8", "AVIZFACTURA"));
  EXPECT_TRUE(Exista2("10", "8", "comandafactura"));
  EXPECT_TRUE(Exista2("8", "", "ccfactura"));
  EXPECT_FALSE(Exista2("7", "", "ccfactura"));
  EXPECT_TRUE(Exista2("7", "ignored", "aefactura"));
  EXPECT_TRUE(Exista2("f1", "5", "comandaff"));
  EXPECT_FALSE(Exista2("F1", "CF5", "comandaff"));
  EXPECT_TRUE(Exista2("N1", "5", "nir"));
  EXPECT_FALSE(Exista2("N2", "5", "nir"));
  EXPECT_TRUE(Exista2("5", "", "cfnir"));
}

TEST_F(Checks, ValuesOutOfRangeReportTheirBound) {
  EXPECT_TRUE(ValidareValoare("", kNumberValue, 5, 10));
  EXPECT_TRUE(ValidareValoare("abc", 1, 5, 10));
  EXPECT_TRUE(ValidareValoare("4,6", kNumberValue, 5, 10));  // whole numbers: 4.6 counts as 5
  EXPECT_TRUE(ValidareValoare("10", kNumberValue, {}, QVariant::fromValue(10_dec)));
  EXPECT_TRUE(ValidareValoare("31.12.2026", kDateValue, QDate(2026, 1, 1), QDate(2026, 12, 31)));
  EXPECT_TRUE(messages_.isEmpty());

  EXPECT_FALSE(ValidareValoare("cinci", kNumberValue));
  EXPECT_FALSE(ValidareValoare("4", kNumberValue, 5));
  EXPECT_FALSE(ValidareValoare("11", kNumberValue, 5, 10));
  EXPECT_FALSE(ValidareValoare("31/02/2026", kDateValue));
  EXPECT_FALSE(ValidareValoare("31/12/2025", kDateValue, QDate(2026, 1, 1)));
  EXPECT_FALSE(ValidareValoare("1/1/2027", kDateValue, {}, QDate(2026, 12, 31)));
  EXPECT_EQ(messages_.take(),
            (QStringList{"Valoarea trebuie sa fie numerica", "Valoarea trebuie sa fie mai mare decat: 5",
                         "Valoarea trebuie sa fie mai mica decat: 10", "Valoarea trebuie sa fie numerica",
                         "Valoarea trebuie sa fie mai mare decat: 01.01.2026",
                         "Valoarea trebuie sa fie mai mica decat: 31.12.2026"}));
}

TEST_F(Checks, LookupsReturnTheirDefaults) {
  ExecutaSql(
      "INSERT INTO G_ARTMAG (CODART, CODPRODFUR, DENART, UM, COST) VALUES ('A1', 'F9', 'Cui', 'Kg', 0.1)");
  ExecutaSql("INSERT INTO kt_val2 (COD, DATA, CURS) VALUES ('EUR', '2026-03-15', 5.0912)");
  ExecutaSql("INSERT INTO kt_cote (COD, CONT, PROCENT) VALUES (90, 'X', NULL)");

  EXPECT_EQ(ValoareSql("SELECT COST FROM G_ARTMAG WHERE CODART = ?", {"a1"}), "0.1");
  EXPECT_EQ(ValoareSql("SELECT COST * 1e20 AS V FROM G_ARTMAG"), "10000000000000000000");
  EXPECT_EQ(ValoareSql("SELECT COST FROM G_ARTMAG WHERE CODART = 'no'"), "");
  EXPECT_EQ(ProcentTVA(1), 19);
  EXPECT_EQ(ProcentTVA(90), 0);
  EXPECT_EQ(ProcentTVA(91), 0);
  EXPECT_EQ(ContTVA(2), "4427");
  EXPECT_EQ(Curs("eur", QDate(2026, 3, 15)), 5.0912_dec);
  EXPECT_EQ(Curs("EUR", QDate(2026, 3, 14)), 0);
  EXPECT_EQ(UMArticol("A1"), "Kg");
  EXPECT_EQ(UMArticol("A2"), "Buc");
  EXPECT_EQ(DenumireArticol("F9", true), "Cui");
  EXPECT_EQ(DenumireArticol("F9", false), "");
  EXPECT_EQ(CodArticolFurnizor("F9"), "A1");
  EXPECT_EQ(CostArticol("A1"), 0.1_dec);
  EXPECT_EQ(CostArticol("A2"), 0);
  EXPECT_EQ(NzGol(QString()), 0);
  EXPECT_EQ(NzGol(QVariant(), 7), 7);
  EXPECT_EQ(NzGol("x", 7), "x");
}

TEST_F(Checks, EntryPeriodCountsBothEndsAndSumsEmptyTheirRecordset) {
  EXPECT_TRUE(InPerioadaCulegere(QDate(2026, 1, 1)));
  EXPECT_TRUE(InPerioadaCulegere(QDate(2026, 12, 31)));
  EXPECT_FALSE(InPerioadaCulegere(QDate(2025, 12, 31)));
  EXPECT_FALSE(InPerioadaCulegere(QDate(2027, 1, 1)));
  EXPECT_FALSE(InPerioadaCulegere({}));

  ExecutaSql(
      "INSERT INTO G_LFACCL (NUMFAC, NRLINIE, VALOAREFT, VALOARETVA) VALUES ('1', 1, 0.1, 1), "
      "('1', 2, 0.2, NULL)");
  Recordset lines = OpenRs("SELECT * FROM G_LFACCL");
  Recordset again = lines;
  EXPECT_EQ(SumaValoareFT(lines), 0.3_dec);
  EXPECT_TRUE(lines.isEmpty());
  EXPECT_EQ(SumaValoareTVA(again), 1);
}

}  // namespace
