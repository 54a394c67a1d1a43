// What leaves the catalogue: an order to a supplier from chosen articles, the catalogue as XML, the order
// form as a web page.
#pragma once

#include <QStringList>

namespace velmar {

/// Makes a draft order to a supplier, still to be named, with a line for each article in the given order: its
/// issued quantity (`CANTE`) at its cost. All or nothing; gives the order's number.
qint64 orderFromArticles(const QStringList& codes);

/// Writes families and articles to the file (root `gestiuneExport`), in place of what it held. Throws
/// StoreError when the file cannot be written.
void exportCatalogue(const QString& path);

/// Fills the prototype of the order form with the articles that name a kind of device, by family, and writes
/// it into the folder HTML of `folder`; gives that folder. Throws RuleError when the prototype is missing,
/// StoreError when the page cannot be written.
QString makeOrderForm(const QString& folder);

}  // namespace velmar
