// Validation proper: a draft goes to the ledger, the articles and the accounts in one transaction, whole or
// not at all.
#pragma once

#include <optional>

#include "documents/Document.h"
#include "documents/Drafts.h"
#include "documents/TypedHeader.h"
#include "util/Errors.h"

namespace velmar {

/// An error inside validation; its text is the whole message, under the title of the step that it rose in.
class StepError : public Error {
 public:
  StepError(int number, const QString& text, const QString& title);
  const QString& title() const { return title_; }

 private:
  QString title_;
};

/// The draft with the window's state, as validation would take it now; nothing when it is gone.
std::optional<Document> draftFor(const TypedHeader& typed, const QString& number);

/// Throws RuleError when the document cannot be validated as stock and register stand now.
void requireValidatable(const Document& document);

/// Throws RuleError when a journal, an account or an article's family that the document's posting needs is
/// missing. To be asked before validation, so that no message stands while the write lock is held.
void requirePostable(Document document);

/// Stores the header on the draft, writes ledger, lots, articles and notes, marks the draft validated. The
/// lines are the stored ones, which must be those that the user saw in `shown`. Checks everything once more
/// under the write lock. Throws RuleError for a broken rule or a draft that another user has changed,
/// StepError for anything else; then nothing was written.
void SalvareDocumente(const TypedHeader& typed, const Row& header, const ShownDraft& shown);

}  // namespace velmar
