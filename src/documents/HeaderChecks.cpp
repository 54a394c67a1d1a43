#include "documents/HeaderChecks.h"

#include <algorithm>

#include "config/Checks.h"
#include "config/Lists.h"
#include "config/Session.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/PlainText.h"

namespace velmar {

namespace {

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

QString periodText() {
  const QString format = QStringLiteral("dd/MM/yyyy");
  return QStringLiteral("Data document trebuie sa fie in intervalul: %1-%2")
      .arg(session().DataIC.toString(format), session().DataSC.toString(format));
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
    if (field.mayBeZero && typedNumber(text) == Decimal(0)) continue;
    const QString objection = codeObjection(field.type, text);
    if (!objection.isEmpty()) throw RuleError(objection, field.key(), kCritical);
  }
}

}  // namespace velmar
