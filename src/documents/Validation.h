// Validates a draft: writes it to the ledger, the articles and the accounts in one transaction.
#pragma once

#include "documents/Drafts.h"
#include "documents/TypedHeader.h"
#include "util/Errors.h"

namespace velmar {

/// An error during validation; its text is the complete message, its title that of the step in which it
/// occurred.
class StepError : public Error {
 public:
  StepError(int number, const QString& text, const QString& title);
  const QString& title() const { return title_; }

 private:
  QString title_;
};

/// Reads the company's parameters again, stores the header of the draft, writes ledger, lots, articles and
/// notes, marks the draft validated. The stored lines must be those that the user saw in `shown`. Makes the
/// checks that depend on what other workstations write. Throws RuleError for a violated rule or a draft that
/// another user has changed, StepError for other errors; nothing is then written.
void SalvareDocumente(const TypedHeader& typed, const Row& header, const ShownDraft& shown);

}  // namespace velmar
