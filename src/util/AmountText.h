// Amounts in words, as invoices and receipts spell them: Romanian, the words joined without blanks
// ("omiedouasutetreizecisipatru lei").
#pragma once

#include <QString>

#include "util/Decimal.h"

namespace velmar {

/// The amount, rounded to two decimals, in words with the currency's own ("ROL", "RON", "USD", "EUR", "GBP";
/// any other has none). A negative amount is "minus " and the words of its size. Turns `currency` to upper
/// case.
QString SumaText(const Decimal& amount, QString& currency);

/// A group of three digits, "000" nothing. `position` counts the groups from the right, from 1; from the
/// sixth on no word tells it. `groups`: how many the whole amount has.
QString Grupa(const QString& group, int position, int groups);

/// Two decimals, "00" nothing.
QString Zecimale(const QString& digits);

}  // namespace velmar
