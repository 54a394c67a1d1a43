// Stock valued by lots: an issue takes from the receipts of its article, the oldest first, and costs what
// they cost. Lots belong to no warehouse.
#pragma once

#include <optional>
#include <QHash>
#include <QString>
#include <QStringList>
#include <vector>

#include "util/Decimal.h"

namespace velmar {

/// SQL condition on a row L of G_LDOCUM: a line that makes a lot. Lines of receipts do, and lines by which a
/// customer brings goods back (a quantity below 0 on an issue; the lot has its absolute value).
const QString& makesLot();

/// A line that made a lot, and what the lot has left.
struct Lot {
  QString document;  ///< key of the receipt
  qint64 line = 0;
  Decimal rest;  ///< 3 decimals
  Decimal unit;  ///< value of one unit, lei
  Decimal cost;  ///< what the article's cost becomes from it, lei
};

/// What an issue took from one lot.
struct LotTake {
  QString article;
  QString document;
  qint64 line = 0;
  Decimal taken;
  Decimal rest;  ///< what the lot has left
};

/// When the article's cost follows the lots.
enum class CostFollows {
  LastLot,          ///< the last lot visited, in every case
  LotWithRemainder  ///< only a lot that keeps something
};

/// What an issue takes from the lots, and what it is worth.
struct Consumption {
  Decimal value;    ///< lei, not rounded
  Decimal missing;  ///< quantity that no lot had
  std::vector<LotTake> takes;
  std::optional<Decimal> articleCost;
};

/// The open lots of some articles, read at once, in the order in which they are used up: by document date,
/// then by moment of validation, document and line. Taking changes this object alone; writeConsumption()
/// writes what was taken.
class OpenLots {
 public:
  explicit OpenLots(const QStringList& articles);

  bool has(const QString& article) const { return !lots_.value(article.toUpper()).empty(); }

  /// Takes the quantity, rounded to 3 decimals, from the article's lots as far as they go. A quantity that is
  /// not above 0 takes nothing.
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

/// Keeps in G_I_E what it took, one row for each lot document and article, in place of what stood
/// there for them.
void pAddDOCI(const Issue& issue, const std::vector<LotTake>& takes);

/// Forgets what it took of the article.
void pStergDOCI(const Issue& issue, const QString& article);

/// What the lots that the receipt with that ledger key made of the articles have left, by code in upper case,
/// 3 decimals. An article that the receipt lacks is not in it.
QHash<QString, Decimal> receiptRests(const QString& key, const QStringList& articles);

/// Takes a return to the supplier (positive quantities by article) off the lots of the receipt with that
/// ledger key, line by line, as far as they go. A key that names no receipt of the article changes nothing.
void CautaFF(const QString& key, const QHash<QString, Decimal>& quantities);

}  // namespace velmar
