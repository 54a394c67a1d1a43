// The rows of the reports of stock and sales over a ledger of a million lines, compared with one bare
// aggregate of the same lines.
#include "Bare.h"
#include "Benches.h"
#include "Fixture.h"
#include "reports/StockReports.h"
#include "store/Database.h"

namespace velmar::bench {

namespace {

constexpr double kAim = 2;
constexpr double kMemoryAim = 64;  // MiB
constexpr int kReportRounds = 3;

const std::string kLedger = " FROM G_DOCUME D CROSS JOIN G_LDOCUM L WHERE L.DOCID = D.ID";

struct Measured {
  const char* window;
  std::string bare;
};

const Measured kMeasured[] = {
    {"frmRapUrmStoc",
     "SELECT L.ARTID, L.CODMAG, SUM(CASE WHEN D.TIPIE = 'I' THEN L.CANT END), SUM(CASE WHEN D.TIPIE = "
     "'E' THEN L.CANT END)" +
         kLedger + " GROUP BY L.ARTID, L.CODMAG"},
    {"frmRapJStoc",
     "SELECT L.ARTID, SUM(CASE WHEN D.TIPIE = 'E' THEN -L.CANT ELSE L.CANT END), SUM(CASE WHEN D.TIPIE = "
     "'E' THEN -1 ELSE 1 END * L.COST * L.CANT)" +
         kLedger + " GROUP BY L.ARTID"},
    {"frmRapDisponibil",
     "SELECT L.ARTID, SUM(CASE WHEN D.TIPIE = 'E' THEN -L.CANT ELSE L.CANT END), SUM(CASE WHEN "
     "D.TIPIE = 'E' THEN -1 ELSE 1 END * L.COST * L.CANT)" +
         kLedger + " GROUP BY L.ARTID"},
    {"frmRapStaCl", "SELECT D.CODTERT, SUM(D.TOTALFT), SUM(L.PRETFT * L.PROCRAB * L.CANT)" + kLedger +
                        " AND D.TIP IN ('FC', 'FS') GROUP BY D.CODTERT"},
    {"frmRapVanzari",
     "SELECT D.CODTERT, D.MODREG, D.DATADOC, SUM(D.TOTALFT), SUM(D.TOTALTVA), SUM(D.TOTALFT + D.TOTALTVA) "
     "FROM G_DOCUME D WHERE D.TIP IN ('FC', 'FS', 'BC') GROUP BY D.CODTERT, D.MODREG, D.DATADOC"},
    {"frmRapIesiri", "SELECT L.ARTID, SUM(L.CANT), SUM(L.PRETFT * L.CANT), SUM(L.VALTVA)" + kLedger +
                         " AND D.TIPIE = 'E' GROUP BY L.ARTID"}};

ReportChoice wholeLedger(const StockReport& report) {
  ReportChoice choice;
  choice.dates = {{report.from, QDate(2000, 1, 1)}, {report.to, QDate(2099, 12, 31)}};
  return choice;
}

}  // namespace

bool measureStockReports(Store store) {
  const QString path = copyOfCompany(store, CompanySize::Grown, QStringLiteral("rapoarte.mdb"));
  const OpenCompany company(path);
  BareConnection bare(path);
  printHeading(store, QStringLiteral("stockreports: rapoarte peste 1.000.000 de linii"),
               {QStringLiteral("program"), QStringLiteral("instr."), QStringLiteral("raport"),
                QStringLiteral("tinta"), QStringLiteral("MiB"), QStringLiteral("tinta")});
  for (const Measured& measured : kMeasured) {
    const StockReport& report = stockReport(QString::fromLatin1(measured.window));
    BareStatement statement = bare.prepare(measured.bare.c_str());
    Times own, statements;
    for (int round = 0; round < kReportRounds; ++round) {
      statements.add(timed([&statement] { statement.run(); }));
      own.add(timed([&report] { report.rows(wholeLedger(report)); }));
    }
    const double times = own.median() / statements.median();
    noteRatio(QStringLiteral("stockreports: ") + report.project, store, times, kAim);
    const double memory = memoryOf([&report] { report.rows(wholeLedger(report)); });
    printRow(report.caption, {milliseconds(own.median()), milliseconds(statements.median()),
                              ratio(times, kAim), QStringLiteral("<= %1").arg(kAim),
                              ratio(memory, kMemoryAim), QStringLiteral("<= %1").arg(kMemoryAim)});
  }
  removeCompany(path);
  return true;
}

}  // namespace velmar::bench
