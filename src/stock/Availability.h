// The available quantity of an article: its stock in a warehouse according to the ledger, minus open customer
// orders.
#pragma once

#include <optional>
#include <QDate>
#include <QHash>
#include <QString>
#include <QStringList>

#include "store/Row.h"
#include "util/Decimal.h"

namespace velmar {

/// Quantities by article; codes are not case-sensitive.
class Quantities {
 public:
  Decimal of(const QString& article) const { return byCode_.value(article.toUpper()); }
  void add(const QString& article, const Decimal& quantity) { byCode_[article.toUpper()] += quantity; }

 private:
  QHash<QString, Decimal> byCode_;
};

/// Stock of each of the articles in the warehouse: entries and opening stock minus issues, 3 decimals.
Quantities warehouseStock(const QStringList& articles, qint64 warehouse);

/// The same on a date: documents up to that date, but never more than there is now.
Quantities warehouseStockOn(const QDate& date, const QStringList& articles, qint64 warehouse);

/// The open quantity of each of the articles in validated customer orders.
Quantities openOrders(const QStringList& articles);

/// The same for one article.
Decimal gStocValid(const QString& article);

struct Shortage {
  QString article;
  Decimal available;
};

/// The first of the articles whose available quantity in the warehouse is less than wanted: stock minus the
/// absolute value of the open orders that are not the document's own.
std::optional<Shortage> firstShortage(const QStringList& articles, const Quantities& wanted, qint64 warehouse,
                                      const Quantities& ownOrders = {});
/// The same with the stock on a date (warehouseStockOn).
std::optional<Shortage> firstShortageOn(const QDate& date, const QStringList& articles,
                                        const Quantities& wanted, qint64 warehouse);

/// The stock of an article in each warehouse, also where there is none, by code of the warehouse: DENUMIRE,
/// STOC (3 decimals), CODART (a number that counts the rows from 1).
Recordset stockByWarehouse(const QString& article);

}  // namespace velmar
