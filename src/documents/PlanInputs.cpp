#include "documents/PlanInputs.h"

#include "config/Lookups.h"
#include "config/Session.h"
#include "documents/DocumentKind.h"
#include "documents/KindRules.h"
#include "documents/Numbering.h"
#include "stock/Ledger.h"
#include "util/Clock.h"

namespace velmar {

bool PlanInputs::isFifo() const { return costMethod == kFifo; }

PlanInputs readInputs(const Document& document) {
  const Session& s = session();
  PlanInputs inputs;
  inputs.costMethod = s.TCOST.trimmed();
  inputs.decimals = s.NrZec;
  inputs.series = seriesOf(*document.kind);
  inputs.parameters = companyParameters();
  inputs.today = clock::today();
  const QStringList codes = articlesOf(document.lines);
  inputs.articles = readArticles(codes);
  if (inputs.isFifo() && ledgerKind(document.kind->id).takesLots) inputs.lots = OpenLots::read(codes);
  for (const HeaderField& field : document.kind->headerFields) {
    if (field.type == HeaderFieldType::Percent && !field.column.isEmpty())
      inputs.vatPercent = document.header.decimal(field.column);
    if (field.type != HeaderFieldType::VatRate) continue;
    const VatRate rate = vatRate(document.header.integer(field.column));
    inputs.vatPercent = rate.percent;
    inputs.vatAccount = rate.account;
  }
  std::vector<LedgerKey> sources;
  for (const TakenLine& taken : takenBy(*document.kind, document.lines)) sources.push_back(taken.source);
  inputs.sources = readSources(sources);
  document.kind->rules->readInputs(document, inputs);
  return inputs;
}

}  // namespace velmar
