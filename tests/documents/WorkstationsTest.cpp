// Several processes in one company: simultaneous validations, the race for the last pieces, and processes
// killed at any moment.
#include <algorithm>
#include <csignal>
#include <QElapsedTimer>
#include <random>

#include "documents/LineSource.h"
#include "documents/Undo.h"
#include "store/Roster.h"
#include "Trade.h"
#include "Workstations.h"

namespace velmar {
namespace {

constexpr int kArticles = 20;
constexpr int kProcesses = 8;
class WorkstationsTest : public ::testing::Test {
 protected:
  WorkstationsTest() {
    for (int i = 0; i < kArticles; ++i) trade_.article(code(i), "30", false);
  }

  static QString code(int article) { return QStringLiteral("A%1").arg(article); }

  // An input voucher with one piece of each of the first articles.
  void validate(const QString& number, int lines) const {
    std::vector<TypedLine> typed;
    for (int i = 0; i < lines; ++i) typed.push_back(Trade::bought(code(i), "1", "10", "15"));
    DocumentEditor editor("BI");
    Trade::draft(editor, {{"NUMNR", number}, {"CODFUR", QString::number(trade_.supplier)}, {"BATVA", "19"}},
                 typed);
    editor.validate(editor.headerTexts());
  }

  // Goods are received, sold and consumed; what another workstation has already taken is refused.
  void tradeOn(const QString& number) const {
    const auto done = [](const char* kind, const TypedTexts& header, const std::vector<TypedLine>& lines) {
      DocumentEditor editor(kind);
      Trade::draft(editor, header, lines);
      try {
        editor.validate(editor.headerTexts());
      } catch (const RuleError& error) {
        if (!error.text().contains("are disponibil")) throw;
      }
    };
    done("FF", trade_.purchase(number),
         {Trade::bought("A0", "3", "10", "30"), Trade::bought("A1", "2.5", "7", "30")});
    done("FC", trade_.sale(number), {Trade::out("A0", "2"), Trade::out("A1", "1.25")});
    done("BC", trade_.consumption(number), {Trade::out("A0", "1")});
    validate(number, kArticles);
    takenBack({KindId::ConsumptionVoucher, number});
    takenBack({KindId::InputVoucher, number});
  }

  // Unless others depend on it, or it is taken back already; returns whether it was done.
  static bool takenBack(const LedgerKey& key) {
    try {
      takeBack(key);
      return true;
    } catch (const RuleError& error) {
      if (!error.text().contains("Exista documente de iesire") &&
          !error.text().contains("nu a putut fi mutat"))
        throw;
      return false;
    }
  }

  template <typename Work>
  pid_t workstation(Work&& work) const {
    return velmar::workstation(trade_.company.path(), work);
  }
  void startProcesses(const std::function<void()>& start) const {
    velmar::startProcesses(trade_.company.path(), start);
  }
  template <typename Work>
  void allAtOnce(Work&& work) const {
    velmar::allAtOnce(trade_.company.path(), kProcesses, work);
  }

  static qint64 count(const QString& what) { return OpenRs("SELECT COUNT(" + what).first().integer("N"); }

  static void expectAllAgrees() { EXPECT_EQ(disagreementText(), ""); }

