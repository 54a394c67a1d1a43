// Several processes in one company file: validations at once, and a process killed in the middle of one.
#include <sys/wait.h>
#include <unistd.h>
#include <algorithm>
#include <csignal>
#include <QElapsedTimer>
#include <random>

#include "catalogue/Articles.h"
#include "catalogue/Families.h"
#include "catalogue/Partners.h"
#include "documents/DocumentEditor.h"
#include "store/Roster.h"
#include "TestCompany.h"

namespace velmar {
namespace {

constexpr int kArticles = 20;

// Waits without asking: these workstations have nobody in front of them.
class PatientSink : public MessageSink {
 public:
  int show(const Message& message) override {
    return message.buttons % 16 == kRetryCancel ? kResultRetry : kResultOk;
  }
};

class WorkstationsTest : public ::testing::Test {
 protected:
  WorkstationsTest() {
    ExecutaSql("UPDATE kt_info SET TCOST = 'FIFO'");
    supplier_ = addPartner(newPartner("FURNIZOR SRL", "F"));
    const qint64 family = addFamily(newFamily("Produse", "371", "607", "707", "345"));
    for (int i = 0; i < kArticles; ++i) {
      Row article = newArticle();
      article.set("CODART", QStringLiteral("A%1").arg(i));
      article.set("DENART", QStringLiteral("A%1").arg(i));
      article.set("FAMART", family);
      article.set("CODFURNIZO", supplier_);
      addArticle(article);
    }
  }

  void validate(const QString& number, int lines) const {
    const QHash<QString, QString> header = {{"NUMNR", number},
                                            {"CODFUR", QString::number(supplier_)},
                                            {"BATVA", "19"},
                                            {"OBS", ""},
                                            {"DATANR", clock::today().toString(Qt::ISODate)}};
    DocumentEditor editor("BI");
    editor.newDocument();
    editor.save(header);
    for (int i = 0; i < lines; ++i) {
      const size_t at = editor.setArticle(editor.lines().size(), QStringLiteral("A%1").arg(i));
      editor.setNumber(at, "CANT", "1");
      editor.setNumber(at, "PRETFT", "10");
      editor.setNumber(at, "PRETVA", "15");
    }
    editor.validate(header);
  }

  // A workstation of its own: another process with its own connection.
  template <typename Work>
  pid_t workstation(Work&& work) const {
    const pid_t process = fork();
    if (process != 0) return process;
    PatientSink patient;
    setMessageSink(&patient);
    try {
      setOpenDatabase(Database::open(company_.path()));
      work();
      _exit(0);
    } catch (...) {
      _exit(1);
    }
  }

  // Closes the connection that fork() would share: an engine's connection belongs to one process.
  void startProcesses(const std::function<void()>& start) const {
    setOpenDatabase(nullptr);
    start();
    setOpenDatabase(Database::open(company_.path()));
  }

  static void expectAllAgrees() {
    EXPECT_TRUE(OpenRs("SELECT D.ID AS ID FROM G_DOCUME D LEFT JOIN G_BONINT H ON D.ID = 'BI' || H.NUMNR "
                       "WHERE COALESCE(H.VALIDAT, 0) = 0 ORDER BY D.ID")
                    .isEmpty());
    EXPECT_TRUE(
        OpenRs("SELECT H.NUMNR AS NUMNR FROM G_BONINT H LEFT JOIN G_DOCUME D ON D.ID = 'BI' || H.NUMNR "
               "WHERE H.VALIDAT <> 0 AND D.ID IS NULL ORDER BY H.NUMNR")
            .isEmpty());
    EXPECT_TRUE(
        OpenRs("SELECT A.CODART AS CODART FROM G_ARTMAG A LEFT JOIN G_LDOCUM L ON L.ARTID = A.CODART "
               "GROUP BY A.CODART, A.STOC HAVING A.STOC <> COALESCE(SUM(L.CANT), 0) ORDER BY A.CODART")
            .isEmpty());
    EXPECT_TRUE(
        OpenRs("SELECT NDI FROM kt_linii GROUP BY NDI "
               "HAVING ROUND_EVEN(SUM(DEBIT) - SUM(CREDIT), 2) <> 0 OR COUNT(DISTINCT DOC) <> 1 ORDER BY NDI")
            .isEmpty());
    EXPECT_EQ(OpenRs("SELECT COUNT(DISTINCT NDI) AS N FROM kt_linii").first().integer("N"),
              OpenRs("SELECT COUNT(*) AS N FROM G_DOCUME").first().integer("N"));
  }

