#include <cstdio>
#include <QApplication>

#include "Benches.h"
#include "util/Errors.h"

namespace {

using velmar::bench::Store;

struct Bench {
  const char* name;
  bool (*run)(Store store);
  bool comparesRows = false;  ///< with those of bare statements
};

const Bench kBenches[] = {
    {"voucher", velmar::bench::measureVouchers, true},
    {"invoice", velmar::bench::measureInvoices, true},
    {"deliverynote", velmar::bench::measureDeliveryNotes, true},
    {"notes", velmar::bench::measureInvoicesFromNotes, true},
    {"storno", velmar::bench::measureStornos, true},
    {"transfer", velmar::bench::measureTransfers, true},
    {"receipt", velmar::bench::measureReceiptNotes, true},
    {"customerorder", velmar::bench::measureCustomerOrders, true},
    {"supplierorder", velmar::bench::measureSupplierOrders, true},
    {"proforma", velmar::bench::measureProformas, true},
    {"stock", velmar::bench::measureStock},
    {"writers", velmar::bench::measureWriters},
    {"plans", velmar::bench::checkPlans},
    {"sums", velmar::bench::checkSums},
    {"articles", velmar::bench::measureArticles},
    {"lists", velmar::bench::measureLists},
    {"browser", velmar::bench::measureBrowser},
    {"deletion", velmar::bench::measureDeletion, true},
    {"journals", velmar::bench::measureJournals},
    {"print", velmar::bench::measureInvoicePrint},
    {"reports", velmar::bench::measureReports},
    {"stockreports", velmar::bench::measureStockReports},
    {"figures", velmar::bench::measureFigures},
    {"hearing", velmar::bench::measureHearing},
    {"einvoice", velmar::bench::measureEInvoices},
    {"sheetimport", velmar::bench::measureSheetImport},
    {"start", velmar::bench::measureStart},
};
const QString kEngineOption = QStringLiteral("--engine");
// Only compares the rows that the program and the bare statements write, on small companies.
const QString kQuickOption = QStringLiteral("--quick");

struct Asked {
  QStringList names;
  QList<Store> stores;
  QString refusal;  ///< the error in the command line; empty if there is none
};

bool isKnown(const QString& name) {
  return std::any_of(std::begin(kBenches), std::end(kBenches),
                     [&name](const Bench& bench) { return name == QLatin1String(bench.name); });
}

QList<Store> storesOf(const QString& engine) {
  if (engine == QStringLiteral("sqlite")) return {Store::Files};
  if (engine == QStringLiteral("postgresql")) return {Store::Server};
  return {};
}

// Without --engine: files, and the server if there is one.
Asked asked(QStringList arguments) {
  Asked all;
  if (arguments.removeAll(kQuickOption) > 0) velmar::bench::setQuick();
  if (const qsizetype place = arguments.indexOf(kEngineOption); place >= 0) {
    const QString engine = arguments.value(place + 1);
    all.stores = storesOf(engine);
    if (all.stores.isEmpty()) all.refusal = QStringLiteral("Motor necunoscut: %1").arg(engine);
    arguments.remove(place, std::min<qsizetype>(2, arguments.size() - place));
  } else {
    all.stores = {Store::Files};
    if (velmar::bench::hasServer()) all.stores.append(Store::Server);
  }
  if (all.stores.contains(Store::Server) && !velmar::bench::hasServer())
    all.refusal = QStringLiteral("Nu este pornit un server; porniti masuratorile cu ./velmar bench.");
  for (const QString& name : arguments)
    if (!isKnown(name)) all.refusal = QStringLiteral("Masuratoare necunoscuta: %1").arg(name);
  all.names = arguments;
  return all;
}

bool runAll(const Asked& asked) {
  bool held = true;
  for (const Bench& bench : kBenches) {
    if (!asked.names.isEmpty() && !asked.names.contains(QLatin1String(bench.name))) continue;
    if (velmar::bench::isQuick() && !bench.comparesRows) continue;
    for (const Store store : asked.stores) held = bench.run(store) && held;
  }
  velmar::bench::printRatios();
  return held;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 3 && argv[1] == velmar::bench::kStartOption)
    return velmar::bench::runStartedProgram(argc, argv, QString::fromLocal8Bit(argv[2]));
  // Windows are measured without a display.
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments().mid(1);
  if (arguments.size() == 6 && arguments[0] == velmar::bench::kWriterOption)
    return velmar::bench::runWriter(arguments.mid(1));
  const Asked all = asked(arguments);
  if (!all.refusal.isEmpty()) {
    std::fprintf(stderr, "%s\n", qUtf8Printable(all.refusal));
    return 2;
  }
  try {
    return runAll(all) ? 0 : 1;
  } catch (const velmar::Error& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
