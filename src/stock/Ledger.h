// The common ledger of validated documents: one row for each document and one for each of its lines.
#pragma once

#include <optional>
#include <QDateTime>
#include <vector>

#include "stock/LedgerKey.h"
#include "util/Decimal.h"

namespace velmar {

/// A line of the ledger. What is empty is not written. Amounts are in lei where nothing else is said.
struct LedgerLine {
  QString article = {};                         ///< ARTID
  Decimal quantity = {};                        ///< CANT
  Decimal price = {};                           ///< PRETFT, without VAT
  Decimal priceWithVat = {};                    ///< PRETTTI
  Decimal priceInCurrency = {};                 ///< PRETDEV
  Decimal vat = {};                             ///< VALTVA, of the line
  Decimal unitCost = {};                        ///< COST
  Decimal unitCostInCurrency = {};              ///< COSTDEV
  Decimal cost = {};                            ///< VALCOST, of the line; without a sign on an issue
  Decimal costInCurrency = {};                  ///< VALCOSTDEV
  Decimal vatPercent = {};                      ///< CODTVA
  std::optional<Decimal> rest = {};             ///< CANTRAMASA: of a lot, or not yet invoiced
  std::optional<Decimal> salePrice = {};        ///< PRETVA
  std::optional<Decimal> discountPercent = {};  ///< PROCRAB
  std::optional<Decimal> discountedPrice = {};  ///< VALRAB
  QString costCentre = {};                      ///< CODCC
  QString palet = {};                           ///< PALET
  QString reference = {};                       ///< REFERINTA: key of the order or note that it came from
};

/// A document of the ledger with its lines, in the document's order.
struct LedgerDocument {
  LedgerKey key;
  QString direction;  ///< TIPIE: "I", "S", "E", or empty for no stock effect
  qint64 warehouse = 0;
  qint64 partner = 0;
  QDate date;
  QString remark;
  // Totals in lei.
  Decimal value;  ///< without VAT
  Decimal vat;
  Decimal cost;
  QString currency = QStringLiteral("LEI");
  std::optional<Decimal> rate = Decimal(0);
  Decimal valueInCurrency;
  QDate dueDate;                      ///< invalid: not written
  bool isTurned = false;              ///< STORNAT
  std::optional<qint64> paymentMode;  ///< MODREG
  QString series;
  QString carrierInvoice = {};            ///< NUMFACTR, of an import
  std::optional<qint64> carrier = {};     ///< FURTR
  std::optional<Decimal> transport = {};  ///< TRANSTTI, in the document's currency
  std::vector<LedgerLine> lines;
};

/// Writes the documents and their lines, numbered from 1, with the user and the time of validation, which is
/// independent of the documents' dates. Throws RuleError if a key is already in the ledger.
void writeLedger(const std::vector<LedgerDocument>& documents, const QDateTime& moment);

/// Removes the documents and their lines. Throws RuleError if one is not in the ledger.
void removeLedger(const std::vector<LedgerKey>& keys);

/// A document of the ledger that begins or ceases to move stock.
struct DirectionChange {
  LedgerKey key;
  QString direction;  ///< TIPIE afterwards; empty: none
  /// New costs of its lines, lei, in their order; the sum becomes that of the document. Empty: unchanged.
  std::vector<Decimal> lineCosts = {};
};

/// Throws RuleError if a document is not in the ledger.
void writeDirections(const std::vector<DirectionChange>& changes);

inline const QString kFifo = QStringLiteral("FIFO");  ///< the cost method that values stock by lots

/// The cost method, always read from kt_info: "FIFO", "MP" or "".
QString TIPCOST();

}  // namespace velmar
