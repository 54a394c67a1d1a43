// The clock of the program. Tests can set the date.
#pragma once

#include <QDate>
#include <QDateTime>

namespace velmar::clock {

/// The current date, or the one set.
QDate today();

/// today() with the current time of day.
QDateTime now();

/// Sets the date that today() returns; an invalid date restores the system date.
void setToday(const QDate& date);

}  // namespace velmar::clock
