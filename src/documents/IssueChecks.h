// Common checks of documents that issue goods: their articles and the available stock.
#pragma once

#include "documents/Document.h"
#include "stock/Availability.h"

namespace velmar {

/// The articles of the lines, each once.
QStringList articlesOf(const std::vector<Row>& lines);

enum class Stocked {
  All,      ///< all articles are checked
  OnlyHeld  ///< articles without stock are ignored
};

/// The first article, by code, with less available in the document's warehouse than the lines need.
std::optional<Shortage> shortageOf(const Document& document, Stocked stocked);

/// Throws RuleError for the first article, by code, with less available in the document's warehouse than the
/// lines need: `text` with its code and the available quantity.
void requireAvailable(const Document& document, Stocked stocked, const QString& text);

}  // namespace velmar
