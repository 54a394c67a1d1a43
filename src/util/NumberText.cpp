#include "util/NumberText.h"

namespace velmar {

namespace {

/// Integer part and decimals, the decimals padded with zeros.
struct Parts {
  QString whole;
  QString fraction;
};

Parts split(const Decimal& value, int minimumDecimals) {
  const QString text = value.toString();
  const qsizetype point = text.indexOf(u'.');
  Parts parts{text, {}};
  if (point >= 0) parts = {text.left(point), text.mid(point + 1)};
  parts.fraction = parts.fraction.leftJustified(minimumDecimals, u'0');
  return parts;
}

QString joined(const Parts& parts) {
  return parts.fraction.isEmpty() ? parts.whole : parts.whole + u',' + parts.fraction;
}

}  // namespace

QString formatNumber(const Decimal& value, int decimals) {
  Parts parts = split(Round(value, decimals), decimals);
  const qsizetype firstDigit = parts.whole.startsWith(u'-') ? 1 : 0;
  for (qsizetype place = parts.whole.size() - 3; place > firstDigit; place -= 3)
    parts.whole.insert(place, u'.');
  return joined(parts);
}

QString editNumber(const Decimal& value, int minimumDecimals) {
  return joined(split(value, minimumDecimals));
}

std::optional<Decimal> parseNumber(QStringView typed) {
  QString text = typed.trimmed().toString();
  if (text.contains(u'e', Qt::CaseInsensitive)) return std::nullopt;
  return Decimal::parse(text.replace(u',', u'.'));
}

bool isNumericText(QStringView text) { return Decimal::parse(text.trimmed()).has_value(); }

QString formatDate(const QDate& date) { return date.toString(QStringLiteral("dd.MM.yyyy")); }

QDate parseDate(const QString& text) {
  const QString trimmed = text.trimmed();
  for (const char* format : {"d/M/yyyy", "d.M.yyyy", "d-M-yyyy", "yyyy-M-d"}) {
    const QDate date = QDate::fromString(trimmed, QLatin1String(format));
    if (date.isValid()) return date;
  }
  return {};
}

}  // namespace velmar
