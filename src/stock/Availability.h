// What of an article can go out: the stock of a warehouse by the ledger, less what customers have ordered.
#pragma once

#include <optional>
#include <QHash>
#include <QString>
#include <QStringList>

#include "util/Decimal.h"

namespace velmar {

/// Quantities by article; codes are found in any case of letters.
class Quantities {
 public:
  Decimal of(const QString& article) const { return byCode_.value(article.toUpper()); }
  void add(const QString& article, const Decimal& quantity) { byCode_[article.toUpper()] += quantity; }

 private:
  QHash<QString, Decimal> byCode_;
};

/// Stock of each of the articles in the warehouse: entries and opening stock less issues, 3 decimals.
Quantities warehouseStock(const QStringList& articles, qint64 warehouse);

/// What validated customer orders have still open of each of the articles.
Quantities openOrders(const QStringList& articles);

/// The same of one article.
Decimal gStocValid(const QString& article);

struct Shortage {
  QString article;
  Decimal available;
};

/// The first of the articles of which less is available in the warehouse than wanted: stock less the size of
/// the open orders.
std::optional<Shortage> firstShortage(const QStringList& articles, const Quantities& wanted,
                                      qint64 warehouse);

}  // namespace velmar
