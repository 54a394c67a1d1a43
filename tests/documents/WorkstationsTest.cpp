// Several processes in one company file: validations at once, and a process killed in the middle of one.
#include <sys/wait.h>
#include <unistd.h>
#include <csignal>

#include "catalogue/Articles.h"
#include "catalogue/Families.h"
#include "catalogue/Partners.h"
#include "documents/DocumentEditor.h"
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

TEST_F(WorkstationsTest, FourValidateAtOnce) {
  constexpr int kProcesses = 4;
  constexpr int kEach = 10;
  std::vector<pid_t> processes;
  startProcesses([&] {
    for (int p = 0; p < kProcesses; ++p)
      processes.push_back(workstation([this, p] {
        for (int i = 0; i < kEach; ++i) validate(QStringLiteral("%1").arg(p * 100 + i), 5);
      }));
    for (const pid_t process : processes) {
      int status = 0;
      waitpid(process, &status, 0);
      EXPECT_EQ(status, 0);
    }
  });
  EXPECT_EQ(OpenRs("SELECT COUNT(*) AS N FROM G_DOCUME").first().integer("N"), kProcesses * kEach);
  EXPECT_EQ(articleByCode("A0")->decimal("STOC"), Decimal(kProcesses * kEach));
  expectAllAgrees();
}

TEST_F(WorkstationsTest, AProcessKilledInTheMiddleLeavesNothingHalfWritten) {
  for (int round = 0; round < 12; ++round) {
    startProcesses([&] {
      int first[2];
      ASSERT_EQ(pipe(first), 0);
      const pid_t process = workstation([&, round] {
        for (int i = 0; i < 1000; ++i) {
          validate(QStringLiteral("%1").arg(round * 1000 + i), 2);
          if (i == 0) [[maybe_unused]]
            const auto told = write(first[1], "x", 1);
        }
      });
      char done = 0;
      ASSERT_EQ(read(first[0], &done, 1), 1);
      usleep(static_cast<useconds_t>(round) * 3771);
      kill(process, SIGKILL);
      waitpid(process, nullptr, 0);
      close(first[0]);
      close(first[1]);
    });
    expectAllAgrees();
  }
  EXPECT_GE(OpenRs("SELECT COUNT(*) AS N FROM G_DOCUME").first().integer("N"), 12);
  validate("99999", kArticles);
}

}  // namespace
}  // namespace velmar
