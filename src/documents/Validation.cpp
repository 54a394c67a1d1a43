#include "documents/Validation.h"

#include "config/Session.h"
#include "documents/HeaderChecks.h"
#include "documents/KindRules.h"
#include "documents/Plan.h"
#include "store/Database.h"
#include "util/Clock.h"

namespace velmar {

namespace {

StepError inWords(const DocumentKind& kind, const Row& header, Step step, const Error& error, int line) {
  const KindTexts& texts = kind.texts;
  const auto filled = [&](const QString& text) {
    return text.arg(QString::number(error.number()), error.text(), QString::number(line));
  };
  switch (step) {
    case Step::Stock: {
      const QString own = kind.rules->stockFailureTitle(header);
      return {error.number(), filled(texts.stockFailure), own.isEmpty() ? texts.stockFailureTitle : own};
    }
    case Step::Posting:
      return {error.number(), filled(texts.postingFailure), texts.postingFailureTitle};
    case Step::Ledger:
      break;
  }
  return {error.number(), filled(texts.ledgerFailure), texts.ledgerFailureTitle};
}

// Another workstation may have closed the period, sold the stock or deleted an article meanwhile.
void requireValid(const Document& document) {
  if (document.date() < session().DataIC) throw RuleError(periodText(), document.kind->dateColumn);
  requireUnderLock(document.kind->validationChecks, document);
  requireUnderLock(document.kind->lineChecks, document);
}

// The document that is made from a validated one: its own number and date, the other's number as its remark.
void makeFrom(Document& document) {
  const DocumentKind& kind = *document.kind;
  const TypedHeader typed = document.typed();
  document.origin = document.number;
  document.number = typed.text(kind.numberColumn);
  document.header.set(kind.numberColumn, document.number);
  document.header.set(kind.dateColumn, typed.date());
  document.header.set(kind.remarkColumn, document.origin);
}

// Sets the header to be stored, with the stored columns of the fiscal receipt.
void takeHeader(Document& document, const Row& header) {
  const FiscalReceipt& receipt = document.kind->receipt;
  for (const QString& column : header.columns())
    if (column != receipt.printed && column != receipt.sending)
      document.header.set(column, Value::raw(header.value(column)));
}

}  // namespace

StepError::StepError(int number, const QString& text, const QString& title)
    : Error(number, text), title_(title) {}

void SalvareDocumente(const TypedHeader& typed, const Row& header, const ShownDraft& shown) {
  const Drafts drafts(typed.kind());
  Step step = Step::Ledger;  // of errors that do not tell theirs
  try {
    Transaction transaction(database());
    InitParaSoc();  // as they are now, for the checks and for what is written
    Document document = drafts.requireAsShown(shown);
    document.texts = typed.texts();
    if (typed.kind().hasDraft) {
      takeHeader(document, header);
      drafts.updateHeader(header);
    } else {
      makeFrom(document);
    }
    requireValid(document);
    executePlan(planOf(document, readInputs(document)), clock::now());
    step = Step::Stock;
    transaction.commit();
  } catch (const RuleError&) {
    throw;
  } catch (const StepFailure& failure) {
    throw inWords(typed.kind(), header, failure.step(), failure, failure.line());
  } catch (const Error& error) {
    throw inWords(typed.kind(), header, step, error, lineOf(std::source_location::current()));
  }
}

}  // namespace velmar
