#include "util/WorkingDays.h"

#include <algorithm>
#include <iterator>

namespace velmar {

namespace {

struct Holiday {
  int month, day;
};
constexpr Holiday kHolidays[] = {{1, 1}, {1, 2},  {1, 6},   {1, 7},  {1, 24},  {5, 1},
                                 {6, 1}, {8, 15}, {11, 30}, {12, 1}, {12, 25}, {12, 26}};

bool isHoliday(const QDate& day) {
  if (std::any_of(std::begin(kHolidays), std::end(kHolidays),
                  [&day](const Holiday& each) { return each.month == day.month() && each.day == day.day(); }))
    return true;
  // Good Friday, Easter and its Monday, Pentecost and its Monday.
  const qint64 afterEaster = orthodoxEaster(day.year()).daysTo(day);
  return afterEaster == -2 || afterEaster == 0 || afterEaster == 1 || afterEaster == 49 || afterEaster == 50;
}

}  // namespace

QDate orthodoxEaster(int year) {
  constexpr int kJulianLag = 13;  // days, from 1900 to 2099
  const int d = (19 * (year % 19) + 15) % 30;
  const int e = (2 * (year % 4) + 4 * (year % 7) - d + 34) % 7;
  const int place = d + e + 114;
  return QDate(year, place / 31, place % 31 + 1).addDays(kJulianLag);
}

bool isWorkingDay(const QDate& day) { return day.dayOfWeek() <= Qt::Friday && !isHoliday(day); }

QDate workingDaysAfter(const QDate& date, int days) {
  QDate day = date;
  while (days > 0) {
    day = day.addDays(1);
    if (isWorkingDay(day)) --days;
  }
  return day;
}

}  // namespace velmar
