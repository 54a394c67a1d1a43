// A server with a synchronous standby: the server is lost during work and the standby is promoted.
#include <sys/wait.h>
#include <unistd.h>
#include <QProcess>
#include <thread>

#include "Trade.h"

namespace velmar {
namespace {

void server(const QString& action, const QString& inner = {}) {
  const QString dir = qEnvironmentVariable("VELMAR_TEST_SERVER").section(u',', 0, 0);
  ASSERT_EQ(QProcess::execute(qEnvironmentVariable("VELMAR_TEST_SERVER_SCRIPT"), {action, dir + inner}), 0);
}

const QString kStandby = QStringLiteral("/standby");
const char* const kWrite = "INSERT INTO kt_val (COD, TITLU) VALUES ('AAA', 'a')";

bool isWritten() { return !OpenRs("SELECT COD FROM kt_val WHERE COD = 'AAA'").isEmpty(); }

class StandbyOnServerTest : public ::testing::Test {
 protected:
  StandbyOnServerTest() {
    for (const char* action : {"start", "standby"}) server(action);
    bringTemplateUpToDate(TestCompany::folder());
    trade_ = std::make_unique<Trade>("FIFO");
    trade_->article("A0", "30", false);
  }

  // Commits a row while the standby is stopped, so that the commit waits for it while `meanwhile` runs.
  static QString commitWhile(const std::function<void()>& meanwhile) {
    server("pause", kStandby);
    std::thread other([&] {
      usleep(500'000);
      meanwhile();
    });
    QString text;
    try {
      Transaction transaction(database());
      ExecutaSql(kWrite);
      transaction.commit();
    } catch (const StoreError& error) {
      text = error.text();
    }
    other.join();
    return text;
  }

  // Validates vouchers until ten after the row of commitWhile() is there; writes the number of each that was
  // reported as done to the pipe. Returns how often the user saw that the connection was lost.
  int writeVouchers(int process, int pipe) const {
    int messages = 0;
    const auto untilDone = [&messages](const std::function<void()>& step) {
      while (true) try {
          return step();
        } catch (const std::runtime_error& error) {
          if (!QString(error.what()).contains("nu s-a salvat nimic")) throw;
          ++messages;
        }
    };
    for (int number = process * 100'000, after = 0; after < 10; ++number) {
      std::unique_ptr<DocumentEditor> editor;
      untilDone([&] {
        editor = std::make_unique<DocumentEditor>("BI");
        Trade::draft(*editor,
                     {{"NUMNR", QString::number(++number)}, {"CODFUR", QString::number(trade_->supplier)}},
                     {Trade::bought("A0", "1", "10", "15")});
      });
      untilDone([&] { editor->validate(editor->headerTexts()); });
      if (write(pipe, &number, sizeof number) != sizeof number) abort();
      untilDone([&after] { after += isWritten(); });
    }
    return messages;
  }

  std::unique_ptr<Trade> trade_;
};

TEST_F(StandbyOnServerTest, WhatWasReportedIsKeptAndWorkContinues) {
  const QString path = TestCompany::path();
  setOpenDatabase(nullptr);
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  pid_t processes[2];
  for (int p = 0; p < 2; ++p) {
    processes[p] = fork();
    if (processes[p] != 0) continue;
    try {
      setOpenDatabase(Database::open(path));
      _exit(writeVouchers(p + 1, ends[1]));
    } catch (const std::exception& error) {
      std::fprintf(stderr, "%s\n", error.what());
      _exit(99);
    }
  }
  close(ends[1]);
  QStringList reported;
  int number = 0;
  while (read(ends[0], &number, sizeof number) == sizeof number) {
    reported.append(QStringLiteral("BI%1").arg(number));
    if (reported.size() != 20) continue;
    for (const char* action : {"pause", "promote"}) server(action);
    setOpenDatabase(Database::open(path));
    ExecutaSql(kWrite);
  }
  for (const pid_t process : processes) {
    int status = 0;
    waitpid(process, &status, 0);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_LE(WEXITSTATUS(status), 1) << "messages";
  }
  QStringList stored;
  for (const Row& row : OpenRs("SELECT ID FROM G_DOCUME")) stored.append(row.text("ID"));
  std::sort(stored.begin(), stored.end());
  std::sort(reported.begin(), reported.end());
  EXPECT_EQ(stored, reported) << "each is stored, and none twice";
  EXPECT_EQ(disagreementText(), "");
}

// The answer to a commit is lost: it succeeds if the server has the transaction, and is reported if it does
// not.
TEST_F(StandbyOnServerTest, ALostAnswerIsFoundOut) {
  const qint64 process = OpenRs("SELECT pg_backend_pid() AS NUMBER").first().integer("NUMBER");
  EXPECT_EQ(commitWhile([&] {
              Database::open(TestCompany::path())
                  ->query("SELECT pg_terminate_backend(CAST(? AS INTEGER)) AS DONE", {process});
              server("resume", kStandby);
            }),
            "");
  EXPECT_TRUE(isWritten());
  ExecutaSql("DELETE FROM kt_val WHERE COD = 'AAA'");
  const QString lost = commitWhile([] {
    server("pause");
    server("resume", kStandby);
    server("promote");
  });
  EXPECT_TRUE(lost.contains("nu s-a salvat nimic")) << qPrintable(lost);
  EXPECT_FALSE(isWritten());
  ExecutaSql(kWrite);
  server("resume");
  setOpenDatabase(Database::open(TestCompany::path()));
  EXPECT_TRUE(isWritten()) << "the first server is back, but no longer the right one";
}

}  // namespace
}  // namespace velmar
