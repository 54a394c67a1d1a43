// Stock valued by lots: an issue takes from the receipts of its article, the oldest first, and has their
// cost. Lots do not belong to a warehouse.
#pragma once

#include <optional>
#include <QHash>
#include <QString>
#include <QStringList>
#include <vector>

#include "stock/LedgerKey.h"
#include "util/Decimal.h"

namespace velmar {

/// SQL condition on a row of G_LDOCUM: a line that creates a lot. These are lines of receipts, and lines by
/// which goods come in on an issue (a negative quantity; the lot has its absolute value): returned by a
/// customer, or found while others are missing.
QString makesLot(const QString& row = QStringLiteral("L"));

/// SQL: what a line L of document D, which moves stock, adds to the lots of its article. It is what it adds
/// to the stock, but a return to a supplier reduces no lot if it refers to no receipt of the article; that of
/// an import never does.
QString addedToLots();

/// A line that created a lot, and the remaining quantity.
struct Lot {
  QString article;
  QString document;  ///< key of the receipt
  qint64 line = 0;
  Decimal size;  ///< quantity received, positive
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

/// The open lots of some articles in the order in which they are used up. Taking changes only this object.
class OpenLots {
 public:
  OpenLots() = default;
  /// `lots` in the order in which they are used up.
  explicit OpenLots(const std::vector<Lot>& lots);
  /// The lots of the articles, read with one query, by document date, then by time of validation, document
  /// and line.
  static OpenLots read(const QStringList& articles);

  bool has(const QString& article) const { return !lots_.value(article.toUpper()).empty(); }

  /// Takes the quantity, rounded to 3 decimals, from the article's lots, as far as they suffice. A quantity
  /// of 0 or less takes nothing.
  Consumption costFIFO(const QString& article, const Decimal& quantity, CostFollows follows);

 private:
  QHash<QString, std::vector<Lot>> lots_;  ///< by code in upper case
};

/// The lots that the receipt with that ledger key created for the articles, used up ones too, by line.
std::vector<Lot> lotsOfReceipt(const QString& key, const QStringList& articles);

/// What a return to the supplier (positive quantities by article) takes from the lots of the receipt that it
/// refers to, line by line, as far as they suffice.
std::vector<LotTake> CautaFF(const std::vector<Lot>& receipt, const QHash<QString, Decimal>& quantities);

/// Writes the remaining quantities of the lots.
void writeRests(const std::vector<LotTake>& takes);

/// Stores the taken quantities in G_I_E, one row for each lot document and article; existing rows for them
/// are replaced.
void pAddDOCI(const LedgerKey& issue, const std::vector<LotTake>& takes);

/// Deletes the links of an outgoing document for the article.
void pStergDOCI(const LedgerKey& issue, const QString& article);

/// What an issue took: a row of G_I_E.
struct LotLink {
  QString document;  ///< ID_I, key of the receipt
  QString article;
  Decimal quantity;
};
std::vector<LotLink> linksOf(const LedgerKey& issue);

/// The lots of the linked receipts, the last validated first.
std::vector<Lot> linkedLots(const std::vector<LotLink>& links);

/// Gives quantities back to the lots in their order: a lot gets no more than was taken from it, and the lots
/// of a receipt together no more than its link says.
std::vector<LotTake> givenBack(const std::vector<Lot>& lots, const std::vector<LotLink>& links);

}  // namespace velmar
