#include "documents/PlanInputs.h"

#include "config/Lookups.h"
#include "config/Session.h"
#include "documents/DocumentKind.h"
#include "documents/KindRules.h"
#include "documents/Numbering.h"
#include "stock/Ledger.h"
#include "util/Clock.h"
#include "util/Errors.h"

namespace velmar {

bool PlanInputs::isFifo() const { return costMethod == kFifo; }

void requireCostMethod(const PlanInputs& inputs) {
  if (inputs.costMethod.isEmpty())
    throw RuleError(QStringLiteral("VA ROG SA ALEGETI METODA DE EVALUARE A STOCURILOR!"), "TCOST");
}

void readSaleRates(const Document& document, PlanInputs& inputs) {
  for (const QString& code : articlesOf(document.lines)) {
    const ArticleFacts* article = inputs.articles.find(code);
    const QString currency = article ? article->figures.CODDEVIZAVANZ.trimmed() : QString();
    if (!currency.isEmpty() && !inputs.rates.contains(currency))
      inputs.rates.insert(currency, Curs(currency, document.date()));
  }
}

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
  const KindRules& rules = *document.kind->rules;
  if (inputs.isFifo() && ledgerKind(document.kind->id).takesLots && rules.movesStock(document))
    inputs.lots = OpenLots::read(codes);
  for (const HeaderField& field : document.kind->headerFields) {
    const bool isVat =
        field.type == HeaderFieldType::Percent && !document.kind->field(HeaderFieldType::VatRate);
    if (isVat && !field.column.isEmpty()) inputs.vatPercent = document.header.decimal(field.column);
    if (field.type != HeaderFieldType::VatRate) continue;
    const VatRate rate = vatRate(document.header.integer(field.column));
    inputs.vatPercent = rate.percent;
    inputs.vatAccount = rate.account;
  }
  std::vector<LedgerKey> sources;
  for (const TakenLine& taken : takenBy(*document.kind, document.lines)) sources.push_back(taken.source);
  inputs.sources = readSources(sources);
  rules.readInputs(document, inputs);
  return inputs;
}

}  // namespace velmar
