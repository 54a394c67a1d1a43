// Amounts in words, as printed on invoices and receipts: in Romanian, without spaces between the words
// ("omiedouasutetreizecisipatru lei").
#pragma once

#include <QString>

#include "util/Decimal.h"

namespace velmar {

/// The amount, rounded to two decimals, in words, with the name of the currency ("ROL", "RON", "USD", "EUR",
/// "GBP"; no name for others). A negative amount is "minus " and its absolute value. Converts `currency` to
/// upper case.
QString SumaText(const Decimal& amount, QString& currency);

/// A group of three digits; empty for "000". `position` counts the groups from the right, starting at 1;
/// there are no words for the sixth and higher. `groups`: the number of groups of the amount.
QString Grupa(const QString& group, int position, int groups);

/// Two decimals; empty for "00".
QString Zecimale(const QString& digits);

}  // namespace velmar
