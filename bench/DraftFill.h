// Drafts of the kinds whose validation is compared with the rows that it wrote (BareRows.h), in a company
// with the ledger of TradeFill.h.
#pragma once

#include "Bare.h"

namespace velmar::bench {

/// Drafts of each kind and length; a larger number would use up the lots of the small company.
inline constexpr int kKindDrafts = 8;
/// Invoices that take over delivery notes have the draft numbers from this one on.
inline constexpr int kFirstOfNotes = 500;
/// Lines of each of these notes.
inline constexpr int kLinesOfNote = 4;

/// Fills the drafts 0 to kKindDrafts - 1 of each kind and length. A line of a delivery note takes from all
/// five lots of its article. For each invoice from notes there is a draft without lines, and validated
/// delivery notes of four lines that nothing has been taken from.
void fillDrafts(BareConnection& connection);

/// Adds validated documents of these kinds from years before, from which nothing is open, to the draft
/// tables.
void fillOldDocuments(BareConnection& connection);

/// Adds the lines of the notes from the first number to the last to an invoice: bound are the invoice, the
/// first and the last note.
extern const char* const kFillFromNotes;

/// The first note of that invoice from notes; the others follow it.
int firstNote(int invoice);

}  // namespace velmar::bench
