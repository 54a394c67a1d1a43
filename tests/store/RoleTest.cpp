// The rights of the server's role: those that the program needs, and what is reported when they are missing.
#include <gtest/gtest.h>

#include "TestCompany.h"
#include "util/Errors.h"

namespace velmar {
namespace {

QString refusalOf(const std::function<void()>& work) {
  try {
    work();
    return {};
  } catch (const StoreError& error) {
    return error.text();
  }
}

TEST(RoleOnServerTest, CreatingDatabasesIsAllThatItNeeds) {
  const TestCompany company;
  const QTemporaryDir dir;
  for (const char* role : {"velmar_rol", "velmar_alt"}) {
    database().execute(QStringLiteral("DROP ROLE IF EXISTS ") + role);
    database().execute(QStringLiteral("CREATE ROLE %1 LOGIN CREATEDB").arg(role));
  }
  nameTestServer(dir.path(), "velmar_rol");
  bringTemplateUpToDate(dir.path());
  makeCompanyFile(dir.path(), kFirstCompanyName);
  Database::open(pathInFolder(dir.path(), kFirstCompanyName))
      ->execute("INSERT INTO kt_val (COD, TITLU) VALUES ('AAA', 'a')");
  const auto refusal = [&] { return refusalOf([&] { makeCompanyFile(dir.path(), companyFileName("02")); }); };
  database().execute("ALTER ROLE velmar_rol NOCREATEDB");
  EXPECT_EQ(refusal(),
            "Utilizatorul \"velmar_rol\" nu poate crea baze de date pe server. Rugati administratorul "
            "serverului sa execute comanda: ALTER ROLE \"velmar_rol\" CREATEDB;");
  const auto server = serverOf(dir.path());
  QSettings(QDir(dir.path()).filePath(kServerFile), QSettings::IniFormat).setValue("user", "velmar_alt");
  const QString name = databaseOnServer(*server, kTemplateName);
  EXPECT_EQ(refusal(), QStringLiteral("Baza de date \"%1\" apartine altui utilizator al serverului. Rugati "
                                      "administratorul serverului sa execute comanda: ALTER DATABASE \"%1\" "
                                      "OWNER TO \"velmar_alt\";")
                           .arg(name));
  QSettings(QDir(dir.path()).filePath(kServerFile), QSettings::IniFormat).setValue("user", "velmar");
  for (const QString& each : {kTemplateName, kFirstCompanyName}) removeDatabaseFile(dir.path(), each);
}

}  // namespace
}  // namespace velmar
