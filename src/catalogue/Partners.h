// Third parties: customers, suppliers, those that are both, and persons.
#pragma once

#include <optional>

#include "store/ListRows.h"

namespace velmar {

/// The list of partners with their balances: the columns of kt_ter, `SOLD` as the sum of all their postings
/// (debit less credit, lei; null without any), `Angajator` as the employer's name.
extern const ListQuery kPartnerList;

/// Which partners a list shows: "F" suppliers and those that are both, "C" all but pure suppliers.
Condition partnersOfKind(const QString& TipTert);

/// A partner with that name and kind ("C" customer, "F" supplier, "M" both, "P" person, "D" doctor), all else
/// empty.
Row newPartner(const QString& name, const QString& kind);

/// Adds the partner, stamped with user and day, and gives its code. The row holds columns of kt_ter; an empty
/// `CT` becomes "RO". `discount` is the partner's percentage on sales. Throws RuleError, naming the column,
/// when the name or the kind is missing, a text is too long or a number is none.
qint64 addPartner(const Row& partner, const std::optional<Decimal>& discount = {});

/// The columns of kt_ter and the partner's "Discount"; an empty row when there is no such partner.
Row storedPartner(qint64 code);

/// Writes what differs between the partner as it was shown (storedPartner) and as it stands now. Throws as
/// addPartner(), and ChangedMeanwhile when another workstation has changed what would be written.
void savePartner(const Row& partner, const std::optional<Decimal>& discount, const Row& shown);

/// Deletes the partner and its discount. Throws RuleError when accounting lines or documents, drafts
/// included, name it.
void removePartner(qint64 code);

/// Stores in each partner's `SOLD` what its accounts of class 4 hold (debit less credit, lei); of several
/// accounts, the last by account.
void storeBalances();

}  // namespace velmar
