#include "documents/TypedHeader.h"

#include "config/Lookups.h"
#include "util/NumberText.h"

namespace velmar {

std::optional<Decimal> typedNumber(const QString& typed) {
  constexpr qint64 kLargest = 1'000'000'000'000;  // above it a double cannot represent thousandths
  const auto number = parseNumber(typed);
  return number && number->abs() < Decimal(kLargest) ? number : std::nullopt;
}

TypedHeader::TypedHeader(const DocumentKind& kind, const QHash<QString, QString>& texts)
    : kind_(&kind), texts_(texts) {}

bool TypedHeader::isTicked(const QString& key) const {
  const QString typed = text(key);
  return !typed.isEmpty() && typed != QStringLiteral("0");
}

QDate TypedHeader::date() const { return QDate::fromString(text(kind_->dateColumn), Qt::ISODate); }

qint64 TypedHeader::partner() const { return text(kind_->partnerColumn).toLongLong(); }

bool TypedHeader::isForeign() const {
  const HeaderField* box = kind_->field(HeaderFieldType::Foreign);
  return box ? isTicked(box->key()) : kind_->field(HeaderFieldType::Currency) != nullptr;
}

Decimal TypedHeader::rate() const {
  const HeaderField* rate = kind_->field(HeaderFieldType::Rate);
  return rate && isForeign() ? number(rate->key()) : Decimal(0);
}

QString TypedHeader::costCentre() const {
  const HeaderField* centre = kind_->field(HeaderFieldType::CostCentre);
  return centre ? text(centre->key()) : QString();
}

QString TypedHeader::vatRate() const {
  const HeaderField* rate = kind_->field(HeaderFieldType::VatRate);
  return rate ? text(rate->key()) : QString();
}

Decimal TypedHeader::vatPercent() const {
  if (!kind_->field(HeaderFieldType::VatRate)) {
    const HeaderField* percent = kind_->field(HeaderFieldType::Percent);
    return percent ? number(percent->key()) : Decimal(0);
  }
  const QString code = vatRate();
  if (code.isEmpty()) return 0;
  if (!percents_.contains(code)) percents_.insert(code, ProcentTVA(code.toLongLong()));
  return percents_.value(code);
}

void TypedHeader::set(const QString& key, const QString& text) {
  texts_.insert(key, text);
  changes_.insert(key, text);
}

QHash<QString, QString> TypedHeader::takeChanges() { return std::exchange(changes_, {}); }

}  // namespace velmar
