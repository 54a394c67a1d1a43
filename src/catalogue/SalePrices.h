// Bulk update of sale prices, of all articles, a family or one article: by a mark-up on cost or from the
// price in currency at today's rate.
#pragma once

#include <optional>
#include <QString>

#include "util/Decimal.h"

namespace velmar {

/// The articles to update. The value for the scope may be missing while the user has not chosen one.
struct PricedArticles {
  enum class Scope { All, Family, Article };

  Scope scope = Scope::All;
  std::optional<qint64> family = {};
  QString article = {};
};

/// Throws RuleError, naming the column, when the family or the article of the scope is missing.
void requireChosen(const PricedArticles& articles);

/// Sets the mark-up and all sale prices, also in currency, from mark-up and cost, in one statement; returns
/// the number of articles. Throws RuleError when the choice or the percentage is missing.
int updatePricesByMarkup(const PricedArticles& articles, const std::optional<Decimal>& percent);

/// Sets the prices in lei, and the resulting mark-up, from the price in currency at today's rate of
/// `currency`, whatever the currency of an article, in one statement; returns the number of articles. Throws
/// RuleError when the choice or the rate is missing.
int updatePricesByRate(const PricedArticles& articles, const QString& currency);

}  // namespace velmar
