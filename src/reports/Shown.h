// Converts values of reports to their printed text.
#pragma once

#include <QDateTime>
#include <QVariant>

#include "reports/Layout.h"
#include "util/Decimal.h"

namespace velmar::layout {

inline constexpr int kMostDecimals = 9;
inline const QString kDatePattern = QStringLiteral("dd.MM.yyyy");

/// Whether values of this format are printed as numbers, whose digits must not be truncated.
inline bool isNumeric(Format format) { return format == Format::Number || format == Format::Price; }

/// False for null, false, 0 and an empty text.
bool isTrue(const QVariant& value);

/// The value as a number, also from a text with a decimal point; empty for any other value or text.
std::optional<Decimal> numberOf(const QVariant& value);

/// The value as a date, also from a text in the format of the store or of printed dates; else invalid.
QDateTime dateOf(const QVariant& value);

/// Formats by the pattern, with Romanian names of months and days.
QString dateText(const QDateTime& moment, const QString& pattern);

/// The value in display format: "12,5", "25.11.2026", "da".
QString textOf(const QVariant& value);

/// The value in the format of the style. A value that is not a number or date of that format remains its
/// text.
QString shownText(const QVariant& value, const TextStyle& style);

}  // namespace velmar::layout
