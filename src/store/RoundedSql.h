// Rounding in SQL: the engine multiplies and divides in binary, and its errors must not decide a tie.
#pragma once

#include <QString>

namespace velmar {

/// SQL that rounds a computed expression half to even to two decimals, as Round() would round its exact
/// decimal value. The text contains the expression, and therefore its bound values, twice.
QString roundedSql(const QString& expression);

}  // namespace velmar
