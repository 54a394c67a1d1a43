#include "documents/HeaderTexts.h"

#include "config/Lists.h"
#include "config/Lookups.h"
#include "documents/TypedHeader.h"
#include "util/NumberText.h"

namespace velmar {

Value storedHeaderValue(HeaderFieldType type, const QString& typed) {
  const QString text = typed.trimmed();
  switch (type) {
    case HeaderFieldType::Partner:
    case HeaderFieldType::VatRate:
    case HeaderFieldType::Warehouse:
      return text.isEmpty() ? Value() : Value(static_cast<qint64>(text.toLongLong()));
    case HeaderFieldType::Percent:
    case HeaderFieldType::Rate:
    case HeaderFieldType::Amount:
      return typedNumber(text).value_or(Decimal(0));
    case HeaderFieldType::Date:
    case HeaderFieldType::DueDate:
      return QDate::fromString(text, Qt::ISODate);
    case HeaderFieldType::PaymentMode:
      return static_cast<qint64>(paymentWords().indexOf(text) + 1);
    case HeaderFieldType::Flag:
    case HeaderFieldType::Foreign:
      return !text.isEmpty() && text != QStringLiteral("0");
    case HeaderFieldType::Journal:
      return typed;  // a blank means the company's own
    case HeaderFieldType::Number:
    case HeaderFieldType::Remark:
    case HeaderFieldType::Currency:
    case HeaderFieldType::CostCentre:
    case HeaderFieldType::Text:
      break;
  }
  return text;
}

QString shownHeaderText(HeaderFieldType type, const Row& header, const QString& column) {
  if (header.isNull(column)) return {};
  switch (type) {
    case HeaderFieldType::Percent:
    case HeaderFieldType::Amount:
      return editNumber(header.decimal(column));
    case HeaderFieldType::Rate:
      return header.decimal(column).isZero() ? QString() : editNumber(header.decimal(column), kRateDecimals);
    case HeaderFieldType::Date:
    case HeaderFieldType::DueDate:
      return header.date(column).toString(Qt::ISODate);
    case HeaderFieldType::PaymentMode:
      return paymentWords().value(static_cast<int>(header.integer(column)) - 1);
    case HeaderFieldType::Flag:
    case HeaderFieldType::Foreign:
      return header.flag(column) ? QStringLiteral("-1") : QStringLiteral("0");
    default:
      return header.text(column);
  }
}

}  // namespace velmar
