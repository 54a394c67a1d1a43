// Discounts of sales: the percent of an article at a quantity and of a partner, how the two act on a line,
// and where the partner's is kept. The quantity bands themselves are edited through DiscountBands.
#pragma once

#include <optional>
#include <QString>

#include "util/Decimal.h"

namespace velmar {

/// The percent of the article's band that covers the quantity, rounded half to even to a whole number; 0 when
/// no band does. Bands count whole pieces: a fraction of the quantity is rounded half to even first.
int DiscountArticol(const QString& code, const Decimal& quantity);

/// The percent of the partner, rounded half to even to a whole number; 0 when it has none.
int DiscountTert(qint64 code);

/// The two amounts of a sale line that a discount acts on, under the names of their columns.
struct DiscountedLine {
  Decimal ValoareFTCuDiscount;  ///< the unit price without VAT behind the discount
  Decimal VALOAREFT;            ///< that price times the quantity
};

/// The line's amounts, both rounded to `decimals` (`NrZec`). The percents add up, without a maximum.
DiscountedLine discountedLine(const Decimal& unitPrice, const Decimal& articlePercent,
                              const Decimal& partnerPercent, const Decimal& quantity, int decimals);

/// The percent kept for the partner as it stands, decimals included.
std::optional<Decimal> partnerDiscount(qint64 code);

/// Puts the percent in place of what was kept for the partner; nothing deletes it.
void setPartnerDiscount(qint64 code, const std::optional<Decimal>& percent);

}  // namespace velmar
