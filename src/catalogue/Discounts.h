// Sales discounts: the percentages of an article at a quantity and of a partner, and their effect on a line.
// The quantity bands are edited with DiscountBands.
#pragma once

#include <optional>
#include <QString>

#include "util/Decimal.h"

namespace velmar {

/// The percentage of the article's band that contains the quantity, rounded half to even to a whole number; 0
/// if there is none. Bands are in whole pieces: the quantity is first rounded half to even.
int DiscountArticol(const QString& code, const Decimal& quantity);

/// The percentage of the partner, rounded half to even to a whole number; 0 when it has none.
int DiscountTert(qint64 code);

/// The two discounted amounts of a sale line, named as their columns.
struct DiscountedLine {
  Decimal ValoareFTCuDiscount;  ///< the unit price without VAT after the discount
  Decimal VALOAREFT;            ///< that price times the quantity
};

/// The line's amounts, both rounded to `decimals` (`NrZec`). The percentages are added, without a maximum.
DiscountedLine discountedLine(const Decimal& unitPrice, const Decimal& articlePercent,
                              const Decimal& partnerPercent, const Decimal& quantity, int decimals);

/// The partner's stored percentage, not rounded.
std::optional<Decimal> partnerDiscount(qint64 code);

/// Replaces the partner's stored percentage; `nullopt` deletes it.
void setPartnerDiscount(qint64 code, const std::optional<Decimal>& percent);

}  // namespace velmar
