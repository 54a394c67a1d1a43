// The fiscal years N and N+1 and the entry period: six dates of `kt_par` that belong together.
#pragma once

#include "store/Row.h"

namespace velmar {

/// Saves DATAIN, DATASN, DATAIN1, DATASN1, DATAIC and DATASC. Throws RuleError, naming the date at fault,
/// when they do not fit together.
void saveFiscalYears(const Row& dates);

/// What is wrong with one of the dates beside the others, "" when nothing is: a warning while they are being
/// set, when more than one has to change before they fit together again.
QString fiscalYearWarning(const Row& dates, const QString& column);

}  // namespace velmar
