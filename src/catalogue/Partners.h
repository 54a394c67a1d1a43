// Partners: customers, suppliers, both at once, and persons.
#pragma once

#include <optional>

#include "store/ListRows.h"
#include "util/Progress.h"

namespace velmar {

/// The list of partners with their balances: the columns of kt_ter, `SOLD` as the sum of all their postings
/// (debit less credit, lei; null without any), `Angajator` as the employer's name.
extern const ListQuery kPartnerList;

/// The condition of a list of partners: "F" suppliers, also those that are customers too; "C" all but pure
/// suppliers.
Condition partnersOfKind(const QString& TipTert);

/// A partner with that name and kind ("C" customer, "F" supplier, "M" both, "P" person, "D" doctor), all else
/// empty.
Row newPartner(const QString& name, const QString& kind);

/// Adds the partner with the user and the day, and returns its code. The row has columns of kt_ter; an empty
/// `CT` becomes "RO". `discount` is the partner's percentage on sales. Throws RuleError, naming the column,
/// when the name or the kind is missing, a text is too long or a number is invalid.
qint64 addPartner(const Row& partner, const std::optional<Decimal>& discount = {});

/// The columns of kt_ter and the partner's "Discount"; an empty row when there is no such partner.
Row storedPartner(qint64 code);

/// Writes only the columns that differ from `shown` (storedPartner). Throws as addPartner(), and
/// ChangedMeanwhile when another workstation has changed these columns.
void savePartner(const Row& partner, const std::optional<Decimal>& discount, const Row& shown);

/// Deletes the partner and its discount. Throws RuleError when accounting lines or documents, drafts
/// included, refer to it.
void removePartner(qint64 code);

/// Stores in each partner's `SOLD` the balance of its account of class 4 (debit less credit, lei); if there
/// are several, that of the last one by account. They are read from one state, without the lock, so that
/// others can work meanwhile; those that differ are stored in one transaction.
void storeBalances(const Progress& progress = {});

}  // namespace velmar
