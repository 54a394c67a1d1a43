#include "documents/Validation.h"

#include <source_location>

#include "config/Lookups.h"
#include "config/Session.h"
#include "documents/Drafts.h"
#include "documents/KindRules.h"
#include "documents/LineChecks.h"
#include "store/Database.h"
#include "util/Clock.h"
#include "util/Errors.h"

namespace velmar {

namespace {

// Runs a step; an error gets the step's text, title and line, a RuleError is passed on unchanged.
template <typename Work>
void step(const QString& words, const QString& title, Work&& work,
          std::source_location place = std::source_location::current()) {
  try {
    work();
  } catch (const RuleError&) {
    throw;
  } catch (const Error& error) {
    throw StepError(error.number(),
                    words.arg(QString::number(error.number()), error.text(), QString::number(lineOf(place))),
                    title);
  }
}

// Another workstation may have closed the period since the date was checked.
void requireOpenPeriod(const DocumentKind& kind, const QDate& date) {
  for (const auto& check : kind.validationChecks) {
    if (check.check == ValidationCheck::BeforeFiscalYear && date < session().DataIN)
      throw RuleError(check.text, check.field, 0, check.title);
    if (check.check == ValidationCheck::OutsidePeriod && !InPerioadaCulegere(date))
      throw RuleError(withPeriod(check.text), check.field, 0, check.title);
  }
  if (date < session().DataIC) throw RuleError(withPeriod(kPeriodText), kind.dateColumn);
}

// Checks the draft again without messages: the stock may have changed since the question.
void requireValid(const Document& document) {
  const DocumentKind& kind = *document.kind;
  if (document.lines.empty())
    for (const auto& check : kind.validationChecks)
      if (check.check == ValidationCheck::NoLines) throw RuleError(check.text);
  const QString repeated = kind.distinctArticles ? repeatedArticle(document.lines) : QString();
  if (!repeated.isEmpty()) throw RuleError(repeatedArticleText(repeated));
  const QString broken = brokenLineRule(kind, document.lines);
  if (!broken.isEmpty()) throw RuleError(broken);
  requireValidatable(document);
}

// Sets the header to be stored, with the stored columns of the fiscal receipt.
void takeHeader(Document& document, const Row& header) {
  const FiscalReceipt& receipt = document.kind->receipt;
  for (const QString& column : header.columns())
    if (column != receipt.printed && column != receipt.sending)
      document.header.set(column, Value::raw(header.value(column)));
}

Note headOf(const Document& document) {
  Note note;
  note.kind = document.kind->prefix;
  note.date = document.header.date(document.kind->dateColumn);
  note.number = document.number;
  note.remark = document.header.text(document.kind->remarkColumn);
  return note;
}

void writeStockOf(const Document& document, const Plan& plan) {
  Drafts(*document.kind).updateColumns(plan.costedLines, plan.costColumns);
  if (!plan.lots.empty()) writeConsumption({document.kind->prefix, document.number}, plan.lots);
  if (!plan.returned.quantities.isEmpty()) CautaFF(plan.returned.receipt, plan.returned.quantities);
}

// Stock, cost and prices of the articles, and the mark on the draft.
void SalvareStocArticole(const Document& document, const Plan& plan) {
  updateArticles(plan.stock, document.header.date(document.kind->dateColumn));
  Drafts(*document.kind).setValidated(document.number);
}

}  // namespace

StepError::StepError(int number, const QString& text, const QString& title)
    : Error(number, text), title_(title) {}

std::optional<Document> draftFor(const TypedHeader& typed, const QString& number) {
  auto document = Drafts(typed.kind()).load(number);
  if (document) document->typed = typed.texts();
  return document;
}

void requireValidatable(const Document& document) {
  const KindRules* rules = kindRules(document.kind->prefix);
  rules->requireStock(document);
  rules->requireReceipt(document);
}

QString withPeriod(const QString& text) {
  const QString format = QStringLiteral("dd/MM/yyyy");
  return text.arg(session().DataIC.toString(format), session().DataSC.toString(format));
}

void requirePostable(Document document) {
  const Plan plan = kindRules(document.kind->prefix)->plan(document);
  requirePostable(plan.posting, document.number);
}

void SalvareDocumente(const TypedHeader& typed, const Row& header, const ShownDraft& shown) {
  const DocumentKind& kind = typed.kind();
  const KindTexts& texts = kind.texts;
  std::optional<Transaction> transaction;
  Plan plan;
  Document document;
  step(texts.ledgerFailure, texts.ledgerFailureTitle, [&] {
    transaction.emplace(database());
    InitParaSoc();  // as they are now, for the checks and for what is written
    requireOpenPeriod(kind, header.date(kind.dateColumn));
    document = Drafts(kind).requireAsShown(shown);
    document.typed = typed.texts();
    takeHeader(document, header);
    Drafts(kind).updateHeader(header);
    requireValid(document);
    plan = kindRules(kind.prefix)->plan(document);
    const QDateTime moment = clock::now();
    for (const LedgerDocument& ledger : plan.ledger) writeLedger(ledger, moment);
    writeStockOf(document, plan);
  });
  step(texts.stockFailure, texts.stockFailureTitle, [&] { SalvareStocArticole(document, plan); });
  step(texts.postingFailure, texts.postingFailureTitle,
       [&] { SalvareDateContabile(plan.posting, headOf(document)); });
  step(texts.stockFailure, texts.stockFailureTitle, [&] { transaction->commit(); });
}

}  // namespace velmar
