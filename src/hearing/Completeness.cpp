#include "hearing/Completeness.h"

#include "util/Errors.h"

namespace velmar {

Completeness& Completeness::require(const QString& column, const QString& text) {
  if (header_.has(column) && !header_.text(column).trimmed().isEmpty()) return *this;
  if (missing_.isEmpty()) firstColumn_ = column;
  missing_ += QStringLiteral("\r\n\t") + text;
  return *this;
}

void Completeness::check() const {
  if (!missing_.isEmpty()) throw RuleError(QStringLiteral("Va rog completati: ") + missing_, firstColumn_);
}

Decimal storedMoney(const Decimal& amount) {
  constexpr int kMoneyDecimals = 4;
  return Round(amount, kMoneyDecimals);
}

}  // namespace velmar
