#include "util/windows/WindowHost.h"

namespace velmar {

namespace {
WindowHost* theHost = nullptr;
}

WindowHost* windowHost() { return theHost; }

void setWindowHost(WindowHost* host) { theHost = host; }

}  // namespace velmar
