#include "documents/kinds/OrderRules.h"

namespace velmar {

void OrderRules::openLine(Row& line) const {
  for (const QString& column : openColumns()) line.set(column, openAtFirst(line));
}

Effects OrderRules::effects(const Document& document, const PlanInputs& inputs) const {
  const TypedHeader typed = document.typed();
  const Decimal rate = typed.rate();
  const auto inCurrency = [&typed, &rate](const Decimal& lei) {
    return typed.isForeign() && !rate.isZero() ? lei / rate : Decimal(0);
  };
  Effects effects;
  effects.lines = document.lines;
  LedgerDocument ledger = ledgerOf(document);
  for (Row& line : effects.lines) {
    openLine(line);
    LedgerLine written = ledgerLine(line, inputs);
    written.priceInCurrency = inCurrency(written.price);
    written.unitCostInCurrency = inCurrency(written.unitCost);
    written.costInCurrency = inCurrency(written.cost);
    ledger.value += line.decimal("VALOAREFT");
    ledger.vat += written.vat;
    ledger.cost += written.cost;
    ledger.lines.push_back(std::move(written));
  }
  if (typed.isForeign()) {
    ledger.currency = document.header.text(document.kind->field(HeaderFieldType::Currency)->column);
    ledger.rate = rate;
    ledger.valueInCurrency = inCurrency(ledger.value);
  }
  effects.ledger = {std::move(ledger)};
  effects.changedLines = effects.lines;
  effects.changedColumns = openColumns();
  return effects;
}

}  // namespace velmar
