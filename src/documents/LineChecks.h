// What the lines of a document must hold before it goes to the ledger.
#pragma once

#include <QString>
#include <vector>

#include "documents/DocumentKind.h"
#include "store/Row.h"

namespace velmar {

/// The first reason why the lines cannot go to the ledger, "" when they can: a missing code, a quantity of 0,
/// a price that is not positive, discounts above the price. Notices about a sale price below the purchase
/// price, up to that line, are added to `notices`.
QString brokenLineRule(const DocumentKind& kind, const std::vector<Row>& lines,
                       QStringList* notices = nullptr);

/// The code of the first article that stands on two lines, in any case of letters; "" when all are distinct.
QString repeatedArticle(const std::vector<Row>& lines);

/// The sentence about an article that stands twice.
QString repeatedArticleText(const QString& code);

/// The sentence about an article whose discounts add up to more than its price.
QString discountsTooHighText(const QString& code);

/// Reads the lines of a draft and tells whether each can go to the ledger, showing what is wrong, and on the
/// way each notice. No lines count as valid.
bool EsteValidDetaliiDocument(const QString& prefix, const QString& number);

}  // namespace velmar
