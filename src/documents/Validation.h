// Validation proper: a draft goes to the ledger, the articles and the accounts in one transaction, whole or
// not at all.
#pragma once

#include "documents/Document.h"
#include "util/Errors.h"

namespace velmar {

/// An error inside validation, with the title of the step that it rose in.
class StepError : public Error {
 public:
  StepError(const Error& cause, const QString& title, int line);
  const QString& title() const { return title_; }
  int line() const { return line_; }

 private:
  QString title_;
  int line_;
};

/// Throws RuleError when a journal, an account or an article's family that the draft's posting needs is
/// missing. To be asked before validation, so that no message stands while the write lock is held.
void requirePostable(const DocumentKind& kind, const QString& number);

/// Stores the header on the draft, writes ledger, articles and note, marks the draft validated. The lines are
/// those that the draft store holds. Checks everything once more under the write lock. Throws RuleError for a
/// broken rule, StepError for anything else; then nothing was written.
void SalvareDocumente(const DocumentKind& kind, const Row& header);

}  // namespace velmar
