#include "config/Numbers.h"

#include "TestCompany.h"
#include "util/Errors.h"

using namespace velmar;

namespace {

class Numbers : public testing::Test {
 protected:
  TestCompany company_;
};

TEST_F(Numbers, NumbersThatAreNotNumericAreIgnored) {
  EXPECT_EQ(NumarUrmator("G_FACCLI"), 1);
  ExecutaSql("INSERT INTO G_FACCLI (NUMFAC) VALUES ('A7'), ('')");
  EXPECT_EQ(NumarUrmator("G_FACCLI"), 1);
  ExecutaSql("INSERT INTO G_FACCLI (NUMFAC) VALUES ('12'), ('100'), ('9A'), ('1,5')");
  EXPECT_EQ(NumarUrmator("G_FACCLI"), 101);  // 13 if compared as text
  ExecutaSql("INSERT INTO G_FACCLI (NUMFAC) VALUES ('1e3'), (' 1000.9 ')");
  EXPECT_EQ(NumarUrmator("G_FACCLI"), 1001);
  ExecutaSql("INSERT INTO G_FACCLI (NUMFAC) VALUES ('99999999999999999999'), ('1e400'), ('-1e400')");
  EXPECT_EQ(NumarUrmator("G_FACCLI"), 1001);
  ExecutaSql("INSERT INTO G_FACCLI (NUMFAC) VALUES ('3000000000')");
  EXPECT_EQ(NumarUrmator("G_FACCLI"), 3000000001);
}

TEST_F(Numbers, EachTableCountsByItsColumn) {
  ExecutaSql("INSERT INTO kt_linii (NDI, NRLINIE) VALUES (41, 1), (41, 2)");
  ExecutaSql("INSERT INTO g_aecli (NUMAE) VALUES ('5')");
  ExecutaSql("INSERT INTO G_BONCASA (NUMFAC) VALUES ('6')");
  ExecutaSql("INSERT INTO G_COMFUR (NUMCOM) VALUES ('7')");
  ExecutaSql("INSERT INTO G_ARTMAG (CODART) VALUES ('9'), ('10')");
  EXPECT_EQ(NumarUrmator("kt_linii"), 42);
  EXPECT_EQ(NumarUrmator("g_aecli"), 6);
  EXPECT_EQ(NumarUrmator("G_BONCASA"), 7);
  EXPECT_EQ(NumarUrmator("G_COMFUR"), 8);
  EXPECT_EQ(NumarUrmator("G_ARTMAG"), 11);
  EXPECT_EQ(NumarUrmator("G_MULTIMAGAZIE"), 1);
  EXPECT_EQ(NumarUrmator("kt_cote"), 13);  // the template's rates go up to 12
}

int failureOf(const QString& table) {
  try {
    NumarUrmator(table);
  } catch (const StoreError& error) {
    return error.number();
  }
  return -1;
}

TEST_F(Numbers, RefusesWhatCannotBeNumbered) {
  ExecutaSql("INSERT INTO G_ARTMAG (CODART) VALUES ('10'), ('A1')");
  EXPECT_EQ(failureOf("G_ARTMAG"), 13);
  EXPECT_EQ(failureOf("kt_jur"), 13);  // its codes are letters
  EXPECT_EQ(failureOf("G_AECLI"), 0);  // only the known spelling counts by NUMAE
  EXPECT_EQ(failureOf("kt_cote; DROP TABLE kt_cote"), 0);
  EXPECT_THROW(LinieUrmatoare("G_FACCLI", "1"), StoreError);
}

TEST_F(Numbers, LastLineOfADocument) {
  ExecutaSql("INSERT INTO G_LFACCL (NUMFAC, NRLINIE) VALUES ('ab1', 1), ('ab1', 4), ('2', 9)");
  EXPECT_EQ(LinieUrmatoare("G_LFACCL", "AB1"), 4);
  EXPECT_EQ(LinieUrmatoare("G_LFACCL", "3"), 0);
  for (const char* table : {"G_LFACIM", "G_LFACFU", "G_LBONCASA", "G_LNRFUR", "G_LBONINT", "G_LPROFO",
                            "G_LAECLI", "G_LBONCON", "G_LTRANSFER", "G_LCOMCL", "G_LCOMFU"})
    EXPECT_EQ(LinieUrmatoare(table, "1"), 0) << table;
}

TEST_F(Numbers, LedgerNumbersFollowTheirPrefix) {
  EXPECT_EQ(FacturaUrmatoare(), 1);
  ExecutaSql(
      "INSERT INTO G_DOCUME (ID, TIP) VALUES ('FCX', 'FC'), ('FC', 'FC'), ('BS200', 'BS'), ('FF900', 'FF')");
  EXPECT_EQ(FacturaUrmatoare(), 1);
  ExecutaSql("INSERT INTO G_DOCUME (ID, TIP) VALUES ('FC9', 'FC'), ('FC10', 'FC')");
  EXPECT_EQ(FacturaUrmatoare(), 11);
  ExecutaSql("INSERT INTO G_DOCUME (ID, TIP) VALUES ('FS15', 'FS'), ('FC99999999999999999999', 'FC')");
  EXPECT_EQ(FacturaUrmatoare(), 16);
  EXPECT_EQ(BonUrmator(), 201);
}

}  // namespace
