// Validating an input voucher beside the same rows written by bare prepared statements. Both write companies
// of their own that began as copies of one, in turns, and so do the empty and the full ledger: the disk of a
// shared machine may be ten times slower a second later.
#include "BareVoucher.h"
#include "Benches.h"
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

// A company kept in use by a colleague, so that closing a file does not empty its journal.
struct Used {
  explicit Used(const QString& file) : path(file), colleague(file) {
    colleague.run("SELECT VERSIUNE FROM kt_info");
  }

  QString path;
  BareConnection colleague;
};

// One size of company, two of them, and the times by the number of lines.
struct Contest {
  Contest(Store store, CompanySize size, const QString& name)
      : mine(copyOfCompany(store, size, name + QStringLiteral("-noi.mdb"))),
        theirs(copyOfCompany(store, size, name + QStringLiteral("-direct.mdb"))) {}

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
        const double ourTime = validatedByProgram(number);
        if (!bareBegins) bareTime = validatedBare();
        if (round == 0) continue;
        pairs[lines].ours.add(ourTime);
        pairs[lines].bare.add(bareTime);
      }
  }

  Used mine;
  Used theirs;
  int draft = 0;
  QHash<int, Pair> pairs;
};

}  // namespace

bool measureVouchers(Store store) {
  Contest empty(store, CompanySize::EmptyLedger, QStringLiteral("gol"));
  Contest million(store, CompanySize::MillionLines, QStringLiteral("milion"));
  for (int block = 0; block < kRounds / kBlock; ++block) {
    empty.measureBlock();
    million.measureBlock();
  }
  printHeading(store, QStringLiteral("voucher: validare bon de intrare"),
               {QStringLiteral("Velmar"), QStringLiteral("direct"), QStringLiteral("raport"),
                QStringLiteral("tinta")});
  for (const int lines : kSizes)
    for (const auto& [name, contest] : {std::pair(QStringLiteral("registru gol"), &empty),
                                        std::pair(QStringLiteral("1.000.000 linii"), &million)}) {
      const double ours = contest->pairs[lines].ours.median();
      const double bare = contest->pairs[lines].bare.median();
      const QString row = QStringLiteral("%1 linii, %2").arg(QString::number(lines), name);
      noteRatio(QStringLiteral("voucher: ") + row, store, ours / bare, kRatioAim);
      printRow(row, {milliseconds(ours), milliseconds(bare), ratio(ours / bare, kRatioAim),
                     QStringLiteral("<= 1.5")});
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
