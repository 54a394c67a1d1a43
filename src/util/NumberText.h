// Formats numbers and dates for the user, and parses typed ones.
#pragma once

#include <optional>
#include <QDate>
#include <QString>

#include "util/Decimal.h"

namespace velmar {

/// Romanian format: point as group separator, decimal comma, fixed decimals (rounded half to even):
/// "1.234,50", "-3,00".
QString formatNumber(const Decimal& value, int decimals);

/// As formatNumber but without groups and without trailing zeros beyond `minimumDecimals`: the text of a
/// focused editor ("1234,5").
QString editNumber(const Decimal& value, int minimumDecimals = 0);

/// Parses a typed number: comma or point as the decimal separator, at most one, no group separators;
/// surrounding spaces are ignored. "1.234" and "1,234" are both 1 + 234/1000. Nothing for any other text
/// (also for exponents and for an empty text).
std::optional<Decimal> parseNumber(QStringView typed);

/// Whether the text is a number according to the rules for document numbers in the database: surrounding
/// spaces are ignored, an optional sign, digits with at most one decimal point and an optional exponent;
/// empty text is not a number.
bool isNumericText(QStringView text);

/// "31.12.2026", as dates are shown unless another form is given.
QString formatDate(const QDate& date);

/// Parses a typed date: day, month and year separated by "/", "." or "-", or ISO format. Invalid for any
/// other text.
QDate parseDate(const QString& text);

}  // namespace velmar
