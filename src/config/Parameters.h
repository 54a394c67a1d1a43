// Saves the company's parameters, one tab of their window at a time: first all checks, then all values in one
// transaction. A refused save changes nothing. Rows contain the typed texts; a RuleError names the column at
// fault.
#pragma once

#include "store/Row.h"

namespace velmar {

/// The one record of `kt_info`.
Row storedIdentity();
/// Working days after its issue in which an electronic invoice is sent: TERMENEFACT, or 5.
int eInvoiceTerm(const Row& identity);
/// The one record of `kt_par`.
Row storedParameters();

/// The message for a text that is not a number in a numeric column of the identity.
QString identityNumberMessage(const QString& column);

/// What is wrong with the letter of a VAT payer, "" when nothing is. Lower case and an empty text are valid.
QString vatPayerObjection(const QString& letter);

/// What is wrong with the sector of Bucharest, "" when nothing is: it is empty or 1 to 6.
QString sectorObjection(const QString& sector);

/// Saves the identity (columns of `kt_info`), the cost method and the hearing-device mode. An empty method
/// means that none is chosen yet; a method that was chosen before is never replaced.
void saveIdentity(const Row& identity, const QString& method, bool hearing);

/// Saves the decimals of prices, the accounts, the storno method and both number ranges, and updates the
/// ranges in the session. Decimals that are not a number become 0. A changed account must exist.
void saveAccounts(const Row& accounts, const QString& decimals);

/// Saves the journals of the document kinds (changed ones must exist) and the cash register: "A", "D", "O",
/// "P" or none.
void saveJournals(const Row& journals);

/// Writes columns of `kt_info` or `kt_par`, which have one record each. Throws RuleError, naming the column,
/// for a text that is too long.
void writeOnlyRecord(const QString& table, const Row& row);

}  // namespace velmar
