#include "documents/Plan.h"

#include <source_location>

#include "documents/Drafts.h"
#include "documents/KindRules.h"
#include "util/Errors.h"

namespace velmar {

namespace {

template <typename Work>
void inStep(Step step, Work&& work, std::source_location place = std::source_location::current()) {
  try {
    work();
  } catch (const RuleError&) {
    throw;
  } catch (const StepFailure&) {
    throw;
  } catch (const Error& error) {
    throw StepFailure(step, error, lineOf(place));
  }
}

void planLots(const Effects& effects, Plan& plan) {
  for (const Consumption& consumption : effects.consumed)
    plan.links.insert(plan.links.end(), consumption.takes.begin(), consumption.takes.end());
  plan.rests = plan.links;
  plan.rests.insert(plan.rests.end(), effects.returned.begin(), effects.returned.end());
}

void planSources(const Document& document, const PlanInputs& inputs, Plan& plan) {
  OpenSources sources(inputs.sources);
  for (const TakenLine& taken : takenBy(*document.kind, document.lines))
    sources.take(taken, plan.taker,
                 taken.source.kind == KindId::DeliveryNote ? inputs.today : document.date());
  plan.sources = sources.changed();
}

// An issue that uses lots moves the articles' costs; the other changes follow from the lines.
void planArticles(const Effects& effects, const PlanInputs& inputs, Plan& plan) {
  plan.articles = changesOfArticles(effects.stock, inputs.articles, {inputs.costMethod, inputs.decimals, {}},
                                    inputs.rates);
  for (const Consumption& consumption : effects.consumed)
    if (consumption.articleCost && !consumption.takes.empty())
      plan.articles.push_back({.code = consumption.takes.front().article, .COST = consumption.articleCost});
}

}  // namespace

LedgerDocument ledgerOf(const Document& document) {
  const DocumentKind& kind = *document.kind;
  LedgerDocument ledger;
  ledger.key = {kind.id, document.number};
  ledger.direction = kind.tipie;
  ledger.warehouse = document.warehouse();
  if (!kind.partnerColumn.isEmpty()) ledger.partner = document.header.integer(kind.partnerColumn);
  ledger.date = document.date();
  ledger.remark = document.header.text(kind.remarkColumn);
  return ledger;
}

std::optional<Decimal> optionalDecimal(const Row& row, const QString& column) {
  return row.isNull(column) ? std::nullopt : std::optional(row.decimal(column));
}

Plan planOf(const Document& document, const PlanInputs& inputs) {
  const DocumentKind& kind = *document.kind;
  Plan plan;
  Effects effects;
  inStep(Step::Ledger, [&] {
    effects = kind.rules->effects(document, inputs);
    plan.taker = {kind.id, document.number};
    planLots(effects, plan);
    planSources(document, inputs, plan);
    plan.ledger = std::move(effects.ledger);
    plan.draft = {&kind, document.origin.isEmpty() ? document.number : document.origin,
                  std::move(effects.changedLines), effects.changedColumns, true};
  });
  inStep(Step::Stock, [&] { planArticles(effects, inputs, plan); });
  inStep(Step::Posting, [&] {
    plan.notes = SalvareDateContabile(effects.notes, {kind.prefix, document.number, document.date(),
                                                      document.header.text(kind.remarkColumn), effects.lines,
                                                      inputs.articles, inputs.parameters});
    for (const Note& note : effects.composed) {
      requireBalance(note);
      plan.notes.push_back(note);
    }
    if (!plan.notes.empty()) plan.notes.back().stamp = kind.prefix;
  });
  return plan;
}

void executePlan(const Plan& plan, const QDateTime& moment) {
  const DraftChange& draft = plan.draft;
  inStep(Step::Ledger, [&] {
    writeLedger(plan.ledger, moment);
    removeLedger(plan.removedLedger);
    writeDirections(plan.directions);
    if (draft.kind) Drafts(*draft.kind).updateColumns(draft.lines, draft.lineColumns);
    writeRests(plan.rests);
    pAddDOCI(plan.taker, plan.links);
    for (const QString& article : plan.removedLinks) pStergDOCI(plan.taker, article);
    writeSources(plan.sources);
  });
  inStep(Step::Stock, [&] {
    writeArticles(plan.articles);
    if (draft.kind && draft.isMarked) Drafts(*draft.kind).setValidated(draft.number, draft.isValidated);
  });
  inStep(Step::Posting, [&] {
    removeNotes(plan.removedNotes, plan.taker.number);
    writeNotes(plan.notes);
  });
}

}  // namespace velmar
