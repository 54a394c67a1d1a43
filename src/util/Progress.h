// The progress of long work in the core, which a window shows (WorkProgress).
#pragma once

#include <functional>

namespace velmar {

/// Called with the amount done and the total. It may throw Cancelled: the work then leaves everything as it
/// was.
using Progress = std::function<void(int done, int of)>;

/// Reports the progress, if anybody follows it.
inline void report(const Progress& progress, int done, int of) {
  if (progress) progress(done, of);
}

}  // namespace velmar
