// Random but reproducible histories of a hearing-aid shop, several workstations, and processes killed at any
// moment: after each step all data is consistent. VELMAR_SEQUENCES is the number of histories per method.
#include <gtest/gtest.h>
#include <csignal>
#include <QElapsedTimer>
#include <random>

#include "documents/Undo.h"
#include "documents/Workstations.h"
#include "hearing/Cancellation.h"
#include "Shop.h"

namespace velmar {
namespace {

class History {
 public:
  History(Shop& shop, int number)
      : shop_(shop), random_(static_cast<unsigned>(number)), next_(number * 1000) {}

  /// Executes one step; returns its description.
  QString step() {
    const QString number = QString::number(++next_);
    try {
      switch (below(10)) {
        case 0:
          shop_.buy(number, below(2) == 0 ? "AP1" : "PIESA", QString::number(1 + below(5)),
                    QString::number(10 + below(90)), clock::today().addDays(-below(20)));
          return "FF" + number;
        case 1:
        case 2:
          addOrder(shop_.order(number, below(3) == 0 ? "AP2" : "AP1", "2101.50", below(4) == 0 ? "0" : "900",
                               below(2) == 0));
          return "comanda " + number;
        case 3:
          shop_.voucher(number, below(2) == 0, {{"PIESA", below(2) == 0 ? "1" : "0.125"}});
          return "bon " + number;
        case 4:
        case 5:
        case 6:
          return billed(number);
        case 7:
          return cancelled(number);
        default:
          return takenBack();
      }
    } catch (const RuleError& refused) {
      return number + " refuzat: " + refused.text();
    }
  }

 private:
  int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }

  QString billed(const QString& number) {
    const auto by = static_cast<BilledBy>(1 + below(4));
    const qint64 client = by == BilledBy::Insurer     ? shop_.insurer
                          : by == BilledBy::WorkPoint ? shop_.workPoint
                                                      : shop_.patient;
    const qint64 draft = shop_.invoice(number, client, by, {});
    const Row header = storedInvoice(draft);
    if (by == BilledBy::Voucher) {
      for (const Row& row : billableVouchers(header))
        if (row.flag("Validat") && below(2) == 0) attachVoucher(draft, row.integer("ID_BonReparatie"));
    } else {
      for (const Row& row : billableOrders(header, by))
        if (below(2) == 0) attachOrder(draft, row.integer("ID_Comanda"));
    }
    if (below(4) == 0) return "ciorna " + number;
    shop_.validateDraft(draft);
    return "factura " + number;
  }

  QString cancelled(const QString& number) {
    const Recordset invoices =
        OpenRs("SELECT Nr FROM G_FacturiClientiAudio WHERE Validat <> 0 ORDER BY ID_Factura");
    if (invoices.isEmpty()) return "nimic";
    const QString invoice = invoices[below(invoices.size())].text("Nr");
    cancelHearingInvoice({KindId::DeviceInvoice, invoice}, number, clock::today());
    return "storno " + number + " la " + invoice;
  }

  QString takenBack() {
    const Recordset documents = OpenRs("SELECT ID FROM G_DOCUME WHERE IsAudio <> 0 ORDER BY ID");
    if (documents.isEmpty()) return "nimic";
    const LedgerKey key = *LedgerKey::of(documents[below(documents.size())].text("ID"), true);
    takeBack(key);
    if (key.kind == KindId::DeviceInvoice && below(2) == 0) {
      const qint64 draft = OpenRs("SELECT ID_Factura FROM G_FacturiClientiAudio WHERE Nr = ?", {key.number})
                               .first()
                               .integer("ID_Factura");
      shop_.validateDraft(draft);
    }
    return "sters " + key.text();
  }

