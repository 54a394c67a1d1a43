#include "fiscal/Receipt.h"

#include "store/Row.h"

namespace velmar {

ReceiptLine receiptLine(const Row& line) {
  return {line.text("DENUMIRE"),
          line.text("CODART"),
          line.decimal("PRETFT"),
          line.decimal("VALOAREFT"),
          line.decimal("ValoareFTCuDiscount"),
          line.decimal("CANT")};
}

}  // namespace velmar
