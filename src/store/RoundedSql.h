// Rounding what a statement computes: the engine multiplies and divides in binary, which must decide no tie.
#pragma once

#include <QString>

namespace velmar {

/// SQL that rounds a computed expression half to even as Round() would round its exact decimal value;
/// `decimals` is SQL too. The text holds the expression, and so its bound values, twice.
QString roundedSql(const QString& expression, const QString& decimals = QStringLiteral("2"));

}  // namespace velmar
