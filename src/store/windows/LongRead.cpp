#include "store/windows/LongRead.h"

#include "store/BackgroundRead.h"
#include "util/windows/WorkProgress.h"

namespace velmar {

void readLong(const QString& title, QWidget* parent, const std::function<void()>& work) {
  WorkProgress progress(title, parent);
  readInThread(work, [&progress] { progress.wait(); });
}

}  // namespace velmar
