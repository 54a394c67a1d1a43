// The lists of documents and movements, the corrections, the check and the deletion over a ledger of a
// million lines, compared with bare statements for the same result.
#include <functional>
#include <QApplication>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <vector>

#include "Bare.h"
#include "Benches.h"
#include "documents/Invariants.h"
#include "documents/LedgerLists.h"
#include "documents/windows/frmLDoc.h"
#include "documents/windows/frmMiscariStoc.h"
#include "Fixture.h"
#include "stock/Corrections.h"
#include "store/Database.h"
#include "store/ListRows.h"

namespace velmar::bench {

namespace {

constexpr int kWindowRounds = 7;
constexpr int kLongRounds = 3;
constexpr int kPage = 100;
constexpr double kPageAim = 1.5;
constexpr double kWorkAim = 2;

// The statements for what the first page needs, and the sums of all rows.
const std::string kDocumentPage =
    "SELECT D.*, T.NUME FROM G_DOCUME D LEFT JOIN kt_ter T ON D.CODTERT = T.COD ORDER BY D.DATADOC DESC "
    "NULLS LAST "
    "LIMIT 100";
const std::string kDocumentsOfDay =
    "SELECT D.*, T.NUME FROM G_DOCUME D LEFT JOIN kt_ter T ON D.CODTERT = T.COD WHERE D.DATADOC = ? "
    "ORDER BY D.DATADOC DESC";
const std::string kMovements =
    " FROM G_LDOCUM L INNER JOIN G_DOCUME D ON D.ID = L.DOCID INNER JOIN G_MULTIMAGAZIE M ON M.COD = "
    "L.CODMAG "
    "INNER JOIN G_ARTMAG A ON A.CODART = L.ARTID LEFT JOIN kt_ter T ON T.COD = D.CODTERT";
const std::string kMovementPage =
    "SELECT L.*, D.*, A.DENART, M.DENUMIRE, T.NUME FROM G_LDOCUM L LEFT JOIN G_DOCUME D ON D.ID = L.DOCID "
    "LEFT JOIN G_MULTIMAGAZIE M ON M.COD = L.CODMAG LEFT JOIN G_ARTMAG A ON A.CODART = L.ARTID LEFT JOIN "
    "kt_ter T ON T.COD = D.CODTERT WHERE NOT (D.ID IS NULL OR M.COD IS NULL OR A.CODART IS NULL) ORDER BY "
    "L.LINIE, L.DOCID LIMIT 100";
const std::string kMovementsOfArticle = "SELECT L.*, D.*, A.DENART, M.DENUMIRE, T.NUME" + kMovements +
                                        " WHERE L.ARTID = ? ORDER BY L.LINIE, L.DOCID";
const std::string kMovementSums =
    "SELECT COUNT(*), SUM(VALTVA), SUM(PRETFT * CANT), SUM(PRETTTI * CANT), SUM(VALCOST)" + kMovements;
const std::string kStockSums =
    "SELECT L.ARTID, SUM(CASE WHEN D.TIPIE IN ('I', 'S') THEN L.CANT ELSE -L.CANT END) FROM G_DOCUME D "
    "INNER JOIN G_LDOCUM L ON L.DOCID = D.ID WHERE D.TIPIE IS NOT NULL GROUP BY L.ARTID";

// One pass for each thing that the check compares: stock and lots, warehouses, links of both ends, costs,
// notes, lines and documents.
const char* const kCheckSums[] = {
    "SELECT L.ARTID, SUM(CASE WHEN D.TIPIE IN ('I', 'S') THEN L.CANT ELSE -L.CANT END), SUM(L.CANTRAMASA) "
    "FROM "
    "G_LDOCUM L INNER JOIN G_DOCUME D ON D.ID = L.DOCID WHERE D.TIPIE IN ('I', 'S', 'E') GROUP BY L.ARTID",
    "SELECT L.ARTID, L.CODMAG, SUM(CASE WHEN D.TIPIE IN ('I', 'S') THEN L.CANT ELSE -L.CANT END) FROM "
    "G_LDOCUM "
    "L INNER JOIN G_DOCUME D ON D.ID = L.DOCID WHERE D.TIPIE IN ('I', 'S', 'E') GROUP BY L.ARTID, L.CODMAG",
    "SELECT DOCID, ARTID, SUM(CANT), SUM(CANTRAMASA) FROM G_LDOCUM GROUP BY DOCID, ARTID",
    "SELECT ID_I, CODART, SUM(CANT) FROM G_I_E GROUP BY ID_I, CODART",
    "SELECT TIP_E, ID_E, CODART, SUM(CANT) FROM G_I_E GROUP BY TIP_E, ID_E, CODART",
    "SELECT DOCID, COUNT(*), SUM(VALCOST) FROM G_LDOCUM GROUP BY DOCID",
    "SELECT NDI, SUM(DEBIT), SUM(CREDIT), COUNT(DISTINCT DOC) FROM kt_linii WHERE PROV = 'G' GROUP BY NDI",
    "SELECT FELDOC, DOC, SUM(DEBIT), SUM(CREDIT) FROM kt_linii WHERE PROV = 'G' GROUP BY FELDOC, DOC",
    "SELECT D.ID FROM G_DOCUME D WHERE NOT EXISTS (SELECT 1 FROM G_LDOCUM L WHERE L.DOCID = D.ID)",
    "SELECT L.DOCID FROM G_LDOCUM L LEFT JOIN G_DOCUME D ON D.ID = L.DOCID WHERE D.ID IS NULL"};

void settle() {
  QApplication::sendPostedEvents();
  QApplication::processEvents();
}

// Until the number of rows is known.
void settleWholly(QWidget& window) {
  const auto* count = window.findChild<QLabel*>("lblNoRecs");
  for (QDeadlineTimer deadline(60'000); !deadline.hasExpired();) {
    settle();
    if (count->text() != QLatin1String("...")) return;
    QThread::usleep(20);
  }
}

// The rows alone, then the whole window.
template <typename Window>
void measureOpening(Store store, const QString& name, const ListQuery& list, const QString& order,
                    bool descending, BareStatement& page, BareStatement* sums) {
  compare(
      store, QStringLiteral("browser"), name + QStringLiteral(": prima pagina"), kPageAim, kRounds,
      [&] {
        const ListRows rows(list, {}, order, descending, ListRows::Read::FirstPart);
        rows.fetch(0, kPage - 1);
      },
      [&page] { page.readAll(); });
  Times opening;
  for (int round = 0; round < kWindowRounds; ++round)
    opening.add(timed([] {
      Window window;
      window.show();
      settle();
    }));
  printRow(name + QStringLiteral(": fereastra"), {milliseconds(opening.median())});
  if (!sums) return;
  compare(
      store, QStringLiteral("browser"), name + QStringLiteral(": numar si totaluri"), kPageAim, kLongRounds,
      [] {
        Window window;
        window.show();
        settleWholly(window);
      },
      [sums] { sums->run(); });
}

template <typename Window>
void measureFilter(Store store, const QString& name, const QString& column, const QString& value,
                   BareStatement& found) {
  Window window;
  window.show();
  settleWholly(window);
  compare(
      store, QStringLiteral("browser"), name, kPageAim, kRounds,
      [&] {
        window.showOnly(column, value);
        settleWholly(window);
      },
      [&] { found.readAll(); });
}

}  // namespace

bool measureBrowser(Store store) {
  const QString path = copyOfCompany(store, CompanySize::Grown, QStringLiteral("documente.mdb"));
  const OpenCompany company(path);
  BareConnection bare(path);
  printHeading(store, QStringLiteral("browser: 1.000.000 de miscari"),
               {QStringLiteral("program"), QStringLiteral("instr."), QStringLiteral("raport"),
                QStringLiteral("tinta")});
  BareStatement documents = bare.prepare(kDocumentPage.c_str());
  BareStatement movements = bare.prepare(kMovementPage.c_str());
  BareStatement sums = bare.prepare(kMovementSums.c_str());
  measureOpening<frmLDoc>(store, QStringLiteral("documente"), documentList(),
                          QStringLiteral("DATADOC, DATAINTROD, TIMP"), true, documents, nullptr);
  measureOpening<frmMiscariStoc>(store, QStringLiteral("miscari"), movementList(),
                                 QStringLiteral("LINIE, DOCID"), false, movements, &sums);

  const QDate day = OpenRs("SELECT MAX(DATADOC) AS DATADOC FROM G_DOCUME").first().date("DATADOC");
  BareStatement ofDay = bare.prepare(kDocumentsOfDay.c_str());
  ofDay.bind(1, day.toString(Qt::ISODate).toStdString());
  measureFilter<frmLDoc>(store, QStringLiteral("documentele unei zile"), QStringLiteral("DATADOC"),
                         day.toString(QStringLiteral("dd.MM.yyyy")), ofDay);
  BareStatement ofArticle = bare.prepare(kMovementsOfArticle.c_str());
  ofArticle.bind(1, std::string("A000123"));
  measureFilter<frmMiscariStoc>(store, QStringLiteral("miscarile unui articol"), QStringLiteral("CODARTICOL"),
                                QStringLiteral("A000123"), ofArticle);

  BareStatement stock = bare.prepare(kStockSums.c_str());
  compare(
      store, QStringLiteral("browser"), QStringLiteral("corectie stocuri"), kWorkAim, kLongRounds,
      [] { CorectArticoleTable(); }, [&stock] { stock.run(); });
  compare(
      store, QStringLiteral("browser"), QStringLiteral("corectie stocuri si avize"), kWorkAim, kLongRounds,
      [] { correctStockAndNotes(); }, [&stock] { stock.run(); });
  compare(
      store, QStringLiteral("browser"), QStringLiteral("diferente loturi"), kWorkAim, kLongRounds,
      [] { lotDifferences(); }, [&stock] { stock.run(); });
  BareStatement issued = bare.prepare(
      "SELECT L.ARTID, SUM(L.CANT) FROM G_DOCUME D INNER JOIN G_LDOCUM L ON L.DOCID = D.ID WHERE D.TIPIE = "
      "'E' "
      "GROUP BY L.ARTID");
  compare(
      store, QStringLiteral("browser"), QStringLiteral("cantitati iesite"), kWorkAim, kLongRounds,
      [] { setIssuedQuantities(QDate(2000, 1, 1), QDate(2099, 12, 31)); }, [&issued] { issued.run(); });
  std::vector<BareStatement> sumsOfCheck;
  for (const char* sql : kCheckSums) sumsOfCheck.push_back(bare.prepare(sql));
  compare(
      store, QStringLiteral("browser"), QStringLiteral("verificare"), kWorkAim, kLongRounds,
      [] { disagreements(); },
      [&sumsOfCheck] {
        for (BareStatement& sum : sumsOfCheck) sum.run();
      });
  removeCompany(path);
  return true;
}

}  // namespace velmar::bench
