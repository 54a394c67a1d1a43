// The settings of a server; the rights of its role: those that the program needs, and what is reported when
// they are missing.
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

TEST(ServerSettingsTest, SeveralHosts) {
  const QTemporaryDir dir;
  const auto read = [&dir](const QByteArray& settings) {
    QFile file(dir.filePath(kServerFile));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(settings);
    file.close();
    return serverOf(dir.path());
  };
  const auto pair = read("[General]\nhost=unu, doi\nport=5432,5433\nrootcert=ca.crt\n");
  EXPECT_EQ(pair->host + ' ' + pair->port + ' ' + pair->tls, "unu,doi 5432,5433 require");
  EXPECT_EQ(pair->rootCertificate, dir.filePath("ca.crt"));
  EXPECT_TRUE(pair->hasStandby());
  EXPECT_EQ(read("host=\"localhost,doi\"\n")->tls, "require") << "one is another machine";
  const auto local = read("host=/tmp,localhost\n");
  EXPECT_EQ(local->host + ' ' + local->port + ' ' + local->tls, "/tmp,localhost 5432 prefer");
  EXPECT_TRUE(refusalOf([&] {
                read("host=unu,doi\nport=1,2,3\n");
              }).endsWith(" are 2 servere la host, dar 3 porturi la port."));
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
