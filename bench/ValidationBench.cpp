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
#include "OtherKinds.h"
#include "Validated.h"

namespace velmar::bench {

namespace {

constexpr int kSizes[] = {kSmallDocument, kLargeDocument};

// The times by number of lines.
using Pairs = QHash<int, Pair>;

// Two companies of one size.
struct Contest {
  Contest(Store store, const Validated& what, CompanySize which, const QString& name, Pairs& times)
      : kind(what),
        size(which),
        mine(copyOfCompany(store, size, name + QStringLiteral("-noi.mdb"))),
        theirs(copyOfCompany(store, size, name + QStringLiteral("-direct.mdb"))),
        pairs(times) {
    if (kind.prepare)
      for (const Used* company : {&mine, &theirs}) kind.prepare(company->path);
  }

  // A few rounds in sequence; the first after opening the files is not counted. The order alternates, since
  // an operation that follows a disk write may be slowed down by it.
  void measureBlock() {
    const auto bare = kind.bareOn(theirs.path, size);
    const OpenCompany company(mine.path);
    for (int round = 0; round <= blockRounds(); ++round, ++draft)
      for (const int lines : kSizes) {
        const QString number = kind.number(lines, draft);
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
  CompanySize size;
  Used mine;
  Used theirs;
  int draft = 0;
  Pairs& pairs;
};

// All blocks of a pair of copies of each size, which are then removed. Quick: of one size, and the copies
// stay, since a server takes long to remove them.
bool measureCopies(Store store, const Validated& kind, Pairs& small, Pairs& large) {
  bool held = true;
  QStringList paths;
  {
    std::vector<std::unique_ptr<Contest>> contests;
    const auto add = [&](CompanySize size, const char* name, Pairs& pairs) {
      contests.push_back(
          std::make_unique<Contest>(store, kind, size, kind.bench + QLatin1String(name), pairs));
      paths << contests.back()->mine.path << contests.back()->theirs.path;
    };
    add(kind.small, "-mic", small);
    if (!isQuick()) add(kind.large, "-mare", large);
    for (int done = 0; done < kind.measuredDrafts(); done += blockRounds() + 1)
      for (const auto& contest : contests) contest->measureBlock();
    for (const auto& contest : contests) held = contest->agrees() && held;
  }
  if (!isQuick())
    for (const QString& path : paths) removeCompany(path);
  return held;
}

bool measureValidation(Store store, const Validated& kind) {
  Pairs small, large;
  bool held = true;
  for (int copy = 0; copy < (isQuick() ? 1 : kind.copies); ++copy)
    held = measureCopies(store, kind, small, large) && held;
  if (isQuick()) return printAgreement(held);
  printHeading(store, kind.bench + QStringLiteral(": ") + kind.title, kContestColumns);
  for (const int lines : kSizes)
    for (const auto& [name, pairs] : {std::pair(kind.smallName, &small), std::pair(kind.largeName, &large)})
      printRatio(store, kind.bench, QStringLiteral("%1 linii, %2").arg(QString::number(lines), name),
                 (*pairs)[lines], kind.ratioAim);
  for (const int lines : kSizes) printGrowth(lines, small[lines], large[lines], kind.growthBesideBare);
  return printAgreement(held);
}

// The checks before a validation. They write nothing, so both use one company.
struct Checks {
  Checks(Store store, CompanySize size, const QString& name) : used(copyOfCompany(store, size, name)) {}

  void measureBlock() {
    const OpenCompany company(used.path);
    BareInvoice bare(used.path);
    for (int round = 0; round <= blockRounds(); ++round, ++draft)
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
  for (int block = 0; block < kRounds / blockRounds(); ++block) {
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

bool measureDeliveryNotes(Store store) { return measureValidation(store, deliveryNotes()); }
bool measureStornos(Store store) { return measureValidation(store, stornos()); }
bool measureTransfers(Store store) { return measureValidation(store, transfers()); }
bool measureReceiptNotes(Store store) { return measureValidation(store, receiptNotes()); }
bool measureCustomerOrders(Store store) { return measureValidation(store, customerOrders()); }
bool measureSupplierOrders(Store store) { return measureValidation(store, supplierOrders()); }
bool measureProformas(Store store) { return measureValidation(store, proformas()); }

bool measureInvoicesFromNotes(Store store) {
  const bool held = measureValidation(store, invoicesFromNotes());
  return measureFilling(store) && held;
}

bool measureVouchers(Store store) { return measureValidation(store, vouchers()); }

bool measureInvoices(Store store) {
  const bool held = measureValidation(store, invoices());
  return (isQuick() || measureChecks(store)) && held;
}

}  // namespace velmar::bench
