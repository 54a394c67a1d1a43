#include <gtest/gtest.h>
#include <QDir>

#include "shell/ApplicationFolder.h"
#include "shell/Login.h"
#include "TestCompany.h"
#include "util/Errors.h"
#include "util/FileNames.h"
#include "util/Settings.h"

namespace velmar {

namespace {

// A computer on which the program starts for the first time.
class LoginTest : public testing::Test {
 protected:
  LoginTest() {
    session() = Session();
    settings::setFolder(place_.filePath("settings"));
    QDir(place_.path()).mkdir("settings");
    prepareApplicationFolder(application());
  }

  ~LoginTest() override {
    leaveCompany();
    session() = Session();
    settings::setFolder({});
  }

  QString application() const { return place_.filePath("app"); }

  QString makeFolder(const QString& name) const {
    QDir(place_.path()).mkdir(name);
    QFile::copy(application() + "/Tarvon.mdb", place_.filePath(name) + "/Tarvon.mdb");
    return place_.filePath(name);
  }

  static QString refusal(const Login& login, const QString& user, const QString& password) {
    try {
      login.enter("Tarvon01.mdb", "SOCIETATE", user, password);
    } catch (const RuleError& error) {
      EXPECT_EQ(error.icon(), kCritical);
      return error.text();
    }
    return {};
  }

  QTemporaryDir place_;
};

TEST_F(LoginTest, WithoutAPathAndATemplateThereIsNoList) {
  QFile::remove(application() + "/Tarvon.mdb");
  EXPECT_FALSE(Login().load());
  EXPECT_EQ(settings::databasesPath(), "");
}

TEST_F(LoginTest, AFolderIsAcceptedByItsTemplateOrTheCurrentCompanysFile) {
  const QString other = makeFolder("other");
  Login login;
  ASSERT_TRUE(login.load());
  EXPECT_EQ(settings::databasesPath(), application());
  EXPECT_FALSE(login.chooseFile(other + "/Altceva.mdb", "Tarvon01.mdb"));
  EXPECT_FALSE(login.chooseFile(other + "/Tarvon02.mdb", {}));
  EXPECT_EQ(session().gCaleBD, application());

  EXPECT_TRUE(login.chooseFile(other + "/tarvon01.MDB", "Tarvon01.mdb"));
  EXPECT_EQ(session().gCaleBD, other);
  EXPECT_EQ(settings::databasesPath(), other);
  EXPECT_TRUE(login.chooseFile(application() + "/TARVON.mdb", {}));
  EXPECT_EQ(session().gCaleBD, application());
}

TEST_F(LoginTest, AnUnusableFolderIsRefusedAndTheOldOneKept) {
  Login login;
  ASSERT_TRUE(login.load());
  EXPECT_THROW(login.chooseFile(place_.filePath("nowhere/Tarvon.mdb"), {}), StoreError);
  EXPECT_EQ(session().gCaleBD, application());
  EXPECT_EQ(settings::databasesPath(), application());
  EXPECT_EQ(login.companies().size(), 1);
}

TEST_F(LoginTest, LoginChecksUserAndPassword) {
  Login login;
  login.load();
  EXPECT_EQ(refusal(login, "ion", "admin"), "Utilizatorul ion nu exista !");
  EXPECT_EQ(refusal(login, "admin", "x' OR 'a' = 'a"), "Parola nu este corecta !");
  EXPECT_EQ(refusal(login, "admin", ""), "Parola nu este corecta !");
  EXPECT_EQ(openDatabase(), nullptr);
  EXPECT_THROW(login.enter("", "", "admin", "admin"), RuleError);

  login.enter("Tarvon01.mdb", "SOCIETATE", "Admin", "admin");
  const Session& s = session();
  EXPECT_EQ(s.gUtilizator, "ADMIN");
  EXPECT_EQ(s.gTipUtilizator, 0);
  EXPECT_EQ(s.gNumeBD, "Tarvon01.mdb");
  EXPECT_EQ(s.gDenSocietate, "SOCIETATE");
  EXPECT_EQ(s.NrZec, 2);
  EXPECT_TRUE(s.DataIC.isValid());
  const QList<Connection> connected = connections(s.gConexiune);
  ASSERT_EQ(connected.size(), 1);
  EXPECT_EQ(connected[0].login, "ADMIN");

  leaveCompany();
  EXPECT_EQ(openDatabase(), nullptr);
  EXPECT_TRUE(connections(application() + "/Tarvon01.mdb").isEmpty());
}

TEST_F(LoginTest, TheVersionIsCheckedBeforeTheUser) {
  QStringList seen;
  Login login([&seen](bool force) {
    ASSERT_NE(openDatabase(), nullptr);
    seen << (force ? "force" : "check");
    if (force) throw StoreError(5, "oprit");
  });
  login.load();
  refusal(login, "ion", "");
  EXPECT_THROW(login.enter("Tarvon01.mdb", "", "admin", "admin", true), StoreError);
  EXPECT_EQ(seen, QStringList({"check", "force"}));
  EXPECT_EQ(openDatabase(), nullptr);
}

TEST_F(LoginTest, ADatabaseThatCannotBeOpenedIsReported) {
  Login login;
  login.load();
  QFile file(application() + "/Tarvon01.mdb");
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("no database");
  file.close();
  EXPECT_THROW(login.enter("Tarvon01.mdb", "", "admin", "admin"), StoreError);
  EXPECT_THROW(login.enter("Tarvon77.mdb", "", "admin", "admin"), StoreError);
  EXPECT_EQ(openDatabase(), nullptr);
}

TEST_F(LoginTest, ThePreparedFolderKeepsWhatTheUserChanged) {
  const QString picture = application() + "/BMP/OK.bmp";
  QFile file(picture);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("mine");
  file.close();
  QFile::remove(application() + "/BMP/Iesire.bmp");
  prepareApplicationFolder(application());
  EXPECT_EQ(QFileInfo(picture).size(), 4);
  EXPECT_TRUE(QFile::exists(application() + "/BMP/Iesire.bmp"));
  EXPECT_THROW(prepareApplicationFolder("/proc/velmar"), StoreError);
}

TEST_F(LoginTest, TheWindowPositionHasDefaultsAndIsStored) {
  EXPECT_EQ(settings::mainWindowPlace().left, 1000);
  EXPECT_EQ(settings::mainWindowPlace().height, 6500);
  settings::setMainWindowPlace({-150, 30, 12000, 9000});
  EXPECT_EQ(settings::mainWindowPlace().left, -150);
  EXPECT_EQ(settings::mainWindowPlace().width, 12000);
}

}  // namespace

}  // namespace velmar
