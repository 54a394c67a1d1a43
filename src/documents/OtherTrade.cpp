#include "documents/OtherTrade.h"

namespace velmar {

namespace {

const OtherTrade*& registered() {
  static const OtherTrade* trade = nullptr;
  return trade;
}

}  // namespace

const OtherTrade* otherTrade() { return registered(); }

void setOtherTrade(const OtherTrade* trade) { registered() = trade; }

}  // namespace velmar
