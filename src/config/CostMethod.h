// The company's stock valuation method, which is chosen once.
#pragma once

#include <QString>

namespace velmar {

/// Stores "FIFO" or "MP" in kt_info and in the session. Throws RuleError when a method has been chosen
/// before: stock valued by one method cannot be revalued by the other.
void chooseCostMethod(const QString& method);

}  // namespace velmar
