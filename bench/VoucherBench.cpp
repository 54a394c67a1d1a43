// Validating an input voucher beside the same rows written by bare prepared statements. Both write files of
// their own that began as copies of one, in turns, and so do the empty and the full ledger: the disk of a
// shared machine may be ten times slower a second later.
#include "BareVoucher.h"
#include "Benches.h"
#include "documents/DocumentEditor.h"
#include "Fixture.h"

namespace velmar::bench {

namespace {

constexpr double kRatioAim = 1.5;
constexpr double kGrowthAim = 1.2;
constexpr int kBlock = 3;
constexpr int kSizes[] = {kSmallVoucher, kLargeVoucher};

struct Pair {
  Times ours;
  Times bare;
};

double validated(const QString& number) {
  DocumentEditor editor(QStringLiteral("BI"));
  editor.open(number);
  const QHash<QString, QString> typed{{QStringLiteral("NUMNR"), number},
                                      {QStringLiteral("CODFUR"), editor.header().text("CODFUR")},
                                      {QStringLiteral("BATVA"), QStringLiteral("19")},
                                      {QStringLiteral("OBS"), QStringLiteral("productie")},
                                      {QStringLiteral("DATANR"), QStringLiteral("2026-03-15")}};
  return timed([&] { editor.validate(typed); });
}

// A company's file, kept in use by a colleague, so that closing it does not empty its journal.
struct File {
  explicit File(const QString& file) : path(file), colleague(file) {
    colleague.run("SELECT VERSIUNE FROM kt_info");
  }

  QString path;
  BareConnection colleague;
};

// One size of company, its two files, and the times by the number of lines.
struct Contest {
  explicit Contest(CompanySize size, const QString& name)
      : mine(copyOfCompany(size, name + QStringLiteral("-noi.mdb"))),
        theirs(copyOfCompany(size, name + QStringLiteral("-sqlite.mdb"))) {}

  // A few rounds in a row; the first after opening the files is not counted. Who begins changes, since what
  // follows a write to the disk may start in its shadow.
  void measureBlock() {
    const OpenCompany company(mine.path);
    BareVoucher bare(theirs.path);
    for (int round = 0; round <= kBlock; ++round, ++draft)
      for (const int lines : kSizes) {
        const QString number = draftNumber(lines, draft);
        const auto validatedBare = [&] { return timed([&] { bare.validate(number); }); };
        const bool bareBegins = draft % 2 == 1;
        double bareTime = bareBegins ? validatedBare() : 0;
        const double ourTime = validated(number);
        if (!bareBegins) bareTime = validatedBare();
        if (round == 0) continue;
        pairs[lines].ours.add(ourTime);
        pairs[lines].bare.add(bareTime);
      }
  }

  File mine;
  File theirs;
  int draft = 0;
  QHash<int, Pair> pairs;
};

}  // namespace

bool measureVouchers() {
  Contest empty(CompanySize::EmptyLedger, QStringLiteral("gol"));
  Contest million(CompanySize::MillionLines, QStringLiteral("milion"));
  for (int block = 0; block < kRounds / kBlock; ++block) {
    empty.measureBlock();
    million.measureBlock();
  }
  printHeading(QStringLiteral("voucher: validare bon de intrare"),
               {QStringLiteral("Velmar"), QStringLiteral("SQLite"), QStringLiteral("raport"),
                QStringLiteral("tinta")});
  for (const int lines : kSizes)
    for (const auto& [name, contest] : {std::pair(QStringLiteral("registru gol"), &empty),
                                        std::pair(QStringLiteral("1.000.000 linii"), &million)}) {
      const double ours = contest->pairs[lines].ours.median();
      const double bare = contest->pairs[lines].bare.median();
      printRow(
          QStringLiteral("%1 linii, %2").arg(QString::number(lines), name),
          {milliseconds(ours), milliseconds(bare), ratio(ours / bare, kRatioAim), QStringLiteral("<= 1.5")});
    }
  for (const int lines : kSizes) {
    const double ours = million.pairs[lines].ours.median() / empty.pairs[lines].ours.median();
    const double bare = million.pairs[lines].bare.median() / empty.pairs[lines].bare.median();
    printRow(QStringLiteral("%1 linii, crestere gol -> milion").arg(lines),
             {ratio(ours, kGrowthAim), QString::number(bare, 'f', 2), QString(), QStringLiteral("<= 1.2")});
  }
  return true;
}

}  // namespace velmar::bench
