// The VAT journal of 32,000 documents, near the largest row number: filling its table compared with one
// statement that does the same, reading it for printing compared with the bare query.
#include "Bare.h"
#include "Benches.h"
#include "reports/VatJournals.h"

namespace velmar::bench {

namespace {

constexpr double kAim = 2;
constexpr int kJournalRounds = 10;
constexpr int kDocuments = 32'000;

constexpr const char* kDocumentsOfPeriod =
    "SELECT D.ID, D.TIP, D.CODTERT, T.NUME, T.CODFISCAL, D.DATADOC, D.TOTALFT, D.TOTALTVA FROM G_DOCUME D "
    "LEFT JOIN kt_ter T ON T.COD = D.CODTERT AND T.TIP IN ('C', 'M') WHERE D.TIP IN ('FC', 'FS', 'BS') "
    "AND D.DATADOC BETWEEN '2024-01-01' AND '2026-12-31' ORDER BY D.DATADOC, D.ID";
constexpr const char* kFill =
    "INSERT INTO kt_jvt (UTILIZATOR, NRC, DATA, NDP, NUME, CODF, TOTAL, BAZA1, TVA1, SCUTIT, SCUTIT_CD, "
    "SCUTIT_FD, EXPORT) SELECT 'admin', ROW_NUMBER() OVER (ORDER BY D.DATADOC, D.ID), D.DATADOC, D.ID, "
    "T.NUME, T.CODFISCAL, D.TOTALFT + D.TOTALTVA, D.TOTALFT, D.TOTALTVA, 0, 0, 0, 0 FROM G_DOCUME D "
    "LEFT JOIN kt_ter T ON T.COD = D.CODTERT AND T.TIP IN ('C', 'M') WHERE D.TIP IN ('FC', 'FS', 'BS') "
    "AND D.DATADOC BETWEEN '2024-01-01' AND '2026-12-31'";
const VatPeriod kPeriod{QDate(2023, 12, 31), QDate(2026, 12, 31)};

struct Measured {
  Times ours;
  Times bare;
};

void print(Store store, const QString& name, const Measured& measured) {
  const double times = measured.ours.median() / measured.bare.median();
  noteRatio(QStringLiteral("journals: ") + name, store, times, kAim);
  printRow(name,
           {milliseconds(measured.ours.median()), milliseconds(measured.bare.median()), ratio(times, kAim)});
}

}  // namespace

bool measureJournals(Store store) {
  const QString path = copyOfCompany(store, CompanySize::GrownTrade, QStringLiteral("jurnale.mdb"));
  BareConnection bare(path);
  bare.run("UPDATE G_DOCUME SET TIP = 'AE'");
  bare.run(
      "UPDATE G_DOCUME SET TIP = 'FC' WHERE ID IN (SELECT ID FROM G_DOCUME ORDER BY DATADOC, ID LIMIT "
      "32000)");
  const OpenCompany company(path);
  BareStatement documents = bare.prepare(kDocumentsOfPeriod);
  BareStatement fill = bare.prepare(kFill);
  printHeading(store, QStringLiteral("journals: 32.000 de documente"),
               {QStringLiteral("Velmar"), QStringLiteral("SQL"), QStringLiteral("raport")});
  Measured filled, read;
  bool held = true;
  for (int round = 0; round < kJournalRounds; ++round) {
    filled.ours.add(timed([&held] {
      held = computeJournal(salesJournal(), kPeriod, 1, QStringLiteral("admin")) == kDocuments && held;
    }));
    filled.bare.add(timed([&bare, &fill] {
      bare.beginWrite();
      bare.run("DELETE FROM kt_jvt WHERE UTILIZATOR = 'admin' OR UTILIZATOR IS NULL");
      fill.run();
      bare.run("COMMIT");
    }));
    read.ours.add(
        timed([&held] { held = journalRows(salesJournal(), kPeriod, 1).size() == kDocuments && held; }));
    read.bare.add(timed([&documents] {
      double total = 0;
      while (documents.step()) total += documents.number(6) + static_cast<double>(documents.text(3).size());
      documents.reset();
      return total;
    }));
  }
  print(store, QStringLiteral("calculul in tabela"), filled);
  print(store, QStringLiteral("citirea pentru tiparire"), read);
  return held;
}

}  // namespace velmar::bench