  Trade trade_{"FIFO"};
};

// The factor by which a run is longer than the daily one; for nightly runs.
int patience() { return std::max(1, qEnvironmentVariableIntValue("VELMAR_WORKSTATION_ROUNDS")); }

TEST_F(WorkstationsTest, EightValidateAtOnce) {
  const int each = 6 * patience();
  allAtOnce([&](int p) {
    for (int i = 0; i < each; ++i) validate(QString::number(p * 10'000 + i), 5);
  });
  EXPECT_EQ(count("*) AS N FROM G_DOCUME"), kProcesses * each);
  EXPECT_EQ(count("*) AS N FROM G_LDOCUM"), kProcesses * each * 5);
  EXPECT_EQ(count("DISTINCT NDI) AS N FROM kt_linii"), kProcesses * each);
  EXPECT_EQ(Trade::figure("A0", "STOC"), Decimal(kProcesses * each));
  expectAllAgrees();
}

// Numbers are contiguous, whichever workstation starts a sale first.
TEST_F(WorkstationsTest, EightAtTheCounter) {
  const int each = 4 * patience();
  trade_.validated("FF", trade_.purchase("1"), {Trade::bought("A0", "1000", "10", "30")});
  allAtOnce([&](int) {
    for (int i = 0; i < each; ++i) {
      DocumentEditor editor("BS");
      Trade::draft(editor, {{"BATVA1", "2"}}, {Trade::out("A0", "1"), Trade::out("A0", "2")});
      editor.validate(editor.headerTexts());
    }
  });
  EXPECT_EQ(count("*) AS N FROM G_DOCUME WHERE TIP = 'BS'"), kProcesses * each);
  EXPECT_EQ(OpenRs("SELECT MAX(NDI) AS N FROM kt_linii").first().integer("N"), 1 + kProcesses * each);
  DocumentEditor next("BS");
  next.newDocument();
  EXPECT_EQ(next.number(), QString::number(kProcesses * each + 1));
  expectAllAgrees();
}

// Eight sell the same articles, each with its own invoice numbers, until nothing is left: those that are too
// late are refused because of the stock and for no other reason.
TEST_F(WorkstationsTest, EightSellTheLastPieces) {
  const int each = 5 * patience();
  const int lots = kProcesses * each / 4;
  for (int lot = 0; lot < lots; ++lot)
    trade_.validated("FF", trade_.purchase(QString::number(lot)),
                     {Trade::bought("A0", "3", "10", "30"), Trade::bought("A1", "4", "20", "30")});
  allAtOnce([&](int p) {
    for (int i = 0; i < each; ++i) {
      DocumentEditor editor(i % 4 == 3 ? "BC" : "FC");
      const QString number = QString::number(1000 * (p + 1) + i);
      Trade::draft(editor, editor.kind().prefix == "FC" ? trade_.sale(number) : trade_.consumption(number),
                   {Trade::out("A0", "2"), Trade::out("A1", "1.5")});
      try {
        editor.validate(editor.headerTexts());
      } catch (const RuleError& refused) {
        // A voucher typed when nothing was left has no cost.
        const bool isWorthless = editor.lines()[0].decimal("PRETFT").isZero();
        if (!isWorthless && !refused.text().contains("A0 are disponibil")) throw;
      }
    }
  });
  // A0 runs out first: its pieces are sold two at a time.
  const int sold = lots * 3 / 2;
  EXPECT_EQ(count("*) AS N FROM G_DOCUME WHERE TIPIE = 'E'"), sold);
  EXPECT_EQ(Trade::figure("A0", "STOC"), Decimal(lots * 3 - sold * 2));
  EXPECT_EQ(Trade::figure("A1", "STOC"), Decimal(lots * 4) - Decimal(sold) * 3 / 2);
  expectAllAgrees();
}

// All of one delivery note is on eight drafts: the first to validate has it.
TEST_F(WorkstationsTest, EightBillTheSameDeliveryNote) {
  ExecutaSql("UPDATE kt_par SET CONTAVIZEXP_M = '357', CONTAVIZEXP_P = '354', JURAVIZ = 'AV'");
  trade_.validated("FF", trade_.purchase("1"), {Trade::bought("A0", "10", "10", "30")});
  trade_.validated("AE", trade_.consumption("5"), {Trade::out("A0", "8")});
  allAtOnce([&](int p) {
    DocumentEditor editor("FC");
    Trade::draft(editor, trade_.sale(QString::number(p + 1)), {});
    editor.addLines(*editor.kind().sources.front(), "5", editor.headerTexts());
    if (editor.lines().empty()) return;  // it came too late
    try {
      editor.validate(editor.headerTexts());
    } catch (const RuleError& error) {
      if (!error.text().contains("mai mare decat cea ramasa pe Aviz")) throw;
    }
  });
  EXPECT_EQ(count("*) AS N FROM G_DOCUME WHERE TIP = 'FC'"), 1);
  EXPECT_EQ(OpenRs("SELECT CANTRAMAS FROM G_LAECLI").first().decimal("CANTRAMAS"), Decimal(0));
  expectAllAgrees();
}

// Half of them take the receipt back, half issue from it: one of both is possible, and only once.
TEST_F(WorkstationsTest, EightTakeBackWhatOthersUse) {
  for (int round = 0; round < 4 * patience(); ++round) {
    const QString number = QString::number(round + 1);
    const QString article = code(round % kArticles);
    trade_.validated("FF", trade_.purchase(number), {Trade::bought(article, "8", "10", "30")});
    allAtOnce([&](int p) {
      if (p % 2 == 0) return (void)takenBack({KindId::SupplierInvoice, number});
      DocumentEditor editor("FC");
      Trade::draft(editor, trade_.sale(QString::number(1000 * (p + 1) + round)), {Trade::out(article, "2")});
      try {
        editor.validate(editor.headerTexts());
      } catch (const RuleError& error) {
        if (!error.text().contains("are disponibil")) throw;
      }
    });
    const bool isThere = count("*) AS N FROM G_DOCUME WHERE ID = 'FF" + number + "'") == 1;
    EXPECT_EQ(Trade::figure(article, "STOC"), Decimal(0));
    EXPECT_EQ(count("*) AS N FROM G_LDOCUM WHERE DOCID LIKE 'FC%' AND ARTID = '" + article + "'"),
              isThere ? 4 : 0);
    expectAllAgrees();
  }
}

// Two are running, and now one, now the other is killed: every second one at an arbitrary moment, its start
// included, the others after they have validated, so that there is something that could be half
// written.
TEST_F(WorkstationsTest, ProcessesKilledAtAnyMomentLeaveNothingHalfWritten) {
  const int kills = 50 * patience();
  constexpr int kPlaces = 2;
  std::minstd_rand dice(20260315);
  startProcesses([&] {
    pid_t processes[kPlaces] = {};
    int validated[kPlaces] = {};
    const auto begin = [&](int round) {
      int ends[2];
      if (pipe(ends) != 0) abort();
      processes[round % kPlaces] = workstation([this, round, &ends] {
        const RosterEntry entry(trade_.company.path(), QStringLiteral("STATIE"));
        for (int i = 0; i < 1000; ++i) {
          tradeOn(QString::number(round * 1000 + i));
          if (i == 0) [[maybe_unused]]
            const auto written = write(ends[1], "x", 1);
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
  // A server needs a moment to notice that they have ended.
  QElapsedTimer waited;
  waited.start();
  const auto others = [this] {
    QList<Connection> all = connections(trade_.company.path());
    all.removeIf([](const Connection& each) { return each.login != "STATIE"; });
    return all.size();
  };
  while (others() > 0 && waited.elapsed() < 3000) usleep(50'000);
  EXPECT_EQ(others(), 0) << "the roster still contains ended processes";
  waited.restart();
  validate("9999999", kArticles);
  EXPECT_LT(waited.elapsed(), 5000) << "a lock outlived its holder";
  expectAllAgrees();
}

}  // namespace
}  // namespace velmar
