// The articles of a document as its validation needs them: current figures, origin, accounts of the family.
#pragma once

#include <optional>
#include <QHash>
#include <QStringList>
#include <vector>

#include "util/Decimal.h"

namespace velmar {

/// Current figures of an article, stored in G_ARTMAG. Cost and mark-up are rounded only where a rule requires
/// it.
struct ArticleFigures {
  Decimal STOC;
  Decimal COST;
  Decimal ADAOS;  ///< percent
  Decimal PRETVFT;
  Decimal PRETVTTI;
  Decimal PRETDEVIZAVANZ;  ///< in the article's own currency
  Decimal COSTDEV;         ///< of the last import, in its currency
  bool FARASTOC = false;   ///< read only, like all below
  Decimal COTATVA;         ///< percent
  QString CODDEVIZAVANZ;
};

/// Values of G_ARTMAG.PROVENIENTA.
inline const QString kGoods = QStringLiteral("M");
inline const QString kProducts = QStringLiteral("P");

struct ArticleFacts {
  QString code;
  ArticleFigures figures;
  QString origin;                    ///< PROVENIENTA
  bool hasFamily = false;            ///< its family exists
  QHash<QString, QString> accounts;  ///< of the family, by column of G_FAMART
};

/// Articles by code; codes are not case-sensitive.
class ArticleTable {
 public:
  void add(const ArticleFacts& article) { byCode_.insert(article.code.toUpper(), article); }
  /// Null for an unknown code.
  const ArticleFacts* find(const QString& code) const;
  /// The article. Throws RuleError when the code is unknown.
  const ArticleFacts& of(const QString& code) const;

 private:
  QHash<QString, ArticleFacts> byCode_;
};

/// Reads the articles with their families' accounts.
ArticleTable readArticles(const QStringList& codes);

/// New values for columns of an article; what is empty keeps its value.
struct ArticleChange {
  QString code;
  std::optional<Decimal> STOC = {}, COST = {}, ADAOS = {}, PRETVFT = {}, PRETVTTI = {}, PRETDEVIZAVANZ = {},
                         COSTDEV = {};
};

/// Writes the changes, a statement for all articles with the same columns.
void writeArticles(const std::vector<ArticleChange>& changes);

}  // namespace velmar
