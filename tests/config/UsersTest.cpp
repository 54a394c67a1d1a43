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
  EXPECT_THROW(changeUser("admin", "NUME", "sef"), RuleError);
  addUser(user("ana", "x", 1));
  // An older program may have renamed it: then another user needs all rights first.
  ExecutaSql("UPDATE UTILIZATORI SET NUME = 'sef' WHERE NUME = 'admin'");
  EXPECT_THROW(removeUser("sef"), RuleError);
  EXPECT_THROW(changeUser("sef", "TIP", "1"), RuleError);
  changeUser("ana", "TIP", "0");
  removeUser("sef");
  EXPECT_EQ(OpenRs("SELECT NUME FROM UTILIZATORI").size(), 1);
}

TEST(UsersTest, ARefusedChangeWritesNothing) {
  const TestCompany company;
  addUser(user("ana", "x", 1));
  for (const char* name : {"", "  ", "Admin", "un nume prea lung", "d'ana"})
    EXPECT_THROW(changeUser("ana", "NUME", name), RuleError) << name;
  for (const char* password : {" ", "x'y"}) EXPECT_THROW(changeUser("ana", "PAROLA", password), RuleError);
  EXPECT_THROW(addUser(user("dan", "x", 3)), RuleError);
  for (const char* type : {"", "unu", "1,5", "-1", "3"})
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
