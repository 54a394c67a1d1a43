#include "fiscal/OutsideProgram.h"

#include <QProcess>
#include <QSet>
#include <stdexcept>
#include <utility>

#include "fiscal/RegisterWait.h"

namespace velmar {

namespace {

// A program on a drive that does not answer is given up.
constexpr int kStartMs = 10'000;

RegisterWait* currentWait = nullptr;

void prepare(QProcess& process, const OutsideCommand& command) {
  process.setProgram(command.program);
  process.setArguments(command.arguments);
  process.setWorkingDirectory(command.folder);
  process.setStandardInputFile(QProcess::nullDevice());
  process.setStandardOutputFile(QProcess::nullDevice());
  process.setStandardErrorFile(QProcess::nullDevice());
}

// The destructor of QProcess kills the program, so the object is kept until the program has ended.
void letGo(std::unique_ptr<QProcess> process) {
  static auto* const running = new QSet<QProcess*>;
  QProcess* left = process.release();
  running->insert(left);
  QObject::connect(left, &QProcess::finished, left, [left] {
    running->remove(left);
    left->deleteLater();
  });
}

}  // namespace

RegisterWait* setRegisterWait(RegisterWait* wait) { return std::exchange(currentWait, wait); }

RegisterWait& registerWait() {
  if (!currentWait) throw std::logic_error("nobody waits for the fiscal registers");
  return *currentWait;
}

OutsideProgram::OutsideProgram(const OutsideCommand& command) : process_(std::make_unique<QProcess>()) {
  prepare(*process_, command);
  connect(process_.get(), &QProcess::finished, this, &OutsideProgram::ended);
  process_->start();
  hasStarted_ = process_->waitForStarted(kStartMs);
}

OutsideProgram::~OutsideProgram() {
  process_->disconnect(this);
  if (hasEnded()) return;
  if (!hasStarted_) process_->kill();
  letGo(std::move(process_));
}

bool OutsideProgram::hasEnded() const { return process_->state() == QProcess::NotRunning; }

bool OutsideProgram::hasSucceeded() const {
  return hasStarted_ && hasEnded() && process_->exitStatus() == QProcess::NormalExit &&
         process_->exitCode() == 0;
}

bool startOutside(const OutsideCommand& command) { return OutsideProgram(command).hasStarted(); }

OutsideEnd runOutside(const OutsideCommand& command) {
  RegisterWait& wait = registerWait();
  OutsideProgram program(command);
  if (program.hasStarted() && !program.hasEnded()) wait.wait(program);
  if (!program.hasEnded()) return OutsideEnd::GivenUp;
  return program.hasSucceeded() ? OutsideEnd::Succeeded : OutsideEnd::Failed;
}

}  // namespace velmar
