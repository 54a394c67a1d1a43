// Rounding what a statement computes: the engine multiplies and divides in binary, which must decide no tie.
#pragma once

#include <QString>

namespace velmar {

/// SQL that rounds a computed expression half to even to two decimals, as Round() would round its exact
/// decimal value. The text holds the expression, and so its bound values, twice.
QString roundedSql(const QString& expression);

}  // namespace velmar
