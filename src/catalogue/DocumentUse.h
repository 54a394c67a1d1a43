// Finds documents of any kind that refer to an article or a partner, which then cannot be deleted.
#pragma once

#include <QString>

namespace velmar {

/// A document with a line of the article, as "FC12"; "" when there is none.
QString documentWithArticle(const QString& article);

/// A document with the partner in its header, as "FC12"; "" when there is none.
QString documentWithPartner(qint64 partner);

}  // namespace velmar
