// The input voucher: the company's own products are received into stock, without a supplier invoice.
#include "documents/KindRules.h"

namespace velmar {

namespace {

class InputVoucherRules : public KindRules {
 public:
  void completeLine(Row& line, const Row& article, TypedHeader& header) const override {
    line.set("UM", article.text("UM"));
    if (line.isNull("CANT")) line.set("CANT", Decimal(0));
    line.set("PRETFT", Round(article.decimal("COST"), 2));
    line.set("PRETVA", article.decimal("PRETVFT"));
    recalculate(line, QStringLiteral("PRETFT"), header);
  }

  void recalculate(Row& line, const QString& changed, const TypedHeader& /*header*/) const override {
    if (changed != QStringLiteral("CANT") && changed != QStringLiteral("PRETFT")) return;
    line.set("VALOAREFT", Round(line.decimal("CANT") * line.decimal("PRETFT"), 2));
  }

  QStringList totalColumns() const override { return {"VALOAREFT"}; }

  Plan plan(Document& document) const override {
    LedgerDocument ledger = ledgerOf(document);
    ledger.lineColumns =
        QStringList{"ARTID",   "CANT",    "PRETFT",     "PRETTTI", "PRETDEV",    "VALTVA", "COST",
                    "COSTDEV", "VALCOST", "VALCOSTDEV", "CODTVA",  "CANTRAMASA", "PRETVA"};
    Plan plan;
    Decimal total;
    const Decimal zero;
    const Decimal vat = document.header.decimal("BATVA");
    for (const Row& line : document.lines) {
      const QString article = line.text("CODART");
      const Decimal quantity = line.decimal("CANT");
      const Decimal cost = line.decimal("PRETFT");
      const Decimal value = line.decimal("VALOAREFT");
      const Decimal salePrice = line.decimal("PRETVA");
      total += value;
      ledger.lines.push_back({article, quantity, cost, cost, zero, zero, cost, zero, value, zero, vat,
                              quantity, Value::raw(line.value("PRETVA"))});
      plan.stock.push_back({article, quantity, cost, salePrice, StockRule::ReceiptByMargin});
    }
    addTotalsInLei(ledger, total, zero, total);
    plan.ledger.push_back(std::move(ledger));
    plan.posting.notes = {{"G_LBONINT",
                           "JURBONINTR",
                           {},
                           {{Side::Debit, AccountSource::Totals, "CONTSTOCPROD"},
                            {Side::Credit, AccountSource::Parameter, "CONTINTRPROD"}},
                           {}}};
    return plan;
  }
};

}  // namespace

std::unique_ptr<KindRules> makeInputVoucherRules() { return std::make_unique<InputVoucherRules>(); }

}  // namespace velmar
