// Numbers and dates as people read and type them.
#pragma once

#include <optional>
#include <QDate>
#include <QString>

#include "util/Decimal.h"

namespace velmar {

/// The Romanian way: groups by point, decimal comma, fixed decimals (rounded half to even): "1.234,50",
/// "-3,00".
QString formatNumber(const Decimal& value, int decimals);

/// As formatNumber but without groups and without trailing zeros beyond `minimumDecimals`: what a focused
/// editor shows ("1234,5").
QString editNumber(const Decimal& value, int minimumDecimals = 0);

/// Reads a typed number: comma or point alike as the decimal sign, at most one of them, no groups; blanks
/// around it are ignored. "1.234" and "1,234" are both one and 234 thousandths. Nothing for any other text
/// (also for exponents and for an empty text).
std::optional<Decimal> parseNumber(QStringView typed);

/// Whether the text reads as a number for the database's rules on document numbers: blanks around it are
/// ignored, an optional sign, digits with at most one decimal point and an optional exponent; empty text is
/// not a number.
bool isNumericText(QStringView text);

/// "31/12/2026".
QString formatDate(const QDate& date);

/// Reads a typed date: day, month and year by "/", "." or "-", or the ISO way. Invalid for any other text.
QDate parseDate(const QString& text);

}  // namespace velmar
