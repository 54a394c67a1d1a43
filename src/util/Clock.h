// The program's one clock: what "today" and "now" are, so that tests can fix the date.
#pragma once

#include <QDate>
#include <QDateTime>

namespace velmar::clock {

/// The date the program takes as today.
QDate today();

/// today() with the running time of day.
QDateTime now();

/// Fixes today(); an invalid date gives the machine's date back.
void setToday(const QDate& date);

}  // namespace velmar::clock