  Shop& shop_;
  std::mt19937 random_;
  int next_;
};

void runHistories(const QString& method) {
  constexpr int kHistories = 12;
  constexpr int kSteps = 30;
  const int wanted = qEnvironmentVariableIntValue("VELMAR_SEQUENCES");
  int validated = 0;
  for (int number = 1; number <= (wanted > 0 ? wanted : kHistories); ++number) {
    Shop shop(method);
    shop.buy("1", "AP1", "6", "400", clock::today().addDays(-30));
    shop.buy("2", "PIESA", "6", "20", clock::today().addDays(-30));
    History history(shop, number);
    QStringList steps;
    for (int step = 0; step < kSteps; ++step) {
      steps.append(history.step());
      ASSERT_EQ(disagreementText(), "") << "history " << number << ": " << qUtf8Printable(steps.join(", "));
    }
    validated += static_cast<int>(
        OpenRs("SELECT COUNT(*) AS N FROM G_DOCUME WHERE IsAudio <> 0").first().integer("N"));
  }
  EXPECT_GT(validated, 20);
}

TEST(HearingHistoriesTest, EverythingIsConsistentUnderFifo) { runHistories("FIFO"); }
TEST(HearingHistoriesTest, EverythingIsConsistentUnderTheAverage) { runHistories("MP"); }

// Of workstations that bill one order or voucher one gets it.
TEST(HearingWorkstationsTest, OneOfThemGetsTheOrder) {
  Shop shop("FIFO");
  shop.buy("1", "PIESA", "9", "20");
  const qint64 order = addOrder(shop.order("1", "AP1", "2101.50", "900"));
  const qint64 voucher = shop.voucher("1", true, {{"PIESA", "1"}});
  std::vector<qint64> drafts;
  for (int i = 0; i < 4; ++i)
    drafts.push_back(shop.invoice(QString::number(10 + i), shop.insurer, BilledBy::Insurer, {}));
  allAtOnce(shop.company.path(), 4, [&](int place) {
    for (const auto& attach :
         {std::function<void()>([&] { attachOrder(drafts[static_cast<size_t>(place)], order); }),
          std::function<void()>([&] { attachVoucher(drafts[static_cast<size_t>(place)], voucher); })})
      try {
        attach();
      } catch (const RuleError& error) {
        if (!error.text().contains("este deja pe factura")) throw;
      }
  });
  EXPECT_EQ(OpenRs("SELECT * FROM G_AsocieriComenziFacturiAudio").size(), 1);
  EXPECT_EQ(OpenRs("SELECT * FROM G_AsocieriBonuriFacturiAudio").size(), 1);
  EXPECT_EQ(disagreementText(), "");
}

TEST(HearingWorkstationsTest, KilledProcessesLeaveNothingHalfWritten) {
  Shop shop("FIFO");
  shop.buy("1", "AP1", "900", "400");
  shop.buy("2", "PIESA", "900", "20");
  constexpr int kKills = 50;
  std::mt19937 random(7);
  const auto work = [&shop](int i) {
    const QString number = QString::number(100 + i);
    const qint64 order = addOrder(shop.order(number, "AP1", "2101.50", "900"));
    const qint64 voucher = shop.voucher(number, true, {{"PIESA", "1"}});
    const qint64 draft = shop.invoice(number, shop.insurer, BilledBy::Insurer, {order});
    shop.validateDraft(draft);
    const qint64 repair = shop.invoice("9" + number, shop.patient, BilledBy::Voucher, {});
    attachVoucher(repair, voucher);
    shop.validateDraft(repair);
    cancelHearingInvoice({KindId::DeviceInvoice, "9" + number}, "8" + number, clock::today());
    takeBack({KindId::DeviceStorno, "8" + number});
  };
  // The moments of the kills depend on how long the work takes on this machine, with this build.
  QElapsedTimer timer;
  timer.start();
  work(kKills);
  const auto whole = static_cast<unsigned>(timer.nsecsElapsed() / 1000);
  for (int i = 0; i < kKills; ++i) {
    killedAfter(shop.company.path(), 500 + static_cast<int>(random() % (2UL * whole)), [&] { work(i); });
    ASSERT_EQ(disagreementText(), "") << i;
  }
  EXPECT_GT(OpenRs("SELECT ID_Factura FROM G_FacturiClientiAudio").size(), 5);
}

}  // namespace
}  // namespace velmar
