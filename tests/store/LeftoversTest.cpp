// Unfinished files of a killed process are removed at the next opportunity, those of a running process are
// kept.
#include <sys/wait.h>
#include <unistd.h>
#include <csignal>
#include <QDateTime>
#include <QFile>

#include "shell/Login.h"
#include "shell/SampleCompany.h"
#include "store/DataChanges.h"
#include "store/PostgresEngine.h"
#include "store/Upkeep.h"
#include "TestCompany.h"
#include "util/Errors.h"
#include "util/Settings.h"

namespace velmar {
namespace {

// Runs a function in a separate process, which stops when it calls its argument, and keeps it running
// meanwhile.
class Worker {
 public:
  explicit Worker(const std::function<void(const std::function<void()>& stop)>& work) {
    int reached[2];
    if (pipe(reached) != 0) abort();
    setOpenDatabase(nullptr);  // a connection belongs to one process
    process_ = fork();
    if (process_ == 0) {
      try {
        work([&] {
          [[maybe_unused]] const auto written = write(reached[1], "x", 1);
          pause();
        });
      } catch (...) {
        // The reader sees the pipe closed.
      }
      _exit(1);
    }
    close(reached[1]);
    char byte = 0;
    EXPECT_EQ(read(reached[0], &byte, 1), 1);
    close(reached[0]);
  }
  ~Worker() { end(); }
  void end() {
    if (process_ <= 0) return;
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
    process_ = 0;
    usleep(200'000);  // until a server has noticed
  }

 private:
  pid_t process_ = 0;
};

QStringList namesIn(const QString& folder, const QString& pattern) {
  return QDir(folder).entryList({pattern}, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

void makeOlder(const QString& folder, const QString& pattern) {
  for (const QString& name : namesIn(folder, pattern))
    EXPECT_EQ(
        ::system(qPrintable(QStringLiteral("touch -d '2 hours ago' '%1'").arg(QDir(folder).filePath(name)))),
        0);
}

TEST(LeftoversTest, OfASave) {
  const TestCompany company;
  const QTemporaryDir place;
  const QString file = place.filePath("Copie.mdb");
  Worker worker([&](const auto& stop) {
    saveCompany(*Database::open(TestCompany::path()), file, [&](int, int) { stop(); });
  });
  makeOlder(place.path(), ".salvare-*");
  saveCompany(*Database::open(TestCompany::path()), file);
  EXPECT_EQ(namesIn(place.path(), ".salvare-*").size(), 1) << "its process is running";
  worker.end();
  saveCompany(*Database::open(TestCompany::path()), file);
  EXPECT_EQ(namesIn(place.path(), "*"), QStringList("Copie.mdb"));
}

TEST(LeftoversTest, OfARestoreAndOfACreation) {
  const TestCompany company;
  const QTemporaryDir place;
  const QString folder = TestCompany::folder();
  const QString file = place.filePath("Copie.mdb");
  const QString fresh = QDir(folder).filePath("Tarvon55.mdb");
  saveCompany(*Database::open(TestCompany::path()), file);
  settings::setFolder(place.path());
  settings::setDatabasesPath(folder);
  const auto enter = [] { EXPECT_TRUE(Login().load()); };
  const auto draft = [&folder] { return databaseExists(folder, "Tarvon55.mdb.nou"); };
  // Everything is prepared, the draft closed, and the final name not taken yet.
  Worker worker([&](const auto& stop) { restoreCompany(file, fresh, stop); });
  enter();
  EXPECT_TRUE(draft()) << "its process is running";
  EXPECT_THROW(makeCompanyFile(folder, "Tarvon55.mdb"), StoreError);
  EXPECT_TRUE(draft());
  worker.end();
  enter();
  EXPECT_FALSE(draft());
  makeCompanyFile(folder, "Tarvon55.mdb");
  removeDatabaseFile(folder, "Tarvon55.mdb");
  settings::setFolder({});
}

TEST(LeftoversTest, OfTheSampleCompany) {
  const TestCompany company;
  const QTemporaryDir place;
  nameTestServer(place.path());
  settings::setFolder(place.path());
  settings::setDatabasesPath(place.path());
  const auto enter = [] { EXPECT_TRUE(Login().load()); };
  bringTemplateUpToDate(place.path());
  enter();
  Worker worker([&](const auto& stop) {
    class Stopper : public QObject {
    } listener;
    QObject::connect(&dataChanges(), &DataChanges::written, &listener, [&](const QSet<QString>& tables) {
      if (tables.contains("G_BONINT")) stop();
    });
    makeSampleCompany(place.path());
  });
  const QStringList workshops = namesIn(place.path(), "Exemplu-*");
  ASSERT_EQ(workshops.size(), 1);
  makeOlder(place.path(), "Exemplu-*");
  enter();
  EXPECT_EQ(namesIn(place.path(), "Exemplu-*"), workshops) << "its process is running";
  const auto server = serverOf(place.filePath(workshops.first()));
  worker.end();
  enter();
  EXPECT_EQ(namesIn(place.path(), "Exemplu-*"), QStringList());
  EXPECT_EQ(server ? postgres::databasesLike(*server, ".*") : QStringList(), QStringList());
  EXPECT_TRUE(databaseExists(place.path(), kFirstCompanyName));
  MessageRecorder messages;
  EXPECT_TRUE(makeSampleCompany(place.path()));
  for (const char* name : {"Tarvon.mdb", "Tarvon01.mdb", "Tarvon02.mdb"})
    removeDatabaseFile(place.path(), name);
  settings::setFolder({});
}

}  // namespace
}  // namespace velmar
