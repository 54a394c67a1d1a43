#include "documents/Validation.h"

#include <optional>
#include <source_location>

#include "documents/Drafts.h"
#include "documents/KindRules.h"
#include "documents/LineChecks.h"
#include "store/Database.h"
#include "util/Clock.h"
#include "util/Errors.h"

namespace velmar {

namespace {

const QString kLedgerTitle = QStringLiteral("Salvare in Documente");
const QString kStockTitle = QStringLiteral("Functia SalvareStocArticole");

// Runs a step; an error gets the step's title and line, a broken rule passes as it is.
template <typename Work>
void step(const QString& title, Work&& work, std::source_location place = std::source_location::current()) {
  try {
    work();
  } catch (const RuleError&) {
    throw;
  } catch (const Error& error) {
    throw StepError(error, title, lineOf(place));
  }
}

// The draft as the store holds it at this moment, checked again in silence: another workstation may have
// changed it since the user was asked.
Document checkedDraft(const DocumentKind& kind, const QString& number) {
  auto document = Drafts(kind).load(number);
  if (!document) throw RuleError(QStringLiteral("Documentul a fost sters intre timp de alt utilizator !"));
  if (document->lines.empty())
    for (const auto& check : kind.validationChecks)
      if (check.check == ValidationCheck::NoLines) throw RuleError(check.text);
  const QString repeated = repeatedArticle(document->lines);
  if (!repeated.isEmpty()) throw RuleError(repeatedArticleText(repeated));
  const QString broken = brokenLineRule(kind, document->lines);
  if (!broken.isEmpty()) throw RuleError(broken);
  return *document;
}

Note noteOf(const Document& document) {
  Note note;
  note.kind = document.kind->prefix;
  note.date = document.header.date(document.kind->dateColumn);
  note.number = document.number;
  note.remark = document.header.text(document.kind->remarkColumn);
  return note;
}

// Cost, stock and prices of the articles, the mark on the draft, and the accounts.
void SalvareStocArticole(const Document& document, const Plan& plan) {
  updateArticles(plan.stock);
  Drafts(*document.kind).setValidated(document.number);
  SalvareDateContabile(plan.posting, noteOf(document));
}

}  // namespace

StepError::StepError(const Error& cause, const QString& title, int line)
    : Error(cause.number(), cause.text()), title_(title), line_(line) {}

void requirePostable(const DocumentKind& kind, const QString& number) {
  if (const auto document = Drafts(kind).load(number))
    requirePostable(kindRules(kind.prefix)->plan(*document).posting, number);
}

void SalvareDocumente(const DocumentKind& kind, const Row& header) {
  const KindRules* rules = kindRules(kind.prefix);
  std::optional<Transaction> transaction;
  step(kLedgerTitle, [&] { transaction.emplace(database()); });
  Plan plan;
  Document document;
  step(kLedgerTitle, [&] {
    Drafts(kind).updateHeader(header);
    document = checkedDraft(kind, header.text(kind.numberColumn));
    plan = rules->plan(document);
    const QDateTime moment = clock::now();
    for (const LedgerDocument& ledger : plan.ledger) writeLedger(ledger, moment);
  });
  step(kStockTitle, [&] { SalvareStocArticole(document, plan); });
  step(kStockTitle, [&] { transaction->commit(); });
}

}  // namespace velmar
