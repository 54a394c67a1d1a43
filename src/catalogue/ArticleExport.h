// Exports of the catalogue: an order to a supplier from chosen articles, the catalogue as XML, the order form
// as a web page.
#pragma once

#include <QStringList>

#include "util/Progress.h"

namespace velmar {

/// Creates a draft order to a supplier that is not chosen yet, with a line for each article in the given
/// order: its issued quantity (`CANTE`) at its cost. One transaction; returns the order's number.
qint64 orderFromArticles(const QStringList& codes);

/// Writes families and articles to the file (root `gestiuneExport`), which is replaced when all is written.
/// Throws StoreError when the file cannot be written.
void exportCatalogue(const QString& path, const Progress& progress = {});

/// Fills the template of the order form with the articles that have a kind of device, by family, and writes
/// it into the folder HTML of `folder`; returns that folder. Throws RuleError when the template is missing,
/// StoreError when the page cannot be written.
QString makeOrderForm(const QString& folder);

}  // namespace velmar
