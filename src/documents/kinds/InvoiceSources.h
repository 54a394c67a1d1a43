// The sources of a customer invoice's lines: delivery notes, a customer order, a palet.
#pragma once

#include "documents/LineSource.h"
#include "stock/Availability.h"

namespace velmar {

std::vector<const LineSource*> invoiceSources();

/// Whether the invoice's stock has left with delivery notes.
bool comesFromNotes(const Document& document);

/// The quantities that the invoice's own order leaves open, by article.
Quantities orderedBy(const Document& document);

}  // namespace velmar
