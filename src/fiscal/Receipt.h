// The receipt of a cash sale as input of the fiscal registers, and the result of printing it.
#pragma once

#include <QString>
#include <vector>

#include "util/Decimal.h"

namespace velmar {

class Row;

/// Amounts are in lei without VAT.
struct ReceiptLine {
  QString Denumire;
  QString CodArt;
  Decimal PRETFT;               ///< price of one unit
  Decimal VALOAREFT;            ///< value of the line after discounts
  Decimal ValoareFTCuDiscount;  ///< price of one unit after discounts
  Decimal Cant;
};

/// The line from a row of G_LBONCASA; nulls become 0.
ReceiptLine receiptLine(const Row& line);

struct Receipt {
  int CotaTVA = 0;  ///< percent, the same for all lines
  bool Card = false;
  int NrZec = 2;        ///< decimals of prices
  int NrCaractere = 0;  ///< width of a name, for registers without a fixed width
  std::vector<ReceiptLine> lines;
};

enum class ReceiptResult {
  NotPrinted,
  Printed,
  Unknown,  ///< the user gave up waiting; only the paper shows whether it printed
};

}  // namespace velmar
