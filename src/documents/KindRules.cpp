// The table of the supported kinds' rules, and the default implementations.
#include "documents/KindRules.h"

#include <map>

namespace velmar {

void KindRules::begin(TypedHeader& /*header*/, bool /*isNew*/) const {}

void KindRules::applyRate(Row& /*line*/, const TypedHeader& /*header*/) const {}

CellObjection KindRules::objection(const Row& /*line*/, const QString& /*field*/, const Decimal& /*number*/,
                                   const TypedHeader& /*header*/) const {
  return {};
}

void KindRules::follow(const QString& /*changed*/, TypedHeader& /*header*/) const {}

std::vector<LineMark> KindRules::marks(const std::vector<Row>& /*lines*/,
                                       const TypedHeader& /*header*/) const {
  return {};
}

bool KindRules::isStale(const Row& /*line*/) const { return false; }

void KindRules::requireStock(const Document& /*document*/) const {}

void KindRules::requireReceipt(const Document& /*document*/) const {}

const KindRules* kindRules(const QString& prefix) {
  static const std::map<QString, std::unique_ptr<KindRules>> all = [] {
    std::map<QString, std::unique_ptr<KindRules>> rules;
    rules.emplace("BI", makeInputVoucherRules());
    rules.emplace("FF", makeSupplierInvoiceRules());
    rules.emplace("BC", makeConsumptionVoucherRules());
    rules.emplace("FC", makeCustomerInvoiceRules());
    rules.emplace("BS", makeCashSaleRules());
    return rules;
  }();
  const auto found = all.find(prefix.toUpper());
  return found == all.end() ? nullptr : found->second.get();
}

}  // namespace velmar
