// The currencies and their daily rates.
#pragma once

#include <optional>

#include "store/Row.h"

namespace velmar {

/// Adds the currency with the row's `COD` and `TITLU`. Throws RuleError, naming the column, for a code that
/// is missing or taken.
void addCurrency(const Row& currency);

/// Deletes the currency; its rates stay.
void removeCurrency(const QString& code);

/// Enters the row's rate `CURS` of the day `DATA`: over the newest rate when that is of the same day, else as
/// one more. Throws RuleError for a rate that is no number above 0 or an empty currency code.
void enterRate(const QString& currency, const Row& rate);

/// The newest rates first, at most `count` of them: `COD`, `DATA`, `CURS`; all without a count.
Recordset newestRates(const QString& currency, const std::optional<int>& count = {});

/// The rates of one day, the one that holds first.
Recordset ratesOf(const QString& currency, const QDate& day);

}  // namespace velmar
