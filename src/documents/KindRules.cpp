// Which kinds have rules, and so can be kept.
#include "documents/KindRules.h"

namespace velmar {

const KindRules* kindRules(const QString& prefix) {
  static const std::unique_ptr<KindRules> inputVoucher = makeInputVoucherRules();
  return prefix.compare(QStringLiteral("BI"), Qt::CaseInsensitive) == 0 ? inputVoucher.get() : nullptr;
}

}  // namespace velmar
