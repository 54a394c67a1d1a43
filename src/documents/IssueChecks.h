// What documents that take goods out share: which articles they name, and whether the stock has them.
#pragma once

#include "documents/Document.h"
#include "stock/Availability.h"

namespace velmar {

/// The articles of the lines, each once.
QStringList articlesOf(const std::vector<Row>& lines);

enum class Stocked {
  All,      ///< all articles count
  OnlyHeld  ///< articles that keep no stock pass
};

/// The first article, by code, of which the document's warehouse has less available than the lines want.
std::optional<Shortage> shortageOf(const Document& document, Stocked stocked);

/// Throws RuleError about the first article, by code, of which the document's warehouse has less available
/// than the lines want: `text` with its code and what is available.
void requireAvailable(const Document& document, Stocked stocked, const QString& text);

}  // namespace velmar
