#include "store/RoundedSql.h"

namespace velmar {

// A product of two doubles is off by some units of its 16th digit, so it is first brought to the digits that
// it truly has: below 100000 to 10 decimals, which hold a cost of 4 times a factor of 6. Above, a unit of the
// 16th digit reaches into the tenth decimal.
QString roundedSql(const QString& expression) {
  return QStringLiteral("ROUND_EVEN(ROUND_EVEN(%1, CASE WHEN ABS(%1) < 100000 THEN 10 ELSE 7 END), 2)")
      .arg(expression);
}

}  // namespace velmar
