// Workstations that validate vouchers of 20 lines at once, each a process of its own, beside processes that
// write the same rows with bare prepared statements.
#include <cstdio>
#include <functional>
#include <memory>
#include <QCoreApplication>
#include <QProcess>
#include <vector>

#include "BareVoucher.h"
#include "Benches.h"
#include "util/Errors.h"

namespace velmar::bench {

namespace {

constexpr double kRatioAim = 1.5;
constexpr int kLimitMs = 120'000;
constexpr int kWriters[] = {1, 4, 8};
constexpr int kValidations = 232;
constexpr int kTurns = 3;
const QString kOurs = QStringLiteral("velmar");
const QString kBare = QStringLiteral("direct");

void work(const std::function<void(const QString&)>& validate, int first, int count) {
  validate(draftNumber(kSmallVoucher, first));
  std::printf("gata\n");
  std::fflush(stdout);
  std::getchar();
  for (int draft = first + 1; draft <= first + count; ++draft) validate(draftNumber(kSmallVoucher, draft));
}

std::unique_ptr<QProcess> started(const QString& path, const QString& way, int first, int count) {
  auto process = std::make_unique<QProcess>();
  process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
  process->start(QCoreApplication::applicationFilePath(),
                 {kWriterOption, path, way, QString::number(first), QString::number(count)});
  if (!process->waitForReadyRead(kLimitMs)) throw StoreError(0, QStringLiteral("Un proces nu a pornit."));
  return process;
}

// Each draft is validated, and each has a note of its own.
void requireAllWritten(const QString& path, int drafts) {
  BareConnection reader(path);
  for (const char* sql : {"SELECT COUNT(*) FROM G_BONINT WHERE VALIDAT = -1",
                          "SELECT COUNT(DISTINCT NDI) FROM kt_linii", "SELECT COUNT(*) FROM G_DOCUME"}) {
    BareStatement count = reader.prepare(sql);
    if (!count.step() || count.integer(0) != drafts)
      throw StoreError(0, QStringLiteral("Validarile simultane nu sunt toate scrise."));
  }
}

// Validations a second of that many processes, from the moment when all of them are ready.
double rate(Store store, const QString& way, int writers) {
  const QString path = copyOfCompany(store, CompanySize::EmptyLedger, QStringLiteral("scriu.mdb"));
  const int count = kValidations / writers;
  std::vector<std::unique_ptr<QProcess>> processes;
  for (int writer = 0; writer < writers; ++writer)
    processes.push_back(started(path, way, writer * (count + 1), count));
  const double elapsed = timed([&processes] {
    for (const auto& process : processes) {
      process->write("\n");
      process->waitForBytesWritten();
    }
    for (const auto& process : processes)
      if (!process->waitForFinished(kLimitMs) || process->exitCode() != 0)
        throw StoreError(0, QStringLiteral("Un proces nu a validat tot."));
  });
  requireAllWritten(path, writers * (count + 1));
  removeCompany(path);
  return writers * count / elapsed * 1000;
}

QString aSecond(double value) { return QString::number(value, 'f', 0) + QStringLiteral(" /s"); }

}  // namespace

bool measureWriters(Store store) {
  printHeading(store, QStringLiteral("writers: validari de 20 linii deodata"),
               {QStringLiteral("Velmar"), QStringLiteral("direct"), QStringLiteral("raport"),
                QStringLiteral("tinta")});
  for (const int writers : kWriters) {
    Times ours, bare;
    for (int turn = 0; turn < kTurns; ++turn) {
      ours.add(rate(store, kOurs, writers));
      bare.add(rate(store, kBare, writers));
    }
    const double times = bare.median() / ours.median();
    const QString row = QStringLiteral("%1 procese").arg(writers);
    noteRatio(QStringLiteral("writers: ") + row, store, times, kRatioAim);
    printRow(row, {aSecond(ours.median()), aSecond(bare.median()), ratio(times, kRatioAim),
                   QStringLiteral("<= 1.5")});
  }
  return true;
}

int runWriter(const QStringList& arguments) {
  const QString& path = arguments[0];
  const int first = arguments[2].toInt();
  const int count = arguments[3].toInt();
  try {
    if (arguments[1] == kOurs) {
      const OpenCompany company(path);
      work(validatedByProgram, first, count);
    } else {
      BareVoucher bare(path);
      work([&bare](const QString& number) { bare.validate(number); }, first, count);
    }
  } catch (const Error& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
  return 0;
}

}  // namespace velmar::bench
