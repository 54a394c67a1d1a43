// The checks of a document's lines before validation.
#pragma once

#include <QString>
#include <vector>

#include "documents/DocumentKind.h"
#include "store/Row.h"

namespace velmar {

/// The first fault of the lines, "" when there is none: a missing code, a quantity of 0, a price that is not
/// positive, discounts above the price. Notices about a sale price below the purchase price, up to that line,
/// are added to `notices`.
QString brokenLineRule(const DocumentKind& kind, const std::vector<Row>& lines,
                       QStringList* notices = nullptr);

/// The code of the first article that is on two lines, case insensitive; "" when all are distinct.
QString repeatedArticle(const std::vector<Row>& lines);

/// The message for an article on two lines.
QString repeatedArticleText(const QString& code);

/// The message for an article whose discounts exceed its price.
QString discountsTooHighText(const QString& code);

/// Reads and checks the lines of a draft; shows the notices and the first fault. A draft without lines is
/// valid.
bool EsteValidDetaliiDocument(const QString& prefix, const QString& number);

}  // namespace velmar
