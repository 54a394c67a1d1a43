// The list windows with a large catalogue: 100,000 articles, 50,000 partners, a ledger of a million lines and
// 500,000 lines of notes; each operation compared with the best single statement for the same result.
#include <functional>
#include <QApplication>
#include <QLineEdit>
#include <QScrollBar>

#include "Bare.h"
#include "Benches.h"
#include "catalogue/windows/frmArticole.h"
#include "catalogue/windows/frmTerti.h"
#include "config/Accounts.h"
#include "Fixture.h"
#include "store/windows/TDBGrid.h"

namespace velmar::bench {

namespace {

constexpr double kOpenAimMs = 300;
constexpr double kSearchAimMs = 50;
constexpr double kScrollAimMs = 40;
constexpr double kBalanceAimMs = 500;
constexpr double kTurnoverAimMs = 2000;
constexpr int kWindowRounds = 10;

constexpr const char* kPartnerPage =
    "SELECT T.*, A.NUME, (SELECT SUM(DEBIT - CREDIT) FROM kt_linii WHERE TERT = T.COD) FROM kt_ter T "
    "LEFT JOIN kt_ter A ON A.COD = T.ID_Angajator WHERE T.TIP <> 'F' ORDER BY T.NUME LIMIT 100";
constexpr const char* kArticlePage =
    "SELECT A.*, F.DENUMIRE, T.NUME FROM G_ARTMAG A LEFT JOIN G_FAMART F ON F.COD = A.FAMART "
    "LEFT JOIN kt_ter T ON T.COD = A.CODFURNIZO ORDER BY A.CODART LIMIT 100";

// Processes events until the window is painted.
void settle() {
  QApplication::sendPostedEvents();
  QApplication::processEvents();
}

void measure(Store store, const QString& name, double aim, int rounds, const std::function<void()>& ours,
             const std::function<void()>& bare) {
  Times windows, statements;
  for (int round = 0; round < rounds; ++round) {
    windows.add(timed(ours));
    statements.add(timed(bare));
  }
  noteRatio(QStringLiteral("lists: ") + name, store, windows.median() / statements.median());
  printRow(name, {milliseconds(windows.median()),
                  milliseconds(windows.worst()) + (windows.worst() > aim ? QStringLiteral(" !") : QString()),
                  milliseconds(statements.median()), QStringLiteral("<= %1 ms").arg(aim)});
}

void search(QWidget& window, const QString& text) {
  auto* box = window.findChild<QLineEdit*>("txtCautare");
  box->setText(text);
  emit box->returnPressed();
  settle();
}

template <typename Window>
void measureOpening(Store store, const QString& name, BareStatement& page,
                    const std::function<Window*()>& make) {
  measure(
      store, name, kOpenAimMs, kWindowRounds,
      [&make] {
        const std::unique_ptr<Window> window(make());
        window->show();
        settle();
      },
      [&page] { page.run(); });
}

void measureScrolling(Store store, QWidget& window, BareConnection& bare) {
  auto* grid = window.findChild<TDBGrid*>("grdDataGrid");
  BareStatement page = bare.prepare(
      "SELECT A.*, F.DENUMIRE, T.NUME FROM G_ARTMAG A LEFT JOIN G_FAMART F ON F.COD = A.FAMART LEFT JOIN "
      "kt_ter "
      "T ON T.COD = A.CODFURNIZO WHERE A.CODART > ? ORDER BY A.CODART LIMIT 100");
  int step = 0;
  measure(
      store, QStringLiteral("un ecran mai departe"), kScrollAimMs, kRounds,
      [grid, &step] {
        grid->verticalScrollBar()->setValue(++step * 2'000 % grid->verticalScrollBar()->maximum());
        settle();
      },
      [&page, &step] {
        const std::string from = QString::asprintf("A%06d", step * 100).toStdString();
        page.bind(1, from).run();
      });
}

}  // namespace

bool measureLists(Store store) {
  const QString path = copyOfCompany(store, CompanySize::Grown, QStringLiteral("liste.mdb"));
  const OpenCompany company(path);
  BareConnection bare(path);
  printHeading(store, QStringLiteral("lists: 100.000 articole, 50.000 terti"),
               {QStringLiteral("median"), QStringLiteral("maxim"), QStringLiteral("o instr."),
                QStringLiteral("tinta")});

  BareStatement articlePage = bare.prepare(kArticlePage);
  BareStatement partnerPage = bare.prepare(kPartnerPage);
  measureOpening<frmArticole>(store, QStringLiteral("deschidere articole"), articlePage,
                              [] { return new frmArticole; });
  measureOpening<frmTerti>(store, QStringLiteral("deschidere clienti"), partnerPage,
                           [] { return new frmTerti(QStringLiteral("C")); });

  frmArticole articles;
  articles.resize(articles.sizeHint());
  articles.show();
  settle();
  BareStatement names =
      bare.prepare("SELECT CODART FROM G_ARTMAG WHERE DENART >= ? AND DENART < ? ORDER BY DENART");
  for (const char* letters : {"s", "sca", "robinet model 7"}) {
    const std::string from = letters;
    const std::string to = from + "\xf4\x8f\xbf\xbf";
    measure(
        store, QStringLiteral("articole: \"%1\"").arg(QString::fromLatin1(letters)), kSearchAimMs, kRounds,
        [&] { search(articles, QString::fromLatin1(letters)); },
        [&] { names.bind(1, from).bind(2, to).run(); });
  }
  search(articles, {});
  measureScrolling(store, articles, bare);

  frmTerti partners(QStringLiteral("C"));
  partners.resize(partners.sizeHint());
  partners.show();
  settle();
  auto* grid = partners.findChild<TDBGrid*>("grdDataGrid");
  BareStatement balances = bare.prepare(
      "SELECT T.COD, S.SOLD FROM kt_ter T LEFT JOIN (SELECT TERT, SUM(DEBIT - CREDIT) AS SOLD FROM kt_linii "
      "WHERE "
      "TERT IS NOT NULL GROUP BY TERT) S ON S.TERT = T.COD WHERE T.TIP <> 'F' ORDER BY S.SOLD, T.COD");
  bool down = false;
  measure(
      store, QStringLiteral("terti dupa sold"), kBalanceAimMs, kWindowRounds,
      [grid, &down] {
        grid->sortBy({{QStringLiteral("SOLD")}, down = !down});
        settle();
      },
      [&balances] { balances.run(); });
  const QDate day(2026, 3, 15);
  BareStatement turnovers = bare.prepare(
      "SELECT CONT, SUM(DEBIT), SUM(CREDIT) FROM kt_linii WHERE DATAINR <= '2026-03-15' GROUP BY CONT");
  measure(
      store, QStringLiteral("rulaje"), kTurnoverAimMs, kWindowRounds, [day] { storeTurnovers(day); },
      [&turnovers] { turnovers.run(); });
  return true;
}

}  // namespace velmar::bench
