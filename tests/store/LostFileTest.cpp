// The file of a company goes away or is damaged while the program runs, or was before it starts.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include "store/BackgroundRead.h"
#include "store/CompanyList.h"
#include "store/DataChanges.h"
#include "store/FileCheck.h"
#include "store/Roster.h"
#include "store/Server.h"
#include "store/Upkeep.h"
#include "TestCompany.h"
#include "util/Errors.h"
#include "util/FileContent.h"
#include "util/FileRights.h"

namespace velmar {
namespace {

class LostFileTest : public ::testing::Test {
 protected:
  LostFileTest() {
    clock::setToday(QDate(2026, 3, 15));
    bringTemplateUpToDate(dir_.path());
    makeCompanyFile(dir_.path(), kFirstCompanyName);
    setOpenDatabase(Database::open(path_));
    QObject::connect(&dataChanges(), &DataChanges::fileLost, &here_, [this] { ++lost_; });
  }
  ~LostFileTest() override {
    setOpenDatabase(nullptr);
    clock::setToday({});
  }

  static void article(const QString& code) {
    ExecutaSql("INSERT INTO G_ARTMAG (CODART, DENART) VALUES (?, 'Scaun')", {code});
  }
  static void expectRefused(const std::function<void()>& work, const char* text) {
    try {
      work();
      ADD_FAILURE() << "not refused: " << text;
    } catch (const StoreError& error) {
      EXPECT_TRUE(error.text().contains(QLatin1String(text))) << qUtf8Printable(error.text());
    }
  }

