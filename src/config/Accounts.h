// The chart of accounts: single accounts and their turnovers. Plans as a whole are replaced in AccountPlan.h.
#pragma once

#include "store/Row.h"

namespace velmar {

/// Shorter symbols are classes and groups, to which nothing is posted.
constexpr int kShortestAccount = 3;

/// Why the account cannot be posted to; "" when it can.
QString shortAccountObjection(const QString& account);

/// Adds the account with the row's `CONT`, `TITLU` and `CODBUG` (cost centre, may be null) and returns its
/// symbol. Throws RuleError, naming the column, for a symbol that holds a "-", is missing or taken, or a
/// missing title.
QString addAccount(const Row& account);

/// Stores what was typed into a column of an account: `TITLU`, `CODBUG` or the flag `NeUtilizabil` as "DA" or
/// "NU". Throws RuleError for an empty title or a text that is too long.
void changeAccount(const QString& symbol, const QString& column, const QString& typed);

/// Deletes the account. Throws RuleError when notes or journals name it, and for classes and groups.
void removeAccount(const QString& symbol);

/// Stores in each account the turnovers up to and including the day, of the account and of all accounts that
/// begin with its symbol: `DEBITN`, `CREDITN` and their difference `SOLDN`, rounded to 2 decimals.
void storeTurnovers(const QDate& upTo);

}  // namespace velmar
