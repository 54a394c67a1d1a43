// Workstations that validate documents of 20 lines at the same time, each a separate process, compared with
// processes that write the same rows with bare prepared statements.
#include <cstdio>
#include <functional>
#include <memory>
#include <QCoreApplication>
#include <QProcess>
#include <vector>

#include "Bare.h"
#include "Benches.h"
#include "documents/kinds/Kinds.h"
#include "util/Errors.h"
#include "Validated.h"

namespace velmar::bench {

namespace {

constexpr int kLimitMs = 120'000;
constexpr int kWriters[] = {1, 4, 8};
constexpr int kValidations = 232;
constexpr int kTurns = 3;
const QString kOurs = QStringLiteral("velmar");
const QString kBare = QStringLiteral("direct");

void work(const std::function<void(const QString&)>& validate, int first, int count) {
  validate(draftNumber(kSmallDocument, first));
  std::printf("gata\n");
  std::fflush(stdout);
  std::getchar();
  for (int draft = first + 1; draft <= first + count; ++draft) validate(draftNumber(kSmallDocument, draft));
}

std::unique_ptr<QProcess> started(const Validated& kind, const QString& path, const QString& way, int first,
                                  int count) {
  auto process = std::make_unique<QProcess>();
  process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
  process->start(QCoreApplication::applicationFilePath(),
                 {kWriterOption, kind.bench, path, way, QString::number(first), QString::number(count)});
  if (!process->waitForReadyRead(kLimitMs)) throw StoreError(0, QStringLiteral("Un proces nu a pornit."));
  return process;
}

struct Written {
  int drafts = 0, notes = 0, documents = 0;

  bool operator==(const Written&) const = default;
};

Written writtenIn(const Validated& kind, const QString& path) {
  BareConnection reader(path);
  const auto count = [&reader](const QString& sql) {
    BareStatement statement = reader.prepare(qPrintable(sql));
    return statement.step() ? statement.integer(0) : 0;
  };
  return {count(QStringLiteral("SELECT COUNT(*) FROM %1 WHERE VALIDAT = -1")
                    .arg(documentKind(kind.prefix).headerTable)),
          count(QStringLiteral("SELECT COUNT(DISTINCT NDI) FROM kt_linii")),
          count(QStringLiteral("SELECT COUNT(*) FROM G_DOCUME"))};
}

// Checks that each draft is validated and has its own notes.
void requireAllWritten(const Validated& kind, const QString& path, Written before, int drafts) {
  before.drafts += drafts;
  before.notes += kind.notes * drafts;
  before.documents += drafts;
  if (writtenIn(kind, path) != before)
    throw StoreError(0, QStringLiteral("Validarile simultane nu sunt toate scrise."));
}

// Validations per second of that many processes, counted from the time when all of them are ready.
double rate(Store store, const Validated& kind, const QString& way, int writers) {
  const QString path = copyOfCompany(store, kind.small, QStringLiteral("scriu.mdb"));
  const Written before = writtenIn(kind, path);
  const int count = kValidations / writers;
  std::vector<std::unique_ptr<QProcess>> processes;
  for (int writer = 0; writer < writers; ++writer)
    processes.push_back(started(kind, path, way, writer * (count + 1), count));
  const double elapsed = timed([&processes] {
    for (const auto& process : processes) {
      process->write("\n");
      process->waitForBytesWritten();
    }
    for (const auto& process : processes)
      if (!process->waitForFinished(kLimitMs) || process->exitCode() != 0)
        throw StoreError(0, QStringLiteral("Un proces nu a validat tot."));
  });
  requireAllWritten(kind, path, before, writers * (count + 1));
  removeCompany(path);
  return writers * count / elapsed * 1000;
}

QString aSecond(double value) { return QString::number(value, 'f', 0) + QStringLiteral(" /s"); }

void measureKind(Store store, const Validated& kind) {
  printHeading(store, QStringLiteral("writers: 20 linii deodata, ") + kind.title,
               {QStringLiteral("Velmar"), QStringLiteral("direct"), QStringLiteral("raport"),
                QStringLiteral("tinta")});
  for (const int writers : kWriters) {
    Times ours, bare;
    for (int turn = 0; turn < kTurns; ++turn) {
      ours.add(rate(store, kind, kOurs, writers));
      bare.add(rate(store, kind, kBare, writers));
    }
    const double times = bare.median() / ours.median();
    const QString row = QStringLiteral("%1 procese").arg(writers);
    noteRatio(QStringLiteral("writers, %1: %2").arg(kind.bench, row), store, times, kind.ratioAim);
    printRow(row, {aSecond(ours.median()), aSecond(bare.median()), ratio(times, kind.ratioAim),
                   QStringLiteral("<= %1").arg(kind.ratioAim, 0, 'f', 1)});
  }
}

}  // namespace

bool measureWriters(Store store) {
  for (const Validated* kind : {&vouchers(), &invoices()}) measureKind(store, *kind);
  return true;
}

int runWriter(const QStringList& arguments) {
  const Validated& kind = validatedBy(arguments[0]);
  const QString& path = arguments[1];
  const int first = arguments[3].toInt();
  const int count = arguments[4].toInt();
  try {
    if (arguments[2] == kOurs) {
      const OpenCompany company(path);
      work([&kind](const QString& number) { kind.byProgram(number); }, first, count);
    } else {
      const auto bare = kind.bare(path);
      work([&bare](const QString& number) { bare->validate(number); }, first, count);
    }
  } catch (const Error& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
  return 0;
}

}  // namespace velmar::bench
