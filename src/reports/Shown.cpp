#include "reports/Shown.h"

#include <cmath>
#include <QLocale>

#include "config/Session.h"
#include "util/NumberText.h"

namespace velmar::layout {

bool isTrue(const QVariant& value) {
  if (value.isNull()) return false;
  if (value.typeId() == QMetaType::QString) return !value.toString().isEmpty();
  if (const auto number = numberOf(value)) return !number->isZero();
  return true;
}

std::optional<Decimal> numberOf(const QVariant& value) {
  if (value.isNull()) return std::nullopt;
  switch (value.typeId()) {
    case QMetaType::Bool:
      return Decimal(value.toBool() ? 1 : 0);
    case QMetaType::Double:
    case QMetaType::Float:
      if (!std::isfinite(value.toDouble())) return std::nullopt;
      return Decimal::fromDouble(value.toDouble());
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
      return Decimal(static_cast<qint64>(value.toLongLong()));
    case QMetaType::QString:
      return Decimal::parse(value.toString().trimmed());
    default:
      if (value.metaType() == QMetaType::fromType<Decimal>()) return value.value<Decimal>();
      return std::nullopt;
  }
}

QDateTime dateOf(const QVariant& value) {
  if (value.typeId() == QMetaType::QDate) return value.toDate().startOfDay();
  if (value.typeId() == QMetaType::QDateTime) return value.toDateTime();
  if (value.typeId() != QMetaType::QString) return {};
  constexpr int kLength = 10;  // of either format
  const QString text = value.toString();
  if (text.size() < kLength) return {};
  if (text[2] == u'.') return QDate::fromString(text.left(kLength), kDatePattern).startOfDay();
  if (text[4] != u'-') return {};
  return QDate::fromString(text.left(kLength), Qt::ISODate).startOfDay();
}

QString dateText(const QDateTime& moment, const QString& pattern) {
  static const QLocale kRomanian(QLocale::Romanian, QLocale::Romania);
  return kRomanian.toString(moment, pattern);
}

QString textOf(const QVariant& value) {
  if (value.isNull()) return {};
  if (value.typeId() == QMetaType::QString) return value.toString();
  if (value.typeId() == QMetaType::Bool) return value.toBool() ? QStringLiteral("da") : QStringLiteral("nu");
  if (const auto number = numberOf(value)) return editNumber(*number);
  const QDateTime moment = dateOf(value);
  return moment.isValid() ? dateText(moment, kDatePattern) : value.toString();
}

QString shownText(const QVariant& value, const TextStyle& style) {
  if (isNumeric(style.format)) {
    if (const auto number = numberOf(value)) {
      const int decimals = style.format == Format::Price ? session().NrZec : style.decimals;
      const Decimal shown = Round(*number, decimals);
      return style.hidesZero && shown.isZero() ? QString() : formatNumber(shown, decimals);
    }
  } else if (style.format == Format::Date) {
    if (const QDateTime moment = dateOf(value); moment.isValid()) return dateText(moment, style.pattern);
  }
  return textOf(value);
}

}  // namespace velmar::layout
