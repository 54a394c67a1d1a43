#include "documents/HeaderChecks.h"

#include <algorithm>

#include "config/Checks.h"
#include "config/Lists.h"
#include "documents/Drafts.h"
#include "store/Database.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/PlainText.h"

namespace velmar {

namespace {

bool isPositive(const QString& typed) {
  const auto number = typedNumber(typed);
  return number && !number->isNegative();
}

bool paletSold(const QString& palet) {
  return !palet.isEmpty() &&
         !OpenRs(
              "SELECT L.DOCID AS DOCID FROM G_DOCUME D INNER JOIN G_LDOCUM L ON D.ID = L.DOCID "
              "WHERE L.PALET = ? AND D.TIPIE = 'E' LIMIT 1",
              {palet})
              .isEmpty();
}

bool cashPartnerExists() {
  return !OpenRs("SELECT COD FROM kt_ter WHERE NUME = 'CASA' LIMIT 1", {}).isEmpty();
}

bool partnerExists(const QString& code) {
  return !OpenRs("SELECT COD FROM kt_ter WHERE COD = ?", {static_cast<qint64>(code.toLongLong())}).isEmpty();
}

bool isUnofferedRate(const DocumentKind& kind, const QString& key, const QString& code) {
  for (const HeaderField& field : kind.headerFields)
    if (field.key() == key && field.type == HeaderFieldType::VatRate) return !isOfferedRate(kind, code);
  return false;
}

bool isTaken(const DocumentKind& kind, const QString& number) {
  return kind.existsKind.isEmpty() ? Drafts(kind).load(number).has_value() : Exista(number, kind.existsKind);
}

void requireField(const Checked<HeaderCheck>& check, const TypedHeader& typed, bool isNew) {
  const DocumentKind& kind = typed.kind();
  const QString text = typed.text(check.field);
  bool broken = false;
  switch (check.check) {
    case HeaderCheck::NumberEmpty:
    case HeaderCheck::FieldEmpty:
      broken = text.isEmpty() || isUnofferedRate(kind, check.field, text);
      break;
    case HeaderCheck::JournalEmpty:
      broken = typed.texts().value(check.field).isEmpty();  // a blank is the company's own journal
      break;
    case HeaderCheck::PartnerEmpty:
      broken = text.isEmpty();
      if (!broken && !partnerExists(text))
        throw RuleError(QStringLiteral("Tertul cu codul %1 nu exista ! Salvarea nu se poate efectua !")
                            .arg(text.left(20)),
                        check.field, kCritical);
      break;
    case HeaderCheck::NotNumeric:
      broken = !typedNumber(text) || isUnofferedRate(kind, check.field, text);
      break;
    case HeaderCheck::PercentNotPositive:
      broken = !text.isEmpty() && !isPositive(text);
      break;
    case HeaderCheck::NotPositive:
      broken = !isPositive(text);
      break;
    case HeaderCheck::NumberTaken:
      broken = isNew && isTaken(kind, text);
      break;
    case HeaderCheck::OtherNumberTaken:
      broken = isNew && !text.isEmpty() && Exista(text, check.detail);
      break;
    case HeaderCheck::PaletSold:
      broken = paletSold(text);
      break;
    case HeaderCheck::CashPartnerMissing:
      broken = !cashPartnerExists();
      break;
  }
  if (broken) throw RuleError(check.text, check.field, kCritical, check.title);
}

QString codeObjection(HeaderFieldType type, const QString& text) {
  switch (type) {
    case HeaderFieldType::Journal:
      return unknownCodeObjection(text, QStringLiteral("CodJurnal"));
    case HeaderFieldType::Currency:
      return unknownCodeObjection(text, QStringLiteral("CodValuta"));
    case HeaderFieldType::CostCentre:
      return unknownCodeObjection(text, QStringLiteral("CodCentruCost"));
    case HeaderFieldType::Rate: {
      const auto rate = typedNumber(text);
      return rate && *rate > 0 ? QString() : QStringLiteral("Cursul trebuie sa fie mai mare decat 0 !");
    }
    case HeaderFieldType::Number:
    case HeaderFieldType::Text:
    case HeaderFieldType::Remark:
      return hiddenObjection(text);
    default:
      return {};
  }
}

}  // namespace

void requireHeader(const TypedHeader& typed, bool isNew) {
  for (const auto& check : typed.kind().headerChecks) requireField(check, typed, isNew);
}

bool isOfferedRate(const DocumentKind& kind, const QString& code) {
  bool isNumber = false;
  const QString number = QString::number(code.toLongLong(&isNumber));
  const auto rates = vatRates(kind.partnersAreSuppliers);
  return isNumber && std::any_of(rates.begin(), rates.end(),
                                 [&number](const ListEntry& entry) { return entry.code == number; });
}

void requireKnownCodes(const TypedHeader& typed, const QHash<QString, QString>& stored) {
  for (const HeaderField& field : typed.kind().headerFields) {
    const QString text = typed.text(field.key());
    if (text.isEmpty() || text == stored.value(field.key()).trimmed()) continue;
    const QString objection = codeObjection(field.type, text);
    if (!objection.isEmpty()) throw RuleError(objection, field.key(), kCritical);
  }
}

}  // namespace velmar
