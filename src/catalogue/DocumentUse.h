// Which stored document names an article or a partner, whatever its kind: such a record cannot be deleted.
#pragma once

#include <QString>

namespace velmar {

/// The first document found with a line of the article, as "FC12"; "" when there is none.
QString documentWithArticle(const QString& article);

/// The first document found with the partner in its header, as "FC12"; "" when there is none.
QString documentWithPartner(qint64 partner);

}  // namespace velmar