  QTemporaryDir dir_;
  QString path_ = QDir(dir_.path()).filePath(kFirstCompanyName);
  QString aside_ = QDir(dir_.path()).filePath("Mutat.mdb");
  QObject here_;
  int lost_ = 0;
};

TEST_F(LostFileTest, NothingIsSavedIntoAFileThatIsNotThere) {
  const std::function<void()> losses[] = {[&] { QFile::remove(path_); },
                                          [&] { QFile::rename(path_, aside_); },
                                          [&] {
                                            QFile::copy(QDir(dir_.path()).filePath(kTemplateName), aside_);
                                            putFileInPlace(aside_, path_);
                                          }};
  for (const auto& lose : losses) {
    article("A1");
    {
      Transaction halfway(database());
      article("A2");
      lose();
      expectRefused([&] { halfway.commit(); }, "nu mai este la locul lui");
    }
    expectRefused([] { article("A3"); }, "Nu s-a salvat nimic.");
    EXPECT_EQ(std::exchange(lost_, 0), 2);
    // What was saved before is in the file that is still open.
    const QString copy = QDir(dir_.path()).filePath("Copie.mdb");
    saveCompany(database(), copy);
    const Recordset saved = Database::open(copy)->query("SELECT CODART FROM G_ARTMAG");
    ASSERT_EQ(saved.size(), 1);
    EXPECT_EQ(saved.first().text("CODART"), "A1");
    setOpenDatabase(nullptr);
    for (const char* each :
         {"Mutat.mdb", "Mutat.mdb-wal", "Tarvon01.mdb", "Tarvon01.mdb-wal", "Tarvon01.mdb-shm"})
      QFile::remove(QDir(dir_.path()).filePath(each));
    makeCompanyFile(dir_.path(), kFirstCompanyName);
    setOpenDatabase(Database::open(path_));
  }
}

// SQLite would overwrite the file with the pages that the journal has of the other one.
TEST_F(LostFileTest, NoFileIsOpenedWithTheJournalOfAnother) {
  const auto contentOf = [](const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  };
  auto entry = std::make_unique<RosterEntry>(path_, "ana");
  article("A1");
  makeCompanyFile(dir_.path(), "Tarvon02.mdb");
  QFile::copy(QDir(dir_.path()).filePath("Tarvon02.mdb"), aside_);
  QFile::remove(path_);
  QFile::rename(QDir(dir_.path()).filePath("Tarvon02.mdb"), path_);
  const QByteArray journal = contentOf(path_ + "-wal");
  expectRefused([&] { Database::open(path_); }, "Tarvon01.mdb-wal are datele fisierului vechi");
  expectRefused([] { readInThread([] {}, [] {}); }, "nu mai este la locul lui");
  expectRefused([] { database().compact(); }, "nu mai este la locul lui");
  entry.reset();
  setOpenDatabase(nullptr);
  expectRefused([&] { Database::open(path_); }, "Tarvon01.mdb-wal are datele fisierului vechi");
  EXPECT_EQ(contentOf(path_), contentOf(aside_));
  EXPECT_EQ(contentOf(path_ + "-wal"), journal);
  // As the message advises.
  for (const char* side : {"-wal", "-shm"}) QFile::rename(path_ + side, aside_ + side);
  Database::open(path_);
}

// A workstation that leaves removes the journal unless it sees the locks of the others.
TEST_F(LostFileTest, TheJournalStaysWhenAnotherProcessLeaves) {
  setOpenDatabase(nullptr);
  int go[2];
  ASSERT_EQ(pipe(go), 0);
  const pid_t other = fork();
  if (other == 0) {
    close(go[1]);
    char end = 0;
    const bool goes = read(go[0], &end, 1) == 0;
    _exit(goes && Database::open(path_)->query("SELECT * FROM kt_info").size() == 1 ? 0 : 3);
  }
  close(go[0]);
  setOpenDatabase(Database::open(path_));
  article("A1");
  Database::open(path_);  // like the check of the file and every report
  EXPECT_THROW(fileContent(path_, 1'000'000), RuleError);
  close(go[1]);
  int status = -1;
  waitpid(other, &status, 0);
  EXPECT_EQ(status, 0);
  article("A2");
  EXPECT_EQ(Database::open(path_)->query("SELECT CODART FROM G_ARTMAG").size(), 2);
}

TEST_F(LostFileTest, ADamagedFileIsReportedAndNotSaved) {
  for (int i = 0; i < 2000; ++i) article(QStringLiteral("A%1").arg(i));
  setOpenDatabase(nullptr);
  QFile file(path_);
  ASSERT_TRUE(file.open(QIODevice::ReadWrite));
  // The last page that is in use holds articles or their index.
  for (qint64 page = file.size() / 4096 - 1; page > 0; --page) {
    file.seek(page * 4096);
    if (!file.read(4096).contains("Scaun")) continue;
    file.seek(page * 4096 + 3);
    file.write("\xff\xff\xff\xff", 4);
    break;
  }
  file.close();
  setOpenDatabase(Database::open(path_));
  FileCheck check(path_);
  QElapsedTimer waited;
  waited.start();
  QString damage;  // kept: nothing has connected to the signal
  while ((damage = check.takeDamage()).isEmpty() && waited.elapsed() < 10'000) QThread::msleep(1);
  EXPECT_TRUE(damage.contains("este deteriorat"));
  expectRefused([&] { saveCompany(database(), aside_); }, "este deteriorat");
  EXPECT_FALSE(QFile::exists(aside_));
}

TEST_F(LostFileTest, AStartMakesNoCompanyOverWhatIsLeftOfOne) {
  QString noName = "00";
  article("A1");
  QFile::remove(path_);
  expectRefused([&] { IncarcaSocietati(dir_.path(), noName); }, "Tarvon01.mdb-wal are date din ea");
  setOpenDatabase(nullptr);
  QFile::remove(path_ + "-wal");
  QFile::link(QDir(dir_.path()).filePath("alt disc/Tarvon01.mdb"), path_);
  EXPECT_EQ(IncarcaSocietati(dir_.path(), noName).size(), 1);
  expectRefused([&] { Database::open(path_); }, "Lipseste baza de date");
}

TEST_F(LostFileTest, FilesThatAreNotPlainOnesAreRefused) {
  expectRefused([&] { pathInFolder(dir_.path(), "../alt/Tarvon01.mdb"); }, "nu este numele unui fisier");
  for (const QString& name :
       {aside_, QDir(dir_.path()).filePath("Societat.xml"), QDir(dir_.path()).filePath(kServerFile)}) {
    QFile::remove(name);
    ASSERT_EQ(mkfifo(name.toUtf8().constData(), 0600), 0);
  }
  expectRefused([&] { Database::open(aside_); }, "nu este un fisier obisnuit");
  expectRefused([&] { serverOf(dir_.path()); }, "nu este un fisier obisnuit");
  const QString server = QDir(dir_.path()).filePath(kServerFile);
  QFile::remove(server);
  expectRefused([&] { readCompanyList(dir_.path()); }, "nu este un fisier obisnuit");
  QFile empty(server);
  ASSERT_TRUE(empty.open(QIODevice::WriteOnly));
  expectRefused([&] { serverOf(dir_.path()); }, "este gol");
}

TEST_F(LostFileTest, OtherAccountsCannotReadWhatTheGroupDoesNotShare) {
  const auto rights = [](const QString& path) {
    struct stat status {};
    stat(path.toUtf8().constData(), &status);
    return status.st_mode & 0777;
  };
  const QDir dir(dir_.path());
  saveCompany(database(), aside_);
  readCompanyList(dir_.path());
  article("A1");
  const QStringList all = {path_, path_ + "-wal", aside_, dir.filePath("Societat.xml"),
                           dir.filePath(kTemplateName)};
  for (const QString& file : all) EXPECT_EQ(rights(file), 0600U) << qUtf8Printable(file);
  chmod(dir_.path().toUtf8().constData(), 0770);
  for (const QString& file : all) {
    protectFile(file);
    EXPECT_EQ(rights(file), 0660U) << qUtf8Printable(file);
  }
  ASSERT_TRUE(dir.mkdir("Salv_Tarvon"));
  protectFolder(dir.filePath("Salv_Tarvon"));
  EXPECT_EQ(rights(dir.filePath("Salv_Tarvon")), 0770U);
}

}  // namespace
}  // namespace velmar
