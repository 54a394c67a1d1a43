// Validates a draft: writes it to the ledger, the articles and the accounts in one transaction.
#pragma once

#include <optional>

#include "documents/Document.h"
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

/// The draft with the window's header, as it would be validated now; empty when it no longer exists.
std::optional<Document> draftFor(const TypedHeader& typed, const QString& number);

/// Throws RuleError when the current stock or the missing receipt does not allow validation.
void requireValidatable(const Document& document);

/// Throws RuleError when a journal, an account or an article's family that the document's posting needs is
/// missing. Called before validation, so that no dialog is shown while the write lock is held.
void requirePostable(Document document);

inline constexpr auto kPeriodText = "Data document trebuie sa fie in intervalul: %1-%2";
/// The text with the ends of the entry period for %1 and %2.
QString withPeriod(const QString& text);

/// Reads the company's parameters again, stores the header of the draft, writes ledger, lots, articles and
/// notes, marks the draft validated. The stored lines must be those that the user saw in `shown`. Repeats all
/// checks under the write lock. Throws RuleError for a violated rule or a draft that another user has
/// changed, StepError for other errors; nothing is then written.
void SalvareDocumente(const TypedHeader& typed, const Row& header, const ShownDraft& shown);

}  // namespace velmar
