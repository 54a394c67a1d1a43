// The sample company: on the last days of years and months, in folders with any name, and started by several
// processes at once on an empty folder.
#include "shell/SampleCompany.h"

#include <sys/wait.h>
#include <unistd.h>
#include <QDir>

#include "documents/Invariants.h"
#include "shell/ApplicationFolder.h"
#include "shell/Login.h"
#include "TestCompany.h"
#include "util/Settings.h"

namespace velmar {
namespace {

class SampleCompanyTest : public testing::Test {
 protected:
  ~SampleCompanyTest() override {
    settings::setFolder({});
    session() = Session();
    clock::setToday({});
  }

  void start(const QString& folder) const {
    settings::setFolder(folder);
    prepareApplicationFolder(folder);
    Login login;
    ASSERT_TRUE(login.load());
    makeSampleCompany(session().gCaleBD);
  }

  // The hearing-aid shop: every kind of bill, a storno, and what waits for the user.
  static void expectShop(const QString& folder) {
    ASSERT_TRUE(makeHearingSampleCompany(folder));
    setOpenDatabase(Database::open(folder + "/Tarvon03.mdb"));
    EXPECT_EQ(disagreementText(), "");
    const auto count = [](const QString& from) {
      return OpenRs("SELECT COUNT(*) AS N FROM " + from).first().integer("N");
    };
    EXPECT_EQ(count("G_COMANDA_AUDIO"), 40);
    EXPECT_EQ(count("G_COMANDA_AUDIO WHERE IsImport <> 0"), 3);
    EXPECT_GE(count("G_FacturiClientiAudio WHERE Validat <> 0 AND ID_PunctLucru IS NOT NULL"), 4);
    EXPECT_GE(count("G_FacturiClientiAudio WHERE Validat <> 0 AND ID_PunctLucru IS NULL"), 6);
    EXPECT_EQ(count("G_FacturiClientiAudio WHERE IsStorno <> 0"), 1);
    EXPECT_EQ(count("G_FacturiClientiAudio WHERE Validat = 0"), 1);
    EXPECT_EQ(count("G_AsocieriBonuriFacturiAudio"), 1);
    EXPECT_EQ(count("G_BonReparatii WHERE Validat = 0"), 1);
    setOpenDatabase(nullptr);
  }

  void expectWhole(const QString& folder) const {
    EXPECT_EQ(QDir(folder).entryList({"*.nou*", "*.lock", "*-wal"}), QStringList());
    const auto company = Database::open(folder + "/Tarvon02.mdb");
    const auto count = [&company](const QString& from) {
      return company->query("SELECT COUNT(*) AS N FROM " + from).first().integer("N");
    };
    EXPECT_EQ(count("G_BONINT"), 40);
    EXPECT_EQ(count("G_BONINT WHERE VALIDAT = 0"), 1);
    EXPECT_EQ(count("G_DOCUME WHERE TIP = 'BI'"), 39);
    EXPECT_EQ(count("G_FACFUR WHERE VALIDAT <> 0"), 26);
    EXPECT_GE(count("G_FACCLI WHERE VALIDAT <> 0"), 45);
    EXPECT_GE(count("G_BONCON WHERE VALIDAT <> 0"), 10);
    EXPECT_EQ(count("G_FACCLI WHERE VALIDAT = 0"), 0);
    EXPECT_GE(count("G_BONCASA WHERE VALIDAT <> 0"), 50);
    EXPECT_LE(count("G_BONCASA WHERE VALIDAT = 0"), 1);
    EXPECT_EQ(count("G_LCOMCL WHERE CANT > COALESCE(CANTLIV, 0)"), 1);
    EXPECT_EQ(count("G_LCOMFU WHERE CANTRLIV > 0"), 1);
    EXPECT_EQ(count("G_LDOCUM WHERE DOCID LIKE 'AE%' AND CANTRAMASA > 0"), 1);
    EXPECT_EQ(count("(SELECT DISTINCT TIP FROM G_DOCUME) K"), 13);  // all kinds
  }

  QTemporaryDir place_;
  MessageRecorder messages_;
};

TEST_F(SampleCompanyTest, AnyDayAndAnyFolder) {
  const std::pair<QDate, QString> starts[] = {{QDate(2026, 1, 1), "/Societ\u0103\u021bile mele"},
                                              {QDate(2026, 12, 31), "/a#b?c=%20%1"},
                                              {QDate(2028, 2, 29), "/d'\";:&"}};
  for (const auto& [today, name] : starts) {
    clock::setToday(today);
    // A path may begin with two slashes, as under a home folder "/".
    start(u'/' + place_.path() + name);
    expectWhole(place_.path() + name);
    expectShop(place_.path() + name);
  }
}

TEST_F(SampleCompanyTest, FourProcessesStartOnAnEmptyFolder) {
  std::vector<pid_t> processes;
  for (int i = 0; i < 4; ++i) {
    processes.push_back(fork());
    if (processes.back() != 0) continue;
    try {
      start(place_.path());
      _exit(HasFailure() ? 1 : 0);
    } catch (...) {
      _exit(1);
    }
  }
  for (const pid_t process : processes) {
    int status = 0;
    waitpid(process, &status, 0);
    EXPECT_EQ(status, 0);
  }
  expectWhole(place_.path());
}

}  // namespace
}  // namespace velmar
