#include "shell/Denomination.h"

#include "config/Currencies.h"
#include "TestCompany.h"
#include "util/Errors.h"

namespace velmar {
namespace {

// The last statement of the conversion cannot be run.
TEST(DenominationTest, AFailureLeavesEverythingInOldLei) {
  const TestCompany company;
  ExecutaSql("DELETE FROM kt_val WHERE COD = 'ROL'");
  EXPECT_FALSE(hasOldLei());
  ExecutaSql("INSERT INTO G_DOCUME (ID, TIP, DATADOC, TOTALFT) VALUES ('FC1', 'FC', '2005-06-30', 15000)");
  EXPECT_TRUE(hasOldLei());
  const auto total = [] { return OpenRs("SELECT TOTALFT FROM G_DOCUME").first().decimal("TOTALFT"); };
  ExecutaSql("ALTER TABLE G_LCOMCL RENAME TO LOST");
  EXPECT_THROW(convertToNewLei(), StoreError);
  EXPECT_EQ(total(), 15000);
  EXPECT_FALSE(ROL());
  ExecutaSql("ALTER TABLE LOST RENAME TO G_LCOMCL");
  convertToNewLei();
  EXPECT_EQ(total(), 15_dec / 10);
  EXPECT_TRUE(ROL());
  convertToNewLei();
  EXPECT_EQ(total(), 15_dec / 10);
}

}  // namespace
}  // namespace velmar
