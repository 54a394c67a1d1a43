// Workstations as separate processes on one company.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>
#include <csignal>
#include <QElapsedTimer>
#include <random>

#include "store/Database.h"
#include "util/Messages.h"

namespace velmar {

// Waits without a dialog: these workstations have no user.
class PatientSink : public MessageSink {
 public:
  int show(const Message& message) override {
    const int set = message.buttons % 16;
    return set == kRetryCancel ? kResultRetry : set == kYesNo ? kResultYes : kResultOk;
  }
};

/// A workstation: a separate process with its own connection. The process ends with 0 unless an unexpected
/// error occurs.
template <typename Work>
pid_t workstation(const QString& path, Work&& work) {
  constexpr int kBroken = 3;
  const pid_t process = fork();
  if (process != 0) return process;
  PatientSink patient;
  setMessageSink(&patient);
  try {
    setOpenDatabase(Database::open(path));
    work();
    _exit(0);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    _exit(kBroken);
  }
}

/// Closes the connection that fork() would share: a connection of the engines belongs to one process.
inline void startProcesses(const QString& path, const std::function<void()>& start) {
  setOpenDatabase(nullptr);
  start();
  setOpenDatabase(Database::open(path));
}

/// Runs the work in that many processes at once and waits for their end.
template <typename Work>
void allAtOnce(const QString& path, int count, Work&& work) {
  startProcesses(path, [&] {
    std::vector<pid_t> processes;
    for (int p = 0; p < count; ++p) processes.push_back(workstation(path, [&work, p] { work(p); }));
    for (const pid_t process : processes) {
      int status = 0;
      waitpid(process, &status, 0);
      EXPECT_EQ(status, 0);
    }
  });
}

/// Runs the work in a process that is killed after some microseconds, unless it has ended before.
template <typename Work>
void killedAfter(const QString& path, int microseconds, Work&& work) {
  startProcesses(path, [&] {
    const pid_t process = workstation(path, work);
    usleep(static_cast<useconds_t>(microseconds));
    kill(process, SIGKILL);
    waitpid(process, nullptr, 0);
  });
}

/// Runs the work again and again in a process that is killed at any moment of it: it has then written all or
/// nothing. `reset` restores what was there before, `state` reads what the work changes.
template <typename Reset, typename Work, typename State>
void expectAllOrNothing(const QString& path, Reset&& reset, Work&& work, State&& state) {
  constexpr int kKills = 50;
  reset();
  const auto before = state();
  QElapsedTimer timer;
  timer.start();
  work();
  const auto whole = static_cast<unsigned>(timer.nsecsElapsed() / 1000);
  const auto after = state();
  EXPECT_NE(before, after);
  std::minstd_rand random(3);
  int killed = 0;
  for (int i = 0; i < kKills; ++i) {
    reset();
    killedAfter(path, static_cast<int>(random() % (2 * whole)), work);
    const Transaction settled(database());  // a server may still be ending that of the killed process
    const auto now = state();
    EXPECT_TRUE(now == before || now == after) << ::testing::PrintToString(now);
    if (now == before) ++killed;
  }
  EXPECT_GT(killed, kKills / 5);
}

}  // namespace velmar
