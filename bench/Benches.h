// The rows of the benchmark. Each prints its part of the table and tells whether its own checks held; an aim
// that is missed is marked in the table and is no failure.
#pragma once

#include <QString>

namespace velmar::bench {

bool measureVouchers();
bool checkPlans();
bool measureArticles();
bool measureLists();
bool measureStart();

/// With this option and a databases folder the process is the program that measureStart() times.
inline const QString kStartOption = QStringLiteral("--start");
int runStartedProgram(int argc, char** argv, const QString& folder);

}  // namespace velmar::bench
