#include "catalogue/SalePrices.h"

#include "config/Lookups.h"
#include "store/RoundedSql.h"
#include "util/Clock.h"
#include "util/Errors.h"
#include "util/NumberText.h"

namespace velmar {

namespace {

// These updates use one fixed VAT rate, not the article's own.
const Decimal kWithVat = 1.19_dec;
constexpr int kHundred = 100;

// Updates the chosen articles.
int update(const PricedArticles& articles, const QStringList& assignments, Values values) {
  QString where;
  if (articles.scope == PricedArticles::Scope::Family) {
    where = QStringLiteral(" WHERE FAMART = ?");
    values.push_back(*articles.family);
  } else if (articles.scope == PricedArticles::Scope::Article) {
    where = QStringLiteral(" WHERE CODART = ?");
    values.push_back(articles.article);
  }
  return ExecutaSql(QStringLiteral("UPDATE G_ARTMAG SET ") + assignments.join(QStringLiteral(", ")) + where,
                    values);
}

// "COLUMN = the expression, rounded".
QString assigned(const QString& column, const QString& expression) {
  return column + QStringLiteral(" = ") + roundedSql(expression);
}

}  // namespace

void requireChosen(const PricedArticles& articles) {
  if (articles.scope == PricedArticles::Scope::Article && articles.article.isEmpty())
    throw RuleError(QStringLiteral("Va rugam precizati articolul"), "CODART");
  if (articles.scope == PricedArticles::Scope::Family && !articles.family)
    throw RuleError(QStringLiteral("Va rugam precizati familia"), "FAMART");
}

int updatePricesByMarkup(const PricedArticles& articles, const std::optional<Decimal>& percent) {
  requireChosen(articles);
  if (!percent) throw RuleError(QStringLiteral("Va rugam introduceti adaosul comercial"), "ADAOS");
  const Decimal net = 1 + *percent / kHundred;
  const Decimal gross = net * kWithVat;
  return update(articles,
                {QStringLiteral("ADAOS = ?"), assigned("PRETVFT", "COST * ?"),
                 assigned("PRETDEVIZAVANZ", "COSTDEV * ?"), assigned("PRETVTTI", "COST * ?")},
                {Round(*percent, 2), net, net, net, net, gross, gross});
}

int updatePricesByRate(const PricedArticles& articles, const QString& currency) {
  requireChosen(articles);
  const QDate today = clock::today();
  const Decimal rate = Curs(currency.trimmed(), today);
  if (rate.isZero())
    throw RuleError(QStringLiteral("Nu este introdus cursul pe ziua : ") + formatDate(today), "CURS");
  const Decimal gross = rate * kWithVat;
  return update(articles,
                {assigned("PRETVFT", "ROUND_EVEN(PRETDEVIZAVANZ, 2) * ?"),
                 QStringLiteral("ADAOS = CASE WHEN COST = 0 THEN 100 ELSE %1 END")
                     .arg(roundedSql("(PRETDEVIZAVANZ * ? / COST - 1) * 100")),
                 assigned("PRETVTTI", "PRETDEVIZAVANZ * ?")},
                {rate, rate, rate, rate, gross, gross});
}

}  // namespace velmar
