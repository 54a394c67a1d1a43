#include "store/RoundedSql.h"

namespace velmar {

// A product of two doubles is wrong by some units of its 16th digit, so it is first rounded to its
// significant digits: below 100000 to 10 decimals, enough for a cost with 4 times a factor with 6. Above
// that, a unit of the 16th digit affects the tenth decimal.
QString roundedSql(const QString& expression) {
  return QStringLiteral("ROUND_EVEN(ROUND_EVEN(%1, CASE WHEN ABS(%1) < 100000 THEN 10 ELSE 7 END), 2)")
      .arg(expression);
}

}  // namespace velmar
