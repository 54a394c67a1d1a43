// A cash sale as the fiscal registers take it, and what became of it.
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
  Decimal VALOAREFT;            ///< value of the line, discounts taken off
  Decimal ValoareFTCuDiscount;  ///< price of one unit, discounts taken off
  Decimal Cant;
};

/// The line as G_LBONCASA holds it; nulls count as 0.
ReceiptLine receiptLine(const Row& line);

struct Receipt {
  int CotaTVA = 0;  ///< percent, the same for all lines
  bool Card = false;
  int NrZec = 2;        ///< decimals of prices
  int NrCaractere = 0;  ///< width of a name, on the registers that have no width of their own
  std::vector<ReceiptLine> lines;
};

enum class ReceiptResult {
  NotPrinted,
  Printed,
  Unknown,  ///< the user gave up waiting for the register: only the paper can tell
};

}  // namespace velmar
