// The default implementations.
#include "documents/KindRules.h"

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

void KindRules::readInputs(const Document& /*document*/, PlanInputs& /*inputs*/) const {}

}  // namespace velmar
