#include "config/Users.h"

#include "store/Records.h"
#include "TestCompany.h"

namespace velmar {
namespace {

Row user(const QString& name, const QString& password, int type) {
  Row row = rowOf("NUME PAROLA TIP");
  row.set("NUME", name);
  row.set("PAROLA", password);
  row.set("TIP", type);
  return row;
}

TEST(UsersTest, ACompanyAlwaysKeepsAUserWithAllRights) {
  const TestCompany company;
  EXPECT_THROW(removeUser("Admin"), RuleError);
  EXPECT_THROW(changeUser("ADMIN", "TIP", "1"), RuleError);
  EXPECT_THROW(addUser(user("ADMIN", "x", 0)), RuleError);
  changeUser("admin", "NUME", "sef");
  EXPECT_THROW(removeUser("sef"), RuleError);
  EXPECT_THROW(changeUser("sef", "TIP", "1"), RuleError);
  addUser(user("ana", "x", 1));
  EXPECT_THROW(removeUser("sef"), RuleError) << "ana cannot stand in";
  changeUser("ana", "TIP", "0");
  removeUser("sef");
  EXPECT_EQ(OpenRs("SELECT NUME FROM UTILIZATORI").size(), 1);
}

TEST(UsersTest, ARefusedChangeWritesNothing) {
  const TestCompany company;
  addUser(user("ana", "x", 1));
  for (const char* name : {"", "  ", "Admin", "un nume prea lung"})
    EXPECT_THROW(changeUser("ana", "NUME", name), RuleError) << name;
  EXPECT_THROW(changeUser("ana", "PAROLA", " "), RuleError);
  for (const char* type : {"", "unu", "1,5", "-1", "10"})
    EXPECT_THROW(changeUser("ana", "TIP", type), RuleError) << type;
  EXPECT_THROW(changeUser("nimeni", "PAROLA", "y"), RuleError) << "deleted by another user";
  changeUser("ana", "NUME", "Ana");
  const Row row = record(companyTable("UTILIZATORI"), "ana");
  EXPECT_EQ(row.text("NUME"), "Ana");
  EXPECT_EQ(row.text("PAROLA"), "x");
  EXPECT_EQ(row.integer("TIP"), 1);
}

}  // namespace
}  // namespace velmar
