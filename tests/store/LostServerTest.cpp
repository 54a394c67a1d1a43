// A connection lost during work: a clear message, nothing half written, and work continues when the server is
// back.
#include <gtest/gtest.h>

#include "TestCompany.h"
#include "util/Errors.h"

namespace velmar {
namespace {

// Ends the open company's connection as a server does when it shuts down.
void loseServer() {
  const qint64 process = OpenRs("SELECT pg_backend_pid() AS NUMBER").first().integer("NUMBER");
  const auto otherUser = Database::open(TestCompany::path());
  otherUser->query("SELECT pg_terminate_backend(CAST(? AS INTEGER)) AS DONE", {process});
}

QString errorOf(const std::function<void()>& work) {
  try {
    work();
    return {};
  } catch (const StoreError& error) {
    return error.text();
  }
}

const QString kLost =
    QStringLiteral("Legatura cu serverul de baze de date s-a pierdut, nu s-a salvat nimic.");

TEST(LostOnServerTest, AListReportsItOnceAndThenReadsAgain) {
  const TestCompany company;
  const MessageRecorder messages;
  const qint64 before = OpenRs("SELECT COUNT(*) AS N FROM kt_val").first().integer("N");
  loseServer();
  const QString text = errorOf([] { OpenRs("SELECT COUNT(*) AS N FROM kt_val"); });
  EXPECT_TRUE(text.startsWith(kLost)) << qPrintable(text);
  EXPECT_EQ(OpenRs("SELECT COUNT(*) AS N FROM kt_val").first().integer("N"), before);
}

TEST(LostOnServerTest, ATransactionIsLostCompletely) {
  const TestCompany company;
  const MessageRecorder messages;
  {
    Transaction transaction(database());
    ExecutaSql("INSERT INTO kt_val (COD, TITLU) VALUES ('AAA', 'a')");
    loseServer();
    EXPECT_NE(errorOf([] { ExecutaSql("INSERT INTO kt_val (COD, TITLU) VALUES ('BBB', 'b')"); }), "");
    // The rest of the transaction must not be executed by itself on a new connection.
    EXPECT_NE(errorOf([] { ExecutaSql("INSERT INTO kt_val (COD, TITLU) VALUES ('CCC', 'c')"); }), "");
    EXPECT_NE(errorOf([&transaction] { transaction.commit(); }), "");
  }
  EXPECT_FALSE(database().inTransaction());
  EXPECT_TRUE(OpenRs("SELECT COD FROM kt_val WHERE COD IN ('AAA', 'BBB', 'CCC')").isEmpty());
  ExecutaSql("INSERT INTO kt_val (COD, TITLU) VALUES ('AAA', 'a')");
  EXPECT_EQ(OpenRs("SELECT COD FROM kt_val WHERE COD = 'AAA'").size(), 1);
}

TEST(LostOnServerTest, TheWriteLockIsReleasedWithItsHolder) {
  const TestCompany company;
  const MessageRecorder messages;
  const auto otherUser = Database::open(TestCompany::path());
  {
    Transaction holder(database());
    loseServer();
    otherUser->execute("INSERT INTO kt_val (COD, TITLU) VALUES ('AAA', 'a')");
  }
  EXPECT_EQ(OpenRs("SELECT COD FROM kt_val WHERE COD = 'AAA'").size(), 1);
}

}  // namespace
}  // namespace velmar
