// Saves what the company's parameters window edits, a tab at a time: all checks first, then everything at
// once. What is refused leaves the stored values as they were. Rows come as they were typed, as text; a
// RuleError names the column at fault.
#pragma once

#include "store/Row.h"

namespace velmar {

/// The one record of `kt_info`.
Row storedIdentity();
/// The one record of `kt_par`.
Row storedParameters();

/// What to say of a text that is no number, in a column of the identity that holds one.
QString identityNumberMessage(const QString& column);

/// What is wrong with the letter of a VAT payer, "" when nothing is. Small letters count, and so does none.
QString vatPayerObjection(const QString& letter);

/// Saves the identity (columns of `kt_info`), the cost method and the hearing-device mode. An empty method
/// chooses none; a method that was chosen before is never replaced.
void saveIdentity(const Row& identity, const QString& method, bool hearing);

/// Saves the decimals of prices, the accounts, the way of a storno and both number ranges, and takes the
/// ranges over into the session. Decimals that are no number count as 0. A changed account must exist.
void saveAccounts(const Row& accounts, const QString& decimals);

/// Saves the journals of the kinds of documents, which must exist where they are changed, and the cash
/// register: "A", "D", "O", "P" or none.
void saveJournals(const Row& journals);

/// Writes columns of `kt_info` or `kt_par`, which hold one record each. Throws RuleError, naming the column,
/// for a text that is too long.
void writeOnlyRecord(const QString& table, const Row& row);

}  // namespace velmar
