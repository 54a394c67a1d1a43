#include "documents/HeaderTexts.h"

#include "config/Lists.h"
#include "config/Lookups.h"
#include "config/Session.h"
#include "documents/Numbering.h"
#include "store/Schema.h"
#include "util/Clock.h"
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
    case HeaderFieldType::DeliveryDate:
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
    case HeaderFieldType::DeliveryDate:
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

QString newHeaderText(const DocumentKind& kind, const HeaderField& field) {
  switch (field.type) {
    case HeaderFieldType::Date:
    case HeaderFieldType::DeliveryDate:
      return clock::today().toString(Qt::ISODate);
    case HeaderFieldType::DueDate:
      return clock::today().addMonths(1).toString(Qt::ISODate);
    case HeaderFieldType::PaymentMode:
      return {};
    case HeaderFieldType::VatRate:
      return defaultVatRate(kind.partnersAreSuppliers);
    default:
      return field.initial;
  }
}

Row emptyHeader(const DocumentKind& kind) {
  Row header = companyTable(kind.headerTable).emptyRow();
  header.set("Magazie", session().gMagazie);
  if (header.has("SERIE")) header.set("SERIE", seriesOf(kind));
  // The payment method is not shown until it is chosen, but it has a default.
  for (const HeaderField& field : kind.headerFields)
    if (field.type == HeaderFieldType::PaymentMode)
      header.set(field.column, storedHeaderValue(field.type, field.initial));
  return header;
}

QHash<QString, QString> shownHeader(const DocumentKind& kind, const Row& header,
                                    const QHash<QString, QString>& before) {
  QHash<QString, QString> texts;
  bool isForeign = false;
  for (const HeaderField& field : kind.headerFields) {
    // A date box always shows a date: if none is stored, the default of a new document.
    const bool isDate = field.type == HeaderFieldType::Date || field.type == HeaderFieldType::DueDate;
    if (!field.column.isEmpty() && !(isDate && header.isNull(field.column)))
      texts.insert(field.key(), shownHeaderText(field.type, header, field.column));
    else
      texts.insert(field.key(), field.keeps ? before.value(field.key()) : newHeaderText(kind, field));
    if (field.type == HeaderFieldType::Currency) isForeign = !header.text(field.column).isEmpty();
  }
  for (const HeaderField& field : kind.headerFields)
    if (field.type == HeaderFieldType::Foreign && field.column.isEmpty())
      texts.insert(field.key(), isForeign ? QStringLiteral("-1") : QStringLiteral("0"));
  return texts;
}

Row storedHeader(const TypedHeader& typed, const Row& stored, bool isNew) {
  Row header = stored;
  const bool foreign = typed.isForeign();
  for (const HeaderField& field : typed.kind().headerFields) {
    const QString text = typed.texts().value(field.key());
    const bool isKept =
        field.column.isEmpty() || (field.type == HeaderFieldType::Number && !isNew) ||
        (field.type == HeaderFieldType::PaymentMode && !paymentWords().contains(text.trimmed()));
    if (isKept) continue;
    const bool isCleared =
        !foreign && (field.type == HeaderFieldType::Currency || field.type == HeaderFieldType::Rate);
    header.set(field.column, storedHeaderValue(field.type, isCleared ? QString() : text));
  }
  return header;
}

QString missingRate(const TypedHeader& typed, const Row& header) {
  const DocumentKind& kind = typed.kind();
  if (kind.texts.rateMissing.isEmpty() || !typed.isForeign()) return {};
  QString currency;
  Decimal rate;
  for (const HeaderField& field : kind.headerFields) {
    if (field.type == HeaderFieldType::Currency) currency = header.text(field.column);
    if (field.type == HeaderFieldType::Rate) rate = header.decimal(field.column);
  }
  return rate.isZero() ? kind.texts.rateMissing.arg(currency) : QString();
}

}  // namespace velmar
