// The codes of units of measure on electronic invoices.
#pragma once

#include <QString>

namespace velmar {

/// Whether an electronic invoice may carry the code: one of recommendation 20 of UN/ECE, or of a package in
/// recommendation 21 with an X before it, as the rule BR-CL-23 lists them. Only capitals are codes.
bool isUnitCode(const QString& code);

}  // namespace velmar
