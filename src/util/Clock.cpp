#include "util/Clock.h"

namespace velmar::clock {

namespace {
QDate fixedDate;
}

QDate today() { return fixedDate.isValid() ? fixedDate : QDate::currentDate(); }

QDateTime now() {
  // Date and time are read together: it could be midnight between two calls.
  const QDateTime machine = QDateTime::currentDateTime();
  return fixedDate.isValid() ? QDateTime(fixedDate, machine.time()) : machine;
}

void setToday(const QDate& date) { fixedDate = date; }

}  // namespace velmar::clock