  TestCompany company_;
  HeardMessages heard_;
  qint64 supplier_ = 0;
};

// How many times longer than in the daily run; for a night's run.
int patience() { return std::max(1, qEnvironmentVariableIntValue("VELMAR_WORKSTATION_ROUNDS")); }

TEST_F(WorkstationsTest, EightValidateAtOnce) {
  constexpr int kProcesses = 8;
  const int each = 6 * patience();
  std::vector<pid_t> processes;
  startProcesses([&] {
    for (int p = 0; p < kProcesses; ++p)
      processes.push_back(workstation([this, p, each] {
        for (int i = 0; i < each; ++i) validate(QStringLiteral("%1").arg(p * 10'000 + i), 5);
      }));
    for (const pid_t process : processes) {
      int status = 0;
      waitpid(process, &status, 0);
      EXPECT_EQ(status, 0);
    }
  });
  EXPECT_EQ(OpenRs("SELECT COUNT(*) AS N FROM G_DOCUME").first().integer("N"), kProcesses * each);
  EXPECT_EQ(OpenRs("SELECT COUNT(*) AS N FROM G_LDOCUM").first().integer("N"), kProcesses * each * 5);
  EXPECT_EQ(articleByCode("A0")->decimal("STOC"), Decimal(kProcesses * each));
  expectAllAgrees();
}

// Two work, and now the one, now the other is killed at whatever it does: every second one wherever it is by
// then, its start included, the others once they have validated, so that there is something to find half
// written.
TEST_F(WorkstationsTest, ProcessesKilledAtAnyMomentLeaveNothingHalfWritten) {
  const int kills = 36 * patience();
  constexpr int kPlaces = 2;
  std::minstd_rand dice(20260315);
  startProcesses([&] {
    pid_t processes[kPlaces] = {};
    int validated[kPlaces] = {};
    const auto begin = [&](int round) {
      int ends[2];
      if (pipe(ends) != 0) abort();
      processes[round % kPlaces] = workstation([this, round, &ends] {
        const RosterEntry entry(company_.path(), QStringLiteral("STATIE"));
        for (int i = 0; i < 1000; ++i) {
          validate(QStringLiteral("%1").arg(round * 1000 + i), 2);
          if (i == 0) [[maybe_unused]]
            const auto told = write(ends[1], "x", 1);
        }
      });
      validated[round % kPlaces] = ends[0];
      close(ends[1]);
    };
    for (int round = 0; round < kills + kPlaces; ++round) {
      const pid_t process = processes[round % kPlaces];
      if (process != 0) {
        char done = 0;
        const bool waits = round / kPlaces % 2 == 0;
        EXPECT_TRUE(!waits || read(validated[round % kPlaces], &done, 1) == 1);
        close(validated[round % kPlaces]);
        usleep(5'000 + static_cast<useconds_t>(dice() % 120'000));
        kill(process, SIGKILL);
        int status = 0;
        waitpid(process, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status)) << "it ended by itself, with " << WEXITSTATUS(status);
      }
      begin(round);
    }
    for (int place = 0; place < kPlaces; ++place) {
      kill(processes[place], SIGKILL);
      waitpid(processes[place], nullptr, 0);
      close(validated[place]);
    }
  });
  expectAllAgrees();
  EXPECT_GT(OpenRs("SELECT COUNT(*) AS N FROM G_DOCUME").first().integer("N"), kills / 2 - kPlaces);
  // A server notices within moments that they are gone.
  QElapsedTimer waited;
  waited.start();
  const auto others = [this] {
    QList<Connection> all = connections(company_.path());
    all.removeIf([](const Connection& each) { return each.login != "STATIE"; });
    return all.size();
  };
  while (others() > 0 && waited.elapsed() < 3000) usleep(50'000);
  EXPECT_EQ(others(), 0) << "the roster still names the dead";
  waited.restart();
  validate("9999999", kArticles);
  EXPECT_LT(waited.elapsed(), 5000) << "a lock outlived its holder";
  expectAllAgrees();
}

}  // namespace
}  // namespace velmar
