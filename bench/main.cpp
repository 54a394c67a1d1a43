#include <cstdio>
#include <QApplication>

#include "Benches.h"
#include "util/Errors.h"

namespace {

struct Bench {
  const char* name;
  bool (*run)();
};

const Bench kBenches[] = {
    {"voucher", velmar::bench::measureVouchers},  {"plans", velmar::bench::checkPlans},
    {"articles", velmar::bench::measureArticles}, {"lists", velmar::bench::measureLists},
    {"start", velmar::bench::measureStart},
};

bool isKnown(const QString& name) {
  return std::any_of(std::begin(kBenches), std::end(kBenches),
                     [&name](const Bench& bench) { return name == QLatin1String(bench.name); });
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 3 && argv[1] == velmar::bench::kStartOption)
    return velmar::bench::runStartedProgram(argc, argv, QString::fromLocal8Bit(argv[2]));
  // Windows are measured without a display.
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  const QStringList names = QCoreApplication::arguments().mid(1);
  for (const QString& name : names)
    if (!isKnown(name)) {
      std::fprintf(stderr, "Masuratoare necunoscuta: %s\n", qUtf8Printable(name));
      return 2;
    }
  bool held = true;
  try {
    for (const Bench& bench : kBenches)
      if (names.isEmpty() || names.contains(QLatin1String(bench.name))) held = bench.run() && held;
  } catch (const velmar::Error& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
  return held ? 0 : 1;
}
