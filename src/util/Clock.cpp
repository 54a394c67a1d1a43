#include "util/Clock.h"

namespace velmar::clock {

namespace {
QDate fixedDate;
}

QDate today() { return fixedDate.isValid() ? fixedDate : QDate::currentDate(); }

QDateTime now() { return QDateTime(today(), QTime::currentTime()); }

void setToday(const QDate& date) { fixedDate = date; }

}  // namespace velmar::clock
