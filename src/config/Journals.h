// The journals under which notes are posted, each with its kind and its VAT regime.
#pragma once

#include "store/Row.h"

namespace velmar {

/// What the lists of kinds and of VAT regimes offer. `FEL` stores the position of a regime.
extern const QStringList kJournalKinds;
extern const QStringList kVatRegimes;

/// Adds the journal with the row's `COD`, `TITLU`, `CONT`, `TIP` and `FEL`. Throws RuleError, naming the
/// column, for what is missing, a code that is taken, or an account that is too short.
void addJournal(const Row& journal);

/// Changes the journal of that code to the row's `TITLU` and `TIP`, to its `CONT` unless that is empty, and
/// to its `FEL` if that regime belongs to this kind of journal. Throws RuleError for an empty title.
void changeJournal(const QString& code, const Row& journal);

/// Stores what was typed into a column of a journal; `journal` is its current row. Throws RuleError for an
/// account that is too short and for receipt numbers that are not a range.
void changeJournalField(const Row& journal, const QString& column, const QString& typed);

/// Deletes the journal. Throws RuleError when notes refer to it.
void removeJournal(const QString& code);

}  // namespace velmar
