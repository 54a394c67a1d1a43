// The currencies and their daily rates.
#pragma once

#include <optional>

#include "store/Row.h"

namespace velmar {

/// Adds the currency with the row's `COD` and `TITLU`. Throws RuleError, naming the column, for a code that
/// is missing or taken.
void addCurrency(const Row& currency);

/// Deletes the currency but not its rates.
void removeCurrency(const QString& code);

/// Stores the rate `CURS` of the day `DATA`: replaces the newest rate when it is of the same day, else adds
/// one. Throws RuleError for a rate that is not a positive number or an empty currency code.
void enterRate(const QString& currency, const Row& rate);

/// The newest `count` rates, or all, newest first: `COD`, `DATA`, `CURS`.
Recordset newestRates(const QString& currency, const std::optional<int>& count = {});

/// The rates of one day, the valid one first.
Recordset ratesOf(const QString& currency, const QDate& day);

/// Whether the company's amounts went through the denomination of 2005: all are in new lei. A new company is
/// marked so too.
bool ROL();

}  // namespace velmar
