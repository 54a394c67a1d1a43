// Validating a document compared with bare prepared statements that write the same rows. Each writes to its
// own copy of the same company. They take turns, and so do the small and the large ledger, since the disk of
// a shared machine may be ten times slower a second later. At the end both companies must have the same
// contents.
#include "BareInvoice.h"
#include "Benches.h"
#include "documents/DocumentEditor.h"
#include "documents/LineChecks.h"
#include "documents/Validation.h"
#include "Fixture.h"
#include "Validated.h"

namespace velmar::bench {

namespace {

constexpr int kBlock = 3;
constexpr int kSizes[] = {kSmallDocument, kLargeDocument};

// Two companies of one size, and the times by number of lines.
struct Contest {
  Contest(Store store, const Validated& what, CompanySize size, const QString& name)
      : kind(what),
        mine(copyOfCompany(store, size, name + QStringLiteral("-noi.mdb"))),
        theirs(copyOfCompany(store, size, name + QStringLiteral("-direct.mdb"))) {}

  // A few rounds in sequence; the first after opening the files is not counted. The order alternates, since
  // an operation that follows a disk write may be slowed down by it.
  void measureBlock() {
    const OpenCompany company(mine.path);
    const auto bare = kind.bare(theirs.path);
    for (int round = 0; round <= kBlock; ++round, ++draft)
      for (const int lines : kSizes) {
        const QString number = draftNumber(lines, draft);
        const auto validatedBare = [&] { return timed([&] { bare->validate(number); }); };
        const bool bareBegins = draft % 2 == 1;
        double bareTime = bareBegins ? validatedBare() : 0;
        const double ourTime = kind.byProgram(number);
        if (!bareBegins) bareTime = validatedBare();
        if (round == 0) continue;
        pairs[lines].ours.add(ourTime);
        pairs[lines].bare.add(bareTime);
      }
  }

  bool agrees() const { return agree(kind, mine.path, theirs.path); }

  const Validated& kind;
  Used mine;
  Used theirs;
  int draft = 0;
  QHash<int, Pair> pairs;
};

struct Ledger {
  QString name;
  const Contest* contest;
};

// One block on the small company, without times.
bool checkValidation(Store store, const Validated& kind) {
  Contest contest(store, kind, kind.small, kind.bench + QStringLiteral("-proba"));
  contest.measureBlock();
  return printAgreement(contest.agrees());
}

bool measureValidation(Store store, const Validated& kind) {
  if (isQuick()) return checkValidation(store, kind);
  Contest small(store, kind, kind.small, kind.bench + QStringLiteral("-mic"));
  Contest large(store, kind, kind.large, kind.bench + QStringLiteral("-mare"));
  for (int block = 0; block < kRounds / kBlock; ++block) {
    small.measureBlock();
    large.measureBlock();
  }
  printHeading(store, kind.bench + QStringLiteral(": ") + kind.title, kContestColumns);
  for (const int lines : kSizes)
    for (const Ledger& ledger : {Ledger{kind.smallName, &small}, Ledger{kind.largeName, &large}})
      printRatio(store, kind.bench, QStringLiteral("%1 linii, %2").arg(QString::number(lines), ledger.name),
                 ledger.contest->pairs[lines], kind.ratioAim);
  for (const int lines : kSizes) printGrowth(lines, small.pairs[lines], large.pairs[lines]);
  return printAgreement(small.agrees() && large.agrees());
}

// The checks before a validation. They write nothing, so both use one company.
struct Checks {
  Checks(Store store, CompanySize size, const QString& name) : used(copyOfCompany(store, size, name)) {}

  void measureBlock() {
    const OpenCompany company(used.path);
    BareInvoice bare(used.path);
    for (int round = 0; round <= kBlock; ++round, ++draft)
      for (const int lines : kSizes) {
        const QString number = draftNumber(lines, draft);
        DocumentEditor editor(invoices().prefix);
        editor.open(number);
        const Document document{&editor.kind(), number, editor.header(), editor.lines(),
                                editor.headerTexts()};
        auto sold = bare.sold(number);
        bool isShort = false;
        const double bareTime = timed([&] { isShort = bare.isShort(sold); });
        const double ourTime = timed([&] { shortageOf(document, Stocked::OnlyHeld); });
        const double wholeTime = timed([&] { editor.checkLines(); });
        held = held && !isShort;
        if (round == 0) continue;
        stock[lines].ours.add(ourTime);
        stock[lines].bare.add(bareTime);
        whole[lines].add(wholeTime);
      }
  }

  Used used;
  int draft = 0;
  bool held = true;
  QHash<int, Pair> stock;
  QHash<int, Times> whole;
};

bool measureChecks(Store store) {
  const Validated& kind = invoices();
  Checks small(store, kind.small, QStringLiteral("intrebari-mic.mdb"));
  Checks large(store, kind.large, QStringLiteral("intrebari-mare.mdb"));
  for (int block = 0; block < kRounds / kBlock; ++block) {
    small.measureBlock();
    large.measureBlock();
  }
  printHeading(store, QStringLiteral("invoice: ce se verifica inainte"), kContestColumns);
  const std::pair<QString, const Checks*> sides[] = {{kind.smallName, &small}, {kind.largeName, &large}};
  for (const int lines : kSizes)
    for (const auto& [name, checks] : sides)
      printRatio(store, kind.bench,
                 QStringLiteral("stoc pentru %1 linii, %2").arg(QString::number(lines), name),
                 checks->stock[lines], kind.ratioAim);
  for (const int lines : kSizes) printGrowth(lines, small.stock[lines], large.stock[lines]);
  for (const int lines : kSizes)
    for (const auto& [name, checks] : sides)
      printRow(QStringLiteral("toate pentru %1 linii, %2").arg(QString::number(lines), name),
               {milliseconds(checks->whole[lines].median())});
  return small.held && large.held;
}

}  // namespace

bool measureVouchers(Store store) { return measureValidation(store, vouchers()); }

bool measureInvoices(Store store) {
  const bool held = measureValidation(store, invoices());
  return (isQuick() || measureChecks(store)) && held;
}

}  // namespace velmar::bench
