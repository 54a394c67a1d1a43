// Values of reports as they are read on paper.
#pragma once

#include <QDateTime>
#include <QVariant>

#include "reports/Layout.h"
#include "util/Decimal.h"

namespace velmar::layout {

inline constexpr int kMostDecimals = 9;
inline const QString kDatePattern = QStringLiteral("dd.MM.yyyy");

/// Whether what has this format is a number on paper, of which no digit may be cut.
inline bool isNumeric(Format format) { return format == Format::Number || format == Format::Price; }

/// False for nothing, false, 0 and an empty text.
bool isTrue(const QVariant& value);

/// The number that the value is or that its text says (with a decimal point); nothing for any other, also for
/// an empty text.
std::optional<Decimal> numberOf(const QVariant& value);

/// The date that the value is or that its text says, as the store or as paper writes it; else invalid.
QDateTime dateOf(const QVariant& value);

/// By the pattern, with Romanian names of months and days.
QString dateText(const QDateTime& moment, const QString& pattern);

/// The value as people read it: "12,5", "25.11.2026", "da".
QString textOf(const QVariant& value);

/// The value in the format of the style. What is no number or no date stays its text.
QString shownText(const QVariant& value, const TextStyle& style);

}  // namespace velmar::layout
