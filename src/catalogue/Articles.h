// The catalogue of articles: looks up, adds, saves and deletes articles and enforces the catalogue's rules.
#pragma once

#include <optional>

#include "store/ListRows.h"

namespace velmar {

/// The list of articles: the columns of G_ARTMAG, `FAMILIE` and `FURNIZOR` by name, `PRETVFTRON` (the price
/// of old lei in new ones) and `DiferentaPacient` (price less what the insurance pays, lei).
extern const ListQuery kArticleList;

/// The article's row of G_ARTMAG; empty when the code is unknown.
std::optional<Row> articleByCode(const QString& code);

/// The article with that product code of the supplier.
std::optional<Row> articleBySupplierCode(const QString& code);

/// The numeric identifier (`ID`) of each article, in the order of the codes. An article without one is
/// assigned the next free one. Throws StoreError for an unknown code.
std::vector<qint64> articleNumbers(const QStringList& codes);

/// The defaults of a new article: unit "Buc", VAT 19, goods, held in stock, all else empty.
Row newArticle();

/// The code after the highest that is a number, in at least 8 digits. The caller has the write lock.
QString nextArticleCode();

/// Adds the article; the row has columns of G_ARTMAG. Throws RuleError, naming the column, when a value is
/// missing or not numeric, the code exists, a family, supplier or currency does not exist, or no cost method
/// was chosen before the first article (column TCOST). Cost, prices and stock start at 0, whatever the row
/// contains.
void addArticle(const Row& article);

/// Writes only the columns that differ from `shown`, so that values written by the stock engine meanwhile are
/// not overwritten. Throws as addArticle(), when a price in currency has no currency, and ChangedMeanwhile
/// when another workstation has changed these columns or a related price. Unchanged codes are not checked.
void saveArticle(const Row& article, const Row& shown);

/// Throws RuleError when documents, drafts included, refer to the article.
void requireRemovableArticle(const QString& code);
/// Deletes the article. Throws as requireRemovableArticle().
void removeArticle(const QString& code);

}  // namespace velmar
