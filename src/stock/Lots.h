// Stock valued by lots: an issue takes from the receipts of its article, the oldest first, and has their
// cost. Lots do not belong to a warehouse.
#pragma once

#include <optional>
#include <QHash>
#include <QString>
#include <QStringList>
#include <vector>

#include "util/Decimal.h"

namespace velmar {

/// SQL condition on a row L of G_LDOCUM: a line that creates a lot. These are lines of receipts, and lines by
/// which a customer returns goods (a negative quantity on an issue; the lot has its absolute value).
const QString& makesLot();

/// A line that created a lot, and the remaining quantity.
struct Lot {
  QString document;  ///< key of the receipt
  qint64 line = 0;
  Decimal rest;  ///< 3 decimals
  Decimal unit;  ///< value of one unit, lei
  Decimal cost;  ///< the article's cost when it follows this lot, lei
};

/// The quantity that an issue took from one lot.
struct LotTake {
  QString article;
  QString document;
  qint64 line = 0;
  Decimal taken;
  Decimal rest;  ///< the remaining quantity of the lot
};

/// Which lot determines the article's cost after an issue.
enum class CostFollows {
  LastLot,          ///< the last lot visited, in every case
  LotWithRemainder  ///< only a lot that is not used up
};

/// The quantities that an issue takes from the lots, and their value.
struct Consumption {
  Decimal value;    ///< lei, not rounded
  Decimal missing;  ///< quantity not covered by lots
  std::vector<LotTake> takes;
  std::optional<Decimal> articleCost;
};

/// The open lots of some articles, read with one query, in the order in which they are used up: by document
/// date, then by time of validation, document and line. Taking changes only this object; writeConsumption()
/// writes the result.
class OpenLots {
 public:
  explicit OpenLots(const QStringList& articles);

  bool has(const QString& article) const { return !lots_.value(article.toUpper()).empty(); }

  /// Takes the quantity, rounded to 3 decimals, from the article's lots, as far as they suffice. A quantity
  /// of 0 or less takes nothing.
  Consumption costFIFO(const QString& article, const Decimal& quantity, CostFollows follows);

 private:
  QHash<QString, std::vector<Lot>> lots_;  ///< by code in upper case
};

/// The document that took from lots.
struct Issue {
  QString kind;    ///< prefix
  QString number;  ///< without the prefix
};

/// Writes the lots' remainders, the links of the outgoing document to them and the articles' costs.
void writeConsumption(const Issue& issue, const std::vector<Consumption>& consumptions);

/// Stores the taken quantities in G_I_E, one row for each lot document and article; existing rows for them
/// are replaced.
void pAddDOCI(const Issue& issue, const std::vector<LotTake>& takes);

/// Deletes the issue's links for the article.
void pStergDOCI(const Issue& issue, const QString& article);

/// The remaining quantities, with 3 decimals, of the lots that the receipt with that ledger key created, by
/// article code in upper case. Articles that are not on the receipt are not included.
QHash<QString, Decimal> receiptRests(const QString& key, const QStringList& articles);

/// Subtracts a return to the supplier (positive quantities by article) from the lots of the receipt with that
/// ledger key, line by line, as far as they suffice. Does nothing if the key is not that of a receipt of the
/// article.
void CautaFF(const QString& key, const QHash<QString, Decimal>& quantities);

}  // namespace velmar
