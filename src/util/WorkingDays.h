// Working days in Romania: Monday to Friday without legal holidays. Those of Easter and Pentecost are
// computed.
#pragma once

#include <QDate>

namespace velmar {

/// Easter Sunday of the Orthodox church, in the Gregorian calendar; for the years 1900 to 2099.
QDate orthodoxEaster(int year);
bool isWorkingDay(const QDate& day);
/// The day that many working days after the date.
QDate workingDaysAfter(const QDate& date, int days);

}  // namespace velmar
