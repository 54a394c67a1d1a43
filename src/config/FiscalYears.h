// The fiscal years N and N+1 and the entry period: six dates of `kt_par` that belong together.
#pragma once

#include "store/Row.h"

namespace velmar {

/// Saves DATAIN, DATASN, DATAIN1, DATASN1, DATAIC and DATASC. Throws RuleError, naming the date at fault,
/// when they are inconsistent.
void saveFiscalYears(const Row& dates);

/// How one date contradicts the others, "" when it does not. Only a warning during entry, since several dates
/// may have to change before they are consistent.
QString fiscalYearWarning(const Row& dates, const QString& column);

}  // namespace velmar
