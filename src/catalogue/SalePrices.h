// Bulk update of sale prices: those of all articles, of a family or of one article, by a mark-up over cost or
// by the price in currency at today's rate.
#pragma once

#include <optional>
#include <QString>

#include "util/Decimal.h"

namespace velmar {

/// Which articles get new prices. What the scope asks for may be missing as long as a user has not chosen.
struct PricedArticles {
  enum class Scope { All, Family, Article };

  Scope scope = Scope::All;
  std::optional<qint64> family = {};
  QString article = {};
};

/// Throws RuleError, naming the column, when the family or the article of the scope is missing.
void requireChosen(const PricedArticles& articles);

/// Sets the mark-up, and from it and the cost all sale prices, that in currency included, in one statement;
/// gives the number of articles. Throws RuleError when the choice or the percent is missing.
int updatePricesByMarkup(const PricedArticles& articles, const std::optional<Decimal>& percent);

/// Sets the prices in lei, and the mark-up that they mean, from the price in currency at today's rate of
/// `currency`, whatever the currency of an article; one statement, gives the number of articles. Throws
/// RuleError when the choice or the rate is missing.
int updatePricesByRate(const PricedArticles& articles, const QString& currency);

}  // namespace velmar
