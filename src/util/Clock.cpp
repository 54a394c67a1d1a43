#include "util/Clock.h"

namespace velmar::clock {

namespace {
QDate fixedDate;
}

QDate today() { return fixedDate.isValid() ? fixedDate : QDate::currentDate(); }

QDateTime now() {
  // Date and time of day in one reading: midnight may pass between two.
  const QDateTime machine = QDateTime::currentDateTime();
  return fixedDate.isValid() ? QDateTime(fixedDate, machine.time()) : machine;
}

void setToday(const QDate& date) { fixedDate = date; }

}  // namespace velmar::clock
