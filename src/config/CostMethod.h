// The company's way of valuing stock, chosen once.
#pragma once

#include <QString>

namespace velmar {

/// Stores "FIFO" or "MP" in kt_info and in the session. Throws RuleError when a method was chosen before:
/// stock valued by one method cannot be valued by the other.
void chooseCostMethod(const QString& method);

}  // namespace velmar
