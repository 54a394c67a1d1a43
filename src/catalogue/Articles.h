// The catalogue of articles: looking one up, and adding, saving and deleting one under the catalogue's rules.
#pragma once

#include <optional>

#include "store/ListRows.h"

namespace velmar {

/// The list of articles: the columns of G_ARTMAG, `FAMILIE` and `FURNIZOR` by name, `PRETVFTRON` (the price
/// of old lei in new ones) and `DiferentaPacient` (price less what the insurance pays, lei).
extern const ListQuery kArticleList;

/// The article's row of G_ARTMAG; nothing when the code is unknown.
std::optional<Row> articleByCode(const QString& code);

/// The article with that product code of the supplier.
std::optional<Row> articleBySupplierCode(const QString& code);

/// The numeric identity (`ID`) of each article, in the order of the codes. An article that has none yet is
/// given the next free one. Throws StoreError for an unknown code.
std::vector<qint64> articleNumbers(const QStringList& codes);

/// What a new article starts from: unit "Buc", VAT 19, goods, held in stock, all else empty.
Row newArticle();

/// Adds the article; the row holds columns of G_ARTMAG. Throws RuleError, naming the column, when something
/// is missing or no number, the code exists, a family, supplier or currency does not, or no cost method was
/// chosen before the first article (column TCOST). Cost, prices and stock start at 0 whatever the row says.
void addArticle(const Row& article);

/// Writes what differs between the article as it was shown and as it stands now, so that what the stock
/// engine has written meanwhile is not taken back. Throws as addArticle(), when a price in currency names no
/// currency, and ChangedMeanwhile when another workstation has changed what would be written or a price that
/// belongs to it. A code that is not changed is not looked up.
void saveArticle(const Row& article, const Row& shown);

/// Throws RuleError when documents name the article, drafts included.
void requireRemovableArticle(const QString& code);
/// Deletes the article. Throws as requireRemovableArticle().
void removeArticle(const QString& code);

}  // namespace velmar
