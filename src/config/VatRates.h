// The VAT rates: a percentage and the account to which the VAT is posted; of a rate of 0 also why there is
// none.
#pragma once

#include "store/Row.h"

namespace velmar {

/// The categories of a rate of 0, as electronic invoices state them.
struct VatCategory {
  const char* code;
  const char* name;  ///< in Romanian
};
const std::vector<VatCategory>& vatCategories();

/// Adds the rate with the row's `PROCENT`, `CONT`, `CATEGORIE`, `CODSCUTIRE` and `TEXTSCUTIRE` and returns
/// its code. Throws RuleError, naming the column, for a percentage that is not a number, an account that is
/// too short, a category of a percentage above 0, and for an exemption where the category has none or needs
/// one.
qint64 addVatRate(const Row& rate);

/// Stores the row's category, exemption code and text in a rate of 0. Throws RuleError as addVatRate().
void changeVatCategory(qint64 code, const Row& typed);

/// Deletes the rate, even if it is in use.
void removeVatRate(qint64 code);

}  // namespace velmar
